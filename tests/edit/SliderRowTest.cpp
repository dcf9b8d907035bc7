#include "edit/SliderRow.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int Contrast = 0, Gamma = 4, Oil = 6, Posterize = 9;

/// A row with a user before it.
struct Shown : SliderRow {
    explicit Shown(int index)
        : SliderRow(index, nullptr)
    {
        show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    QLineEdit& Box() { return *findChild<QLineEdit*>(); }
    QSlider& Slider() { return *findChild<QSlider*>(); }
    void Type(const char* text)
    {
        Box().setFocus();
        Box().selectAll();
        QTest::keyClicks(&Box(), QLatin1String(text));
    }
    void Expect(int value)
    {
        EXPECT_EQ(Box().text(), QString::number(value));
        EXPECT_EQ(Value(), value);
    }
};

} // namespace

TEST(SliderRowTest, TheSliderWritesTheBox)
{
    Shown row(Contrast);
    EXPECT_EQ(row.Box().text(), QStringLiteral("0"));
    row.Slider().setValue(-250);
    EXPECT_EQ(row.Box().text(), QStringLiteral("-250"));
}

TEST(SliderRowTest, TheBoxMovesTheSliderWhileItIsTyped)
{
    Shown row(Contrast);
    row.Slider().setValue(7);
    row.Type("-120");
    row.Expect(-120);
}

TEST(SliderRowTest, ANumberBeyondTheEndBecomesTheEnd)
{
    Shown row(Contrast);
    row.Type("5000");
    row.Expect(1000);
}

TEST(SliderRowTest, ANumberBelowTheStartBecomesTheStart)
{
    Shown row(Posterize);
    row.SetText(QStringLiteral("-5"));
    row.Expect(2);
}

TEST(SliderRowTest, ANegativeNumberTypedWhereThereIsNoneBecomesTheStart)
{
    Shown row(Posterize);
    row.Type("-5");
    row.Expect(2);
}

TEST(SliderRowTest, ANumberWhoseFirstDigitIsTooSmallCanBeTyped)
{
    Shown row(Oil);
    row.Type("15");
    row.Expect(15);
}

TEST(SliderRowTest, ANumberLeftTooSmallIsMendedAtTheEndOfTyping)
{
    Shown row(Oil);
    row.Slider().setValue(9);
    row.Type("1");
    EXPECT_EQ(row.Value(), 2);
    QTest::keyClick(&row.Box(), Qt::Key_Return);
    EXPECT_EQ(row.Box().text(), QStringLiteral("2"));
}

TEST(SliderRowTest, ALoadedTextStandsWhileItsNumberIsInTheRange)
{
    Shown row(Gamma);
    row.SetValue(140);
    row.SetText(QStringLiteral("140 as usual"));
    EXPECT_EQ(row.Value(), 140);
    EXPECT_EQ(row.Box().text(), QStringLiteral("140 as usual"));
    row.SetText(QString());
    EXPECT_EQ(row.Box().text(), QStringLiteral("1")) << "an empty one reads as 0";
}

TEST(SliderRowTest, ItGoesBackToWhereItStoodWhenItWasLastTold)
{
    Shown row(Gamma);
    row.Slider().setValue(300);
    row.ReAnswer();
    EXPECT_EQ(row.Value(), 100);
    row.Slider().setValue(300);
    row.ShowAnswer();
    row.Slider().setValue(20);
    row.ReAnswer();
    row.Expect(300);
}

TEST(SliderRowTest, TheButtonAndEnterApply)
{
    Shown row(Contrast);
    QSignalSpy applied(&row, &SliderRow::Apply);
    QTest::mouseClick(row.findChild<QWidget*>(QStringLiteral("ImageBut(0)")), Qt::LeftButton);
    QTest::keyClick(&row.Box(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return applied.count() == 2; }));
}

TEST(SliderRowTest, EnterIsToldOnceTheBoxIsDoneWithIt)
{
    Shown row(Contrast);
    QSignalSpy applied(&row, &SliderRow::Apply);
    QObject::connect(&row.Box(), &QLineEdit::editingFinished, [&] { EXPECT_EQ(applied.count(), 0); });
    QTest::keyClick(&row.Box(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return applied.count() == 1; }));
}

TEST(SliderRowTest, WhatIsTypedStandsUntilTypingEndsAndIsTheSlidersNumberThen)
{
    Shown row(Contrast);
    row.Type("007 or so");
    EXPECT_EQ(row.Value(), 7);
    EXPECT_EQ(row.Box().text(), QStringLiteral("007 or so"));
    QTest::keyClick(&row.Box(), Qt::Key_Return);
    row.Expect(7);
}

TEST(SliderRowTest, AMoveOfTheSliderReplacesATextOfItsOwnNumberToo)
{
    Shown row(Gamma);
    row.SetValue(140);
    row.SetText(QStringLiteral("141 as usual"));
    row.Expect(141);
}

TEST(SliderRowTest, PassingThroughTheBoxLeavesALoadedText)
{
    Shown row(Gamma);
    row.SetText(QStringLiteral("100 as usual"));
    row.Box().setFocus();
    row.Slider().setFocus();
    EXPECT_EQ(row.Box().text(), QStringLiteral("100 as usual"));
}

TEST(SliderRowTest, DecimalsAreRounded)
{
    Shown row(Gamma);
    row.Type("120.6");
    EXPECT_EQ(row.Value(), 121);
}
