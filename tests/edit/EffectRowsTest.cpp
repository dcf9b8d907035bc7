#include "edit/EffectRows.h"

#include "app/Lead.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

struct Expected {
    const char* button;
    const char* label;
    int min;
    int max;
    int start;
    int largeStep;
};
constexpr Expected Table[] = {
    { "ImageBut(0)", "Contrast", -1000, 1000, 0, 10 },
    { "ImageBut(1)", "Brightness", -1000, 1000, 0, 10 },
    { "ImageBut(2)", "Hue", -180, 180, 0, 30 },
    { "ImageBut(3)", "Saturation", -1000, 1000, 0, 10 },
    { "ImageBut(4)", "Gamma", 1, 500, 100, 10 },
    { "ImageBut(5)", "Sharpen", -1000, 1000, 100, 10 },
    { "EffectBut(0)", "Oil", 2, 20, 2, 1 },
    { "EffectBut(1)", "Emboss", 0, 1000, 2, 1 },
    { "EffectBut(2)", "Mosaic", 0, 1000, 3, 5 },
    { "EffectBut(3)", "Posterize", 2, 64, 2, 5 },
    { "EffectBut(4)", "Median", 2, 25, 3, 5 },
    { "EffectBut(5)", "Solarize", 0, 255, 3, 5 },
};

QImage Ramp()
{
    QImage picture(24, 18, QImage::Format_BGR888);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, QColor(x * 10, y * 14, (x * y * 7) % 256));
    return picture;
}

const EffectRow& Row(int index)
{
    return EffectRows()[size_t(index)];
}
constexpr int Contrast = 0, Gamma = 4, Oil = 6, Emboss = 7, Posterize = 9;

} // namespace

TEST(EffectRowsTest, TheTwelveRowsHaveTheirRangesStartsAndSteps)
{
    for (size_t index = 0; index < EffectRowCount; ++index) {
        const EffectRow& row = EffectRows()[index];
        const Expected& expected = Table[index];
        EXPECT_STREQ(row.button, expected.button);
        EXPECT_STREQ(row.label, expected.label);
        EXPECT_EQ(row.min, expected.min) << row.label;
        EXPECT_EQ(row.max, expected.max) << row.label;
        EXPECT_EQ(row.start, expected.start) << row.label;
        EXPECT_EQ(row.largeStep, expected.largeStep) << row.label;
        EXPECT_EQ(row.group, index < 6 ? EffectGroup::Image : EffectGroup::Effects) << row.label;
    }
}

TEST(EffectRowsTest, ARowDoesWhatTheOperationOfItsNameDoes)
{
    using Operation = void (*)(Lead&, int);
    constexpr Operation operations[] = {
        [](Lead& lead, int value) { lead.Contrast(value); },
        [](Lead& lead, int value) { lead.Brightness(value); },
        [](Lead& lead, int value) { lead.Hue(value); },
        [](Lead& lead, int value) { lead.Saturation(value); },
        [](Lead& lead, int value) { lead.Gamma(value); },
        [](Lead& lead, int value) { lead.Sharpen(value); },
        [](Lead& lead, int value) { lead.Oil(value); },
        [](Lead& lead, int value) { lead.Emboss(3, value); },
        [](Lead& lead, int value) { lead.Mosaic(value); },
        [](Lead& lead, int value) { lead.Posterize(value); },
        [](Lead& lead, int value) { lead.Median(value); },
        [](Lead& lead, int value) { lead.Solarize(value); },
    };
    for (int index = 0; index < EffectRowCount; ++index) {
        const int value = Row(index).max / 2;
        Lead byRow;
        byRow.SetBitmap(Ramp());
        Row(index).apply(byRow, value, 3);
        Lead direct;
        direct.SetBitmap(Ramp());
        operations[index](direct, value);
        EXPECT_EQ(byRow.Bitmap(), direct.Bitmap()) << Row(index).label;
        EXPECT_NE(byRow.Bitmap(), Ramp()) << Row(index).label;
    }
}

TEST(EffectRowsTest, OnlyEmbossLooksAtTheDirection)
{
    for (int index = 0; index < EffectRowCount; ++index) {
        Lead east;
        Lead south;
        east.SetBitmap(Ramp());
        south.SetBitmap(Ramp());
        Row(index).apply(east, Row(index).max / 2, 0);
        Row(index).apply(south, Row(index).max / 2, 3);
        EXPECT_EQ(east.Bitmap() != south.Bitmap(), index == Emboss) << Row(index).label;
    }
}

TEST(AnswerTextTest, ANumberBeyondTheRangeBecomesItsBound)
{
    EXPECT_EQ(AnswerText::Held(QStringLiteral("5000"), Row(Contrast)), QStringLiteral("1000"));
    EXPECT_EQ(AnswerText::Held(QStringLiteral("-5"), Row(Posterize)), QStringLiteral("2"));
    EXPECT_EQ(AnswerText::Held(QString(), Row(Gamma)), QStringLiteral("1"));
}

TEST(AnswerTextTest, ATextInTheRangeStandsAsItIs)
{
    for (const char* text : { "12 percent", "", "-", "007", " 4" })
        EXPECT_EQ(AnswerText::Held(QLatin1String(text), Row(Contrast)), QLatin1String(text));
    EXPECT_EQ(AnswerText::Number(QStringLiteral("12 percent")), 12);
    EXPECT_EQ(AnswerText::Number(QString()), 0);
}

TEST(AnswerTextTest, DecimalsAreReadAndRoundedAHalfToTheEvenNumber)
{
    const std::pair<const char*, int> cases[] { { "2.4", 2 }, { "2.6", 3 }, { "2.5", 2 }, { "3.5", 4 },
        { "-1.5", -2 }, { ".7", 1 }, { "5.", 5 }, { "1.9 percent", 2 }, { "99999999999", INT_MAX } };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(AnswerText::Number(QLatin1String(text)), number) << text;
    EXPECT_EQ(AnswerText::Held(QStringLiteral("1000.2"), Row(Contrast)), QStringLiteral("1000"));
    EXPECT_EQ(AnswerText::Held(QStringLiteral("999.6"), Row(Contrast)), QStringLiteral("999.6"));
}

TEST(AnswerTextTest, DigitsBelowTheRangeOrAMinusMayBeTheBeginningOfANumber)
{
    EXPECT_TRUE(AnswerText::IsBeginning(QStringLiteral("1"), Row(Oil)));
    EXPECT_TRUE(AnswerText::IsBeginning(QString(), Row(Oil)));
    EXPECT_FALSE(AnswerText::IsBeginning(QStringLiteral("2"), Row(Oil)));
    EXPECT_TRUE(AnswerText::IsBeginning(QStringLiteral("-"), Row(Oil)));
    EXPECT_FALSE(AnswerText::IsBeginning(QStringLiteral("-5"), Row(Oil)));
}
