#include "toolkit/ButtonFacePaint.h"
#include "toolkit/ButtonLayout.h"
#include "toolkit/ButtonSteps.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Step = ButtonStep;

qsizetype Count(const ButtonSteps& steps, Step step)
{
    return std::ranges::count(steps, step);
}

/// first is among the steps, and later comes after it.
bool Follows(const ButtonSteps& steps, Step first, Step later)
{
    return std::find(std::ranges::find(steps, first), steps.end(), later) != steps.end();
}

} // namespace

TEST(ButtonPress, APressOfAnyButtonButTheRightHoldsAndIsShown)
{
    for (const Qt::MouseButton button : { Qt::LeftButton, Qt::MiddleButton }) {
        ButtonPress press;
        EXPECT_TRUE(Count(press.Down(button), Step::Refresh));
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
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(Count(press.Move(true), Step::RaiseEnter));
        EXPECT_TRUE(press.Flags().over);
        EXPECT_TRUE(press.Move(true).empty());
        EXPECT_TRUE(press.Tick(true).empty());
        EXPECT_TRUE(Count(press.Tick(false), Step::RaiseLeave));
        EXPECT_FALSE(press.Flags().over);
    }
}

TEST(ButtonPress, ThePointerIsToldBeforeItsLookIsShownAndEventsRunLast)
{
    ButtonPress press;
    const ButtonSteps come = press.Move(true);
    EXPECT_TRUE(Follows(come, Step::TakeHoverPicture, Step::RaiseEnter));
    EXPECT_TRUE(Follows(come, Step::RaiseEnter, Step::Refresh));
    EXPECT_EQ(come.back(), Step::LetEventsRun);
    const ButtonSteps leave = press.Tick(false);
    EXPECT_EQ(leave.front(), Step::StopTimer);
    EXPECT_TRUE(Follows(leave, Step::TakePicture, Step::RaiseLeave));
    EXPECT_TRUE(Follows(leave, Step::RaiseLeave, Step::Refresh));
}

TEST(ButtonPress, AReleaseInsideIsShownThenClicksThenOpensTheLink)
{
    ButtonPress press;
    press.Down(Qt::LeftButton);
    const ButtonSteps steps = press.Up(Qt::LeftButton, true);
    EXPECT_TRUE(Follows(steps, Step::Refresh, Step::RaiseClick));
    EXPECT_TRUE(Follows(steps, Step::RaiseClick, Step::GoToURL));
    EXPECT_FALSE(press.Flags().pressed);
}

TEST(ButtonPress, AReleaseOutsideIsShownAndClicksNothing)
{
    ButtonPress press;
    press.Down(Qt::LeftButton);
    const ButtonSteps steps = press.Up(Qt::LeftButton, false);
    EXPECT_TRUE(Count(steps, Step::Refresh));
    EXPECT_FALSE(Count(steps, Step::RaiseClick) || Count(steps, Step::GoToURL));
    EXPECT_FALSE(press.Flags().pressed);
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
    EXPECT_TRUE(Count(press.KeyDown(true), Step::Refresh));
    EXPECT_TRUE(press.Flags().pressed);
    EXPECT_TRUE(press.Flags().over);
    const ButtonSteps steps = press.KeyUp(true);
    EXPECT_EQ(Count(steps, Step::GoToURL), 2);
    EXPECT_EQ(Count(steps, Step::RaiseClick), 1);
    EXPECT_TRUE(Follows(steps, Step::GoToURL, Step::RaiseClick));
    EXPECT_TRUE(Follows(steps, Step::RaiseClick, Step::GoToURL));
    EXPECT_EQ(steps.back(), Step::RaiseUp);
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
    EXPECT_TRUE(other.KeyDown(true).empty()) << "the release is not through yet";
    other.ForgetKey();
    EXPECT_FALSE(other.KeyDown(true).empty());
}

TEST(ButtonPress, LosingTheFocusOrBeingDisabledLetsGoOfAHeldKey)
{
    for (const bool disabled : { false, true }) {
        ButtonPress press;
        press.Focus(true);
        EXPECT_TRUE(press.Flags().focused);
        press.KeyDown(true);
        EXPECT_TRUE(Count(disabled ? press.Disable() : press.Focus(false), Step::Refresh));
        EXPECT_FALSE(press.Flags().pressed);
        EXPECT_FALSE(press.Flags().over);
        EXPECT_FALSE(press.KeyDown(true).empty());
    }
}

TEST(ButtonPress, HeldByTheMouseItStaysPressedWhenTheFocusGoesAndIsLetGoWhenDisabled)
{
    for (const bool hasOtherKey : { false, true }) {
        ButtonPress press;
        press.Focus(true);
        press.Move(true);
        press.Down(Qt::LeftButton);
        if (hasOtherKey)
            press.KeyDown(false);
        press.Focus(false);
        EXPECT_TRUE(press.Flags().pressed && press.Flags().over);
        EXPECT_TRUE(Count(press.Up(Qt::LeftButton, true), Step::RaiseClick));
    }
    ButtonPress press;
    press.Down(Qt::LeftButton);
    press.Disable();
    EXPECT_FALSE(press.Flags().pressed);
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
