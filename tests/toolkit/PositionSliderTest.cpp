#include "toolkit/PositionSlider.h"

#include "toolkit/Style.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Shown {
    Shown()
    {
        slider.resize(218, 24);
        slider.SetMax(10000);
        slider.show();
    }
    QPoint At(int percent) const { return { 9 + 2 * percent, 12 }; }

    PositionSlider slider;
    QSignalSpy scrolls { &slider, &PositionSlider::Scroll };
};

} // namespace

TEST(PositionSlider, AClickPutsTheHandleThereAndScrolls)
{
    Shown shown;
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, shown.At(50));
    EXPECT_EQ(shown.scrolls.size(), 1);
    EXPECT_EQ(shown.slider.Value(), 5000);
}

TEST(PositionSlider, ADragScrollsAtEachMove)
{
    Shown shown;
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, shown.At(10));
    QTest::mouseMove(&shown.slider, shown.At(30));
    QTest::mouseMove(&shown.slider, shown.At(60));
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, shown.At(60));
    EXPECT_EQ(shown.scrolls.size(), 3);
    EXPECT_EQ(shown.slider.Value(), 6000);
}

TEST(PositionSlider, TheEndsOfTheScaleCanBeReached)
{
    Shown shown;
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, QPoint(217, 12));
    EXPECT_EQ(shown.slider.Value(), 10000);
    QTest::mouseClick(&shown.slider, Qt::LeftButton, {}, QPoint(0, 12));
    EXPECT_EQ(shown.slider.Value(), 0);
}

TEST(PositionSlider, AValueOfTheCallerRaisesNoScrollAndStaysOnTheScale)
{
    Shown shown;
    shown.slider.SetValue(7000);
    EXPECT_EQ(shown.slider.Value(), 7000);
    shown.slider.SetValue(20000);
    EXPECT_EQ(shown.slider.Value(), 10000);
    shown.slider.SetValue(-5);
    EXPECT_EQ(shown.slider.Value(), 0);
    shown.slider.SetValue(9000);
    shown.slider.SetMax(500);
    EXPECT_EQ(shown.slider.Value(), 500);
    EXPECT_EQ(shown.scrolls.size(), 0);
}

TEST(PositionSlider, ACallerDoesNotPullTheHandleFromTheUsersHand)
{
    Shown shown;
    QTest::mousePress(&shown.slider, Qt::LeftButton, {}, shown.At(50));
    shown.slider.SetValue(100);
    EXPECT_EQ(shown.slider.Value(), 5000);
    QTest::mouseRelease(&shown.slider, Qt::LeftButton, {}, shown.At(50));
    shown.slider.SetValue(100);
    EXPECT_EQ(shown.slider.Value(), 100);
}

TEST(PositionSlider, KeysMoveByAHundredthATenthAndToTheEnds)
{
    Shown shown;
    QTest::keyClick(&shown.slider, Qt::Key_Right);
    EXPECT_EQ(shown.slider.Value(), 100);
    QTest::keyClick(&shown.slider, Qt::Key_PageUp);
    EXPECT_EQ(shown.slider.Value(), 1100);
    QTest::keyClick(&shown.slider, Qt::Key_Left);
    EXPECT_EQ(shown.slider.Value(), 1000);
    QTest::keyClick(&shown.slider, Qt::Key_End);
    EXPECT_EQ(shown.slider.Value(), 10000);
    QTest::keyClick(&shown.slider, Qt::Key_End);
    EXPECT_EQ(shown.scrolls.size(), 4);
    QTest::keyClick(&shown.slider, Qt::Key_Home);
    EXPECT_EQ(shown.slider.Value(), 0);
}

TEST(PositionSlider, AWheelInPassingDoesNotScroll)
{
    Shown shown;
    shown.slider.SetValue(5000);
    QWheelEvent wheel(QPointF(50, 12), shown.slider.mapToGlobal(QPointF(50, 12)), QPoint(), QPoint(0, 120),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&shown.slider, &wheel);
    EXPECT_EQ(shown.slider.Value(), 5000);
    EXPECT_EQ(shown.scrolls.size(), 0);
}

TEST(PositionSlider, WithoutAScaleItStaysAtZero)
{
    PositionSlider slider;
    slider.resize(200, 24);
    slider.SetMax(0);
    QSignalSpy scrolls(&slider, &PositionSlider::Scroll);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(120, 12));
    EXPECT_EQ(slider.Value(), 0);
    EXPECT_EQ(scrolls.size(), 0);
    EXPECT_FALSE(slider.grab().isNull());
}

TEST(PositionSlider, ASelectedRangeIsSeenAndALengthOfZeroShowsNone)
{
    Shown shown;
    const QImage plain = shown.slider.grab().toImage();
    shown.slider.SetSelStart(2000);
    EXPECT_EQ(shown.slider.grab().toImage(), plain);
    shown.slider.SetSelLength(3000);
    const QImage ranged = shown.slider.grab().toImage();
    EXPECT_EQ(ranged.pixelColor(shown.At(35).x(), 4), StyleColor(Token::Text));
    EXPECT_NE(ranged.pixelColor(shown.At(60).x(), 4), StyleColor(Token::Text));
    shown.slider.SetSelLength(0);
    EXPECT_EQ(shown.slider.grab().toImage(), plain);
}

TEST(PositionSlider, TheGrooveIsFilledUpToTheHandle)
{
    Shown shown;
    shown.slider.SetValue(5000);
    const QImage image = shown.slider.grab().toImage();
    EXPECT_EQ(image.pixelColor(shown.At(20).x(), 12), StyleColor(Token::Accent));
    EXPECT_EQ(image.pixelColor(shown.At(80).x(), 12), StyleColor(Token::LineInside));
}

TEST(PositionSlider, AssistiveTechnologyMovesItForTheUser)
{
    Shown shown;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&shown.slider);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Slider);
    ASSERT_NE(seen->valueInterface(), nullptr);
    EXPECT_EQ(seen->valueInterface()->maximumValue().toInt(), 10000);
}
