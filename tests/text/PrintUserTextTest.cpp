#include "text/PrintUserText.h"

#include "imaging/PictureText.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/PaintCount.h"

#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr QSize Size { 320, 160 };

QImage Plain()
{
    QImage picture(Size, QImage::Format_BGR888);
    picture.fill(Qt::darkBlue);
    return picture;
}

class PrintUserTextTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    Lead lead;

    PrintUserTextTest()
    {
        state.UseWatermark = true;
        state.SFontName = QStringLiteral("DejaVu Sans");
        state.SFontSize = 18;
        state.SFontItalic = true;
        state.sFontColor = 0x3070E0;
        state.sFontText = QStringLiteral("Sample of text");
        state.PositionX = 30;
        state.PositionY = 20;
        state.UseShadows = true;
        state.sFontWatermarkTextAngle = 12;
        state.sFontBorderColor = 0x112233;
        state.WatermarkTextStyle = 7;
        state.sFontShadowColor = 0x445566;
        state.TextShadowPosX = 4;
        state.TextShadowPosY = 5;
        state.WordWrap = true;
        lead.resize(400, 200);
        lead.SetBitmap(Plain());
        frame.activeCapture = &lead;
    }

    imaging::TextLook Expected() const
    {
        imaging::TextLook look;
        look.font = QStringLiteral("DejaVu Sans");
        look.points = 18;
        look.isItalic = true;
        look.color = QColor(0xE0, 0x70, 0x30);
        look.style = imaging::TextStyle::OutlineBlock;
        look.hilite = QColor(0x33, 0x22, 0x11);
        look.shadow = QColor(0x66, 0x55, 0x44);
        look.shadowDepth = { 4, 5 };
        look.place = { 30, 20, double(Size.width()), Size.height() + 220.0 };
        look.angle = 120;
        look.wraps = true;
        return look;
    }
    QImage Printed()
    {
        lead.SetBitmap(Plain());
        PrintUserText(frame);
        return lead.Bitmap();
    }
};

} // namespace

