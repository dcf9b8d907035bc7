#include "toolkit/ButtonFacePaint.h"
#include "toolkit/ButtonLayout.h"
#include "toolkit/ButtonSteps.h"

#include <QColor>
#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Step = ButtonStep;

bool Has(const ButtonSteps& steps, Step step)
{
    return std::ranges::count(steps, step) > 0;
}

} // namespace

TEST(ButtonPress, APressOfAnyButtonButTheRightHolds)
{
    for (const Qt::MouseButton button : { Qt::LeftButton, Qt::MiddleButton }) {
        ButtonPress press;
        EXPECT_EQ(press.Down(button), ButtonSteps { Step::Refresh });
        EXPECT_TRUE(press.Flags().pressed);
    }
}

TEST(ButtonPress, ARightPressChangesNothingAndDrawsNothing)
{
    ButtonPress press;
    EXPECT_TRUE(press.Down(Qt::RightButton).empty());
    EXPECT_FALSE(press.Flags().pressed);
    EXPECT_TRUE(press.Up(Qt::RightButton, true).empty());
}

TEST(ButtonPress, ThePointerComesOnceUntilItHasLeft)
{
    ButtonPress press;
    EXPECT_TRUE(press.Move(false).empty());
    EXPECT_EQ(press.Move(true),
        (ButtonSteps {
            Step::StartTimer, Step::TakeHoverPicture, Step::RaiseEnter, Step::Refresh, Step::LetEventsRun }));
    EXPECT_TRUE(press.Flags().over);
    EXPECT_TRUE(press.Move(true).empty());
    EXPECT_TRUE(press.Tick(true).empty());
    EXPECT_EQ(press.Tick(false),
        (ButtonSteps { Step::StopTimer, Step::TakePicture, Step::RaiseLeave, Step::Refresh }));
    EXPECT_FALSE(press.Flags().over);
    EXPECT_FALSE(press.Move(true).empty());
}

TEST(ButtonPress, AReleaseInsideClicksThenOpensTheLink)
{
    ButtonPress press;
    press.Down(Qt::LeftButton);
    EXPECT_EQ(
        press.Up(Qt::LeftButton, true), (ButtonSteps { Step::Refresh, Step::RaiseClick, Step::GoToURL }));
    EXPECT_FALSE(press.Flags().pressed);
}

TEST(ButtonPress, AReleaseOutsideClicksNothing)
{
    ButtonPress press;
    press.Down(Qt::LeftButton);
    EXPECT_EQ(press.Up(Qt::LeftButton, false), ButtonSteps { Step::Refresh });
}

TEST(ButtonPress, HeldWhileThePointerSlidesOffItLooksRaisedAndStaysPressed)
{
    ButtonPress press;
    press.Move(true);
    press.Down(Qt::LeftButton);
    EXPECT_EQ(press.Tick(false).back(), Step::RefreshRaised);
    EXPECT_TRUE(press.Flags().pressed);
}

TEST(ButtonPress, SpaceOpensTheLinkTwiceAndClicksBetween)
{
    ButtonPress press;
    EXPECT_EQ(press.KeyDown(true), ButtonSteps { Step::Refresh });
    EXPECT_TRUE(press.Flags().pressed);
    EXPECT_TRUE(press.Flags().over);
    EXPECT_EQ(press.KeyUp(true),
        (ButtonSteps {
            Step::GoToURL, Step::Refresh, Step::Refresh, Step::RaiseClick, Step::GoToURL, Step::RaiseUp }));
    EXPECT_FALSE(press.Flags().pressed);
    EXPECT_FALSE(press.Flags().over);
}

TEST(ButtonPress, ARepeatedSpaceAndASpaceDuringAnotherKeyPressNothing)
{
    ButtonPress press;
    press.KeyDown(true);
    EXPECT_TRUE(press.KeyDown(true).empty());
    ButtonPress other;
    other.KeyDown(false);
    EXPECT_TRUE(other.KeyDown(true).empty());
    EXPECT_FALSE(other.Flags().pressed);
    other.KeyUp(false);
    EXPECT_FALSE(other.KeyDown(true).empty());
}

