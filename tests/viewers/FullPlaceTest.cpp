#include "viewers/FullPlace.h"

#include <gtest/gtest.h>

namespace {

constexpr QSize Screen { 1920, 1080 };

}

TEST(FullPlaceTest, APictureSmallerThanTheScreenStandsInItsMiddleAtNaturalSize)
{
    EXPECT_EQ(FullPlace({ 640, 480 }, Screen), QRect(640, 300, 640, 480));
    EXPECT_EQ(FullPlace({ 641, 481 }, Screen), QRect(639, 299, 641, 481));
    EXPECT_EQ(FullPlace({ 1, 1 }, Screen), QRect(959, 539, 1, 1));
}

TEST(FullPlaceTest, APictureAsLargeAsTheScreenFillsIt)
{
    EXPECT_EQ(FullPlace(Screen, Screen), QRect(QPoint(0, 0), Screen));
}

TEST(FullPlaceTest, AWiderOrTallerPictureIsShownWholeInItsShape)
{
    EXPECT_EQ(FullPlace({ 3840, 2160 }, Screen), QRect(QPoint(0, 0), Screen));
    EXPECT_EQ(FullPlace({ 3840, 1080 }, Screen), QRect(0, 270, 1920, 540));
    EXPECT_EQ(FullPlace({ 1000, 2160 }, Screen), QRect(710, 0, 500, 1080));
    EXPECT_EQ(FullPlace({ 1921, 10 }, Screen).width(), 1920) << "one pixel too wide";
}

TEST(FullPlaceTest, NothingIsSoThinThatItVanishes)
{
    for (const QSize thin : { QSize(16384, 1), QSize(1, 16384) }) {
        const QRect place = FullPlace(thin, Screen);
        EXPECT_FALSE(place.isEmpty());
        EXPECT_TRUE(QRect(QPoint(), Screen).contains(place));
    }
}