TEST_F(PrintUserTextTest, EverySettingReachesTheControl)
{
    PrintUserText(frame);
    EXPECT_EQ(lead.Font.Name, QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(lead.Font.size, 18);
    EXPECT_TRUE(lead.Font.Italic);
    EXPECT_EQ(lead.DrawFontColor, 0x3070E0u);
    EXPECT_EQ(lead.TextTop, 20);
    EXPECT_EQ(lead.TextLeft, 30);
    EXPECT_EQ(lead.TextWidth, lead.DstWidth());
    EXPECT_EQ(lead.TextHeight, lead.DstHeight() + 220);
    EXPECT_EQ(lead.TextAngle, 120);
    EXPECT_EQ(lead.TextHiliteColor, 0x112233u);
    EXPECT_EQ(lead.TextStyle, 7);
    EXPECT_EQ(lead.ShadowColor, 0x445566u);
    EXPECT_EQ(lead.ShadowXDepth, 4);
    EXPECT_EQ(lead.ShadowYDepth, 5);
    EXPECT_TRUE(lead.TextWordWrap);
    EXPECT_FALSE(lead.DrawPersistence);
}

TEST_F(PrintUserTextTest, ThePictureItselfBearsTheText)
{
    EXPECT_EQ(Printed(), imaging::WithText(Plain(), state.sFontText, Expected()));
    EXPECT_NE(lead.Bitmap(), Plain());
}

TEST_F(PrintUserTextTest, EverySettingShowsInThePicture)
{
    const QImage before = Printed();
    const auto changes = [&](auto TextSettings::*variable, auto value) {
        const auto kept = std::exchange(state.*variable, value);
        const bool isOther = Printed() != before;
        state.*variable = kept;
        return isOther;
    };
    EXPECT_TRUE(changes(&TextSettings::SFontName, QStringLiteral("DejaVu Serif")));
    EXPECT_TRUE(changes(&TextSettings::SFontSize, 24.0F));
    EXPECT_TRUE(changes(&TextSettings::SFontItalic, false));
    EXPECT_TRUE(changes(&TextSettings::sFontColor, 0));
    EXPECT_TRUE(changes(&TextSettings::sFontText, QStringLiteral("Other")));
    EXPECT_TRUE(changes(&TextSettings::PositionX, 50.0F));
    EXPECT_TRUE(changes(&TextSettings::PositionY, 50.0F));
    EXPECT_TRUE(changes(&TextSettings::UseShadows, false));
    EXPECT_TRUE(changes(&TextSettings::sFontWatermarkTextAngle, qint16(20)));
    EXPECT_TRUE(changes(&TextSettings::sFontBorderColor, 0xFFFFFF));
    EXPECT_TRUE(changes(&TextSettings::WatermarkTextStyle, qint16(5)));
    EXPECT_TRUE(changes(&TextSettings::sFontShadowColor, 0xFFFFFF));
    EXPECT_TRUE(changes(&TextSettings::TextShadowPosX, qint16(20)));
    EXPECT_TRUE(changes(&TextSettings::TextShadowPosY, qint16(20)));
    state.sFontText = QStringLiteral("Longer than one line of the picture is wide");
    EXPECT_NE(Printed(), before);
    const QImage wrapped = Printed();
    state.WordWrap = false;
    EXPECT_NE(Printed(), wrapped);
}

TEST_F(PrintUserTextTest, BoldIsNotApplied)
{
    const QImage regular = Printed();
    state.SFontBold = true;
    EXPECT_EQ(Printed(), regular);
    EXPECT_FALSE(lead.Font.Bold);
}

TEST_F(PrintUserTextTest, WithoutShadowsTheEffectsCountForNothing)
{
    state.UseShadows = false;
    imaging::TextLook plain = Expected();
    plain.style = imaging::TextStyle::Normal;
    plain.angle = 0;
    EXPECT_EQ(Printed(), imaging::WithText(Plain(), state.sFontText, plain));
    EXPECT_EQ(lead.TextStyle, 0);
    EXPECT_EQ(lead.TextHiliteColor, 0u);
}

TEST_F(PrintUserTextTest, ShadowsSwitchedOffLeaveNoAngleBehind)
{
    Printed();
    state.UseShadows = false;
    Printed();
    EXPECT_EQ(lead.TextAngle, 0);
}

TEST_F(PrintUserTextTest, WithoutTheMasterSwitchNothingHappens)
{
    state.UseWatermark = false;
    EXPECT_EQ(Printed(), Plain());
    EXPECT_EQ(lead.TextLeft, 0);
}

TEST_F(PrintUserTextTest, AStyleOfNoNumberIsNormal)
{
    state.WatermarkTextStyle = 0;
    const QImage normal = Printed();
    for (const int style : { -1, 8, 32767 }) {
        state.WatermarkTextStyle = qint16(style);
        EXPECT_EQ(Printed(), normal) << style;
    }
}

TEST_F(PrintUserTextTest, APositionBeyondThePictureDrawsNothing)
{
    state.PositionX = 1000;
    EXPECT_EQ(Printed(), Plain());
}

TEST_F(PrintUserTextTest, TheTextIsDrawnAgainAtEveryCall)
{
    const QImage once = Printed();
    PrintUserText(frame);
    EXPECT_NE(lead.Bitmap(), once) << "soft edges add up";
}

TEST_F(PrintUserTextTest, TheZoomOfTheWindowDoesNotShowInThePicture)
{
    state.sFontText = QStringLiteral("A text that is long enough to be wrapped in the picture");
    const QImage expected = Printed();
    lead.SetPaintSizeMode(Lead::ZoomSize);
    for (const int percent : { 30, 100, 400 }) {
        lead.SetPaintZoomFactor(percent);
        EXPECT_EQ(Printed(), expected) << percent;
    }
}

TEST_F(PrintUserTextTest, TheZoomDoesNotShowInHowManyLinesAreDrawnEither)
{
    state.sFontText = QStringLiteral("line\n").repeated(40);
    state.sFontWatermarkTextAngle = 90; // the lines stand side by side, so all that are drawn are seen
    state.SFontSize = 6;
    const QImage expected = Printed();
    lead.SetPaintSizeMode(Lead::ZoomSize);
    for (const int percent : { 20, 500 }) {
        lead.SetPaintZoomFactor(percent);
        EXPECT_EQ(Printed(), expected) << percent;
    }
}

TEST_F(PrintUserTextTest, TheWindowShowsWhatItShowedBefore)
{
    lead.show();
    lead.resize(100, 60);
    auto* across = lead.findChildren<QScrollBar*>().first();
    across->setValue(70);
    PrintUserText(frame);
    EXPECT_EQ(across->value(), 70);
    EXPECT_TRUE(across->isVisible());
}

TEST_F(PrintUserTextTest, AfterwardsTheBarsAreBackChangesArePaintedAndTheGroundIsNotErased)
{
    const auto ground = [this] {
        QImage shown(lead.size(), QImage::Format_RGB32);
        shown.fill(Qt::magenta);
        lead.render(&shown, {}, {}, QWidget::DrawChildren);
        return shown.pixelColor(lead.rect().bottomRight());
    };
    lead.SetAutoRepaint(false);
    lead.SetAutoScroll(false);
    lead.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&lead));
    ASSERT_NE(ground(), QColor(Qt::magenta));
    PrintUserText(frame);
    EXPECT_EQ(ground(), QColor(Qt::magenta)) << "it was switched off and stays so";
    QCoreApplication::processEvents();
    PaintCount paints(lead);
    lead.SetBitmap(Plain());
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > 0; }));
    lead.resize(100, 60);
    EXPECT_TRUE(lead.findChildren<QScrollBar*>().first()->isVisible());
}

TEST_F(PrintUserTextTest, TheTextIsOnTheScreenAtOnce)
{
    lead.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&lead));
    QCoreApplication::processEvents();
    PaintCount paints(lead);
    PrintUserText(frame);
    EXPECT_GT(paints.count, 0) << "before any event was handled";
}

TEST_F(PrintUserTextTest, WithoutACaptureItIsAFailure)
{
    frame.activeCapture = nullptr;
    EXPECT_THROW(PrintUserText(frame), ControlError);
    frame.activeCapture = &lead;
    lead.SetBitmap({});
    EXPECT_THROW(PrintUserText(frame), ControlError);
    EXPECT_FALSE(lead.DrawPersistence);
}
