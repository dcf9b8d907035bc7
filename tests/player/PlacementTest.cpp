#include "media/player/Placement.h"
#include "media/player/PaintShot.h"

#include <gtest/gtest.h>

using player::OwnSize;
using player::ShownRect;
using player::ShownSize;
using player::View;

namespace {

View Looking(ltmmPlay::DisplayMode mode, QSize area, qreal ratio = 1)
{
    return { mode, area, ratio, false, true };
}

} // namespace

TEST(PlacementTest, FittingKeepsTheAspect)
{
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::FitToWindow, { 800, 800 }), { 320, 240 }), QSize(800, 600));
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::FitToWindow, { 100, 300 }), { 320, 240 }), QSize(100, 75));
}

TEST(PlacementTest, StretchingFillsTheWidget)
{
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::StretchToWindow, { 123, 457 }), { 320, 240 }), QSize(123, 457));
}

TEST(PlacementTest, FixedModesDoNotLookAtTheWidget)
{
    const QSize area(50, 50);
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::Normal, area), { 320, 240 }), QSize(320, 240));
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::ThreeQuarters, area), { 320, 240 }), QSize(240, 180));
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::Half, area), { 320, 240 }), QSize(160, 120));
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::Double, area), { 320, 240 }), QSize(640, 480));
}

TEST(PlacementTest, OwnSizesAreThoseOfTheModes)
{
    EXPECT_EQ(OwnSize(ltmmPlay::Normal, { 320, 240 }), QSize(320, 240));
    EXPECT_EQ(OwnSize(ltmmPlay::Half, { 321, 241 }), QSize(161, 121));
    EXPECT_EQ(OwnSize(ltmmPlay::Normal, {}), QSize());
}

TEST(PlacementTest, SizesAreInDevicePixels)
{
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::FitToWindow, { 400, 300 }, 2), { 320, 240 }), QSize(800, 600));
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::Normal, { 400, 300 }, 2), { 320, 240 }), QSize(640, 480));
    EXPECT_EQ(ShownRect(Looking(ltmmPlay::Normal, { 400, 300 }, 2), { 640, 480 }), QRectF(40, 30, 320, 240));
}

TEST(PlacementTest, FullScreenFitsEveryModeButTheStretchedOne)
{
    View view = Looking(ltmmPlay::Half, { 1920, 1080 });
    view.isFullScreen = true;
    EXPECT_EQ(ShownSize(view, { 320, 240 }), QSize(1440, 1080));
    view.mode = ltmmPlay::StretchToWindow;
    EXPECT_EQ(ShownSize(view, { 320, 240 }), QSize(1920, 1080));
}

TEST(PlacementTest, ThePictureStandsInTheMiddleAlsoWhenItIsTheLargerOne)
{
    EXPECT_EQ(ShownRect(Looking(ltmmPlay::Normal, { 400, 300 }), { 320, 240 }), QRectF(40, 30, 320, 240));
    EXPECT_EQ(ShownRect(Looking(ltmmPlay::Normal, { 300, 200 }), { 320, 240 }), QRectF(-10, -20, 320, 240));
}

TEST(PlacementTest, AThinPictureKeepsAPixel)
{
    EXPECT_EQ(ShownSize(Looking(ltmmPlay::FitToWindow, { 300, 300 }), { 16384, 1 }), QSize(300, 1));
}

TEST(PlacementTest, NothingIsShownOfNothingOrInNothing)
{
    EXPECT_TRUE(ShownSize(Looking(ltmmPlay::FitToWindow, { 300, 0 }), { 320, 240 }).isEmpty());
    EXPECT_TRUE(ShownSize(Looking(ltmmPlay::FitToWindow, { 300, 300 }), {}).isEmpty());
}

TEST(PlacementTest, APictureIsNotMadeAgainForAWidgetWithoutRoom)
{
    player::Shot shot;
    shot.number = 0;
    EXPECT_FALSE(IsOutdated(shot, player::View {}));
}

TEST(PlacementTest, AHugePictureDoubledStaysInsideTheMemory)
{
    const QSize size = ShownSize(Looking(ltmmPlay::Double, { 800, 600 }), { 16384, 16384 });
    EXPECT_LE(double(size.width()) * size.height(), 65e6);
    EXPECT_EQ(size.width(), size.height());
}