TEST(ButtonPress, LosingTheFocusOrBeingDisabledLetsGoOfAHeldKey)
{
    for (const bool disabled : { false, true }) {
        ButtonPress press;
        press.Focus(true);
        EXPECT_TRUE(press.Flags().focused);
        press.KeyDown(true);
        EXPECT_TRUE(Has(disabled ? press.Disable() : press.Focus(false), Step::Refresh));
        EXPECT_FALSE(press.Flags().pressed);
        EXPECT_FALSE(press.Flags().over);
        EXPECT_FALSE(press.KeyDown(true).empty());
    }
}

TEST(ButtonLayout, NoSideStaysUnderTenPixels)
{
    EXPECT_EQ(ButtonLayout::Grown({ 5, 40 }), QSize(10, 40));
    EXPECT_EQ(ButtonLayout::Grown({ 40, 0 }), QSize(40, 10));
    EXPECT_EQ(ButtonLayout::Grown({ 10, 10 }), QSize(10, 10));
}

TEST(ButtonLayout, TheFocusMarkRunsFourPixelsInside)
{
    EXPECT_EQ(ButtonLayout::FocusRect({ 60, 30 }), QRect(QPoint(4, 4), QPoint(55, 25)));
}

TEST(ButtonLayout, ThePictureStandsOnItsSideOfTheCaptionAndBothInTheMiddle)
{
    const QSize button(101, 81);
    const QSize picture(20, 20);
    const QSize caption(40, 10);
    const auto at = [&](int position) { return ButtonLayout::PlacesOf(button, picture, caption, position); };
    const auto left = at(PicturePosition::Left);
    EXPECT_EQ(left.picture, QRect(18, 30, 20, 20));
    EXPECT_EQ(left.caption, QRect(42, 35, 40, 10));
    const auto above = at(PicturePosition::Above);
    EXPECT_EQ(above.picture, QRect(40, 23, 20, 20));
    EXPECT_EQ(above.caption, QRect(30, 47, 40, 10));
    EXPECT_GT(at(PicturePosition::Right).picture.left(), at(PicturePosition::Right).caption.right());
    EXPECT_GT(at(PicturePosition::Below).picture.top(), at(PicturePosition::Below).caption.bottom());
    EXPECT_EQ(at(7).picture, above.picture);
}

TEST(ButtonLayout, WithoutAPictureTheCaptionHasTheMiddleToItself)
{
    for (int position = 0; position <= 3; ++position)
        EXPECT_EQ(ButtonLayout::PlacesOf({ 100, 30 }, { 0, 0 }, { 40, 10 }, position).caption,
            QRect(30, 10, 40, 10));
}

TEST(ButtonLayout, TheShapeIsThePicturesPixelsWithoutTheMask)
{
    QImage picture(6, 3, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    picture.setPixelColor(2, 0, Qt::blue); // cuts a row in two
    picture.setPixelColor(0, 1, Qt::blue);
    picture.setPixelColor(5, 1, Qt::transparent);
    for (int x = 0; x < 6; ++x)
        picture.setPixelColor(x, 2, Qt::blue);
    QRegion expected;
    expected += QRect(0, 0, 2, 1);
    expected += QRect(3, 0, 3, 1);
    expected += QRect(1, 1, 4, 1);
    EXPECT_EQ(ButtonLayout::Shape(picture, Qt::blue), expected);
    EXPECT_TRUE(ButtonLayout::Shape({}, Qt::blue).isEmpty());
}

TEST(ButtonEdge, IsSunkenWhilePressedRaisedUnderThePointerAndAtRestInStyleZeroOnly)
{
    const EdgeColors sunken { 0x80000014, 0x80000010 };
    const EdgeColors raised { 0x80000010, 0x80000014 };
    const ButtonFlags rest;
    const ButtonFlags over { .over = true };
    const ButtonFlags pressed { .pressed = true, .over = true };
    for (const int style : { 0, 1 }) {
        EXPECT_EQ(EdgeOf(style, pressed), sunken) << style;
        EXPECT_EQ(EdgeOf(style, over), raised) << style;
    }
    EXPECT_EQ(EdgeOf(0, rest), raised);
    EXPECT_EQ(EdgeOf(1, rest), std::nullopt);
    for (const ButtonFlags& flags : { rest, over, pressed })
        EXPECT_EQ(EdgeOf(4, flags), std::nullopt);
}
