#include "media/player/TrackingScale.h"

#include <gtest/gtest.h>
#include <limits>

namespace TrackingScale = player::TrackingScale;

TEST(TrackingScaleTest, RunsFromZeroToTenThousand)
{
    EXPECT_EQ(TrackingScale::FromSeconds(0, 4), 0);
    EXPECT_EQ(TrackingScale::FromSeconds(1, 4), 2500);
    EXPECT_EQ(TrackingScale::FromSeconds(4, 4), 10000);
}

TEST(TrackingScaleTest, TimesOutsideTheVideoStayOnTheScale)
{
    EXPECT_EQ(TrackingScale::FromSeconds(-1, 4), 0);
    EXPECT_EQ(TrackingScale::FromSeconds(9, 4), 10000);
    EXPECT_EQ(TrackingScale::FromSeconds(std::numeric_limits<double>::infinity(), 4), 10000);
}

TEST(TrackingScaleTest, AnUnknownDurationIsZeroEverywhere)
{
    EXPECT_EQ(TrackingScale::FromSeconds(3, 0), 0);
    EXPECT_EQ(TrackingScale::FromSeconds(3, std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(TrackingScale::ToSeconds(5000, 0), 0);
}

TEST(TrackingScaleTest, ThereAndBackIsTheSamePlace)
{
    for (int position = 0; position <= TrackingScale::Max; position += 77)
        EXPECT_EQ(TrackingScale::FromSeconds(TrackingScale::ToSeconds(position, 123.4), 123.4), position);
}

TEST(TrackingScaleTest, PlayableRatesReachFromATenthToFive)
{
    EXPECT_TRUE(player::IsPlayableRate(0.1));
    EXPECT_TRUE(player::IsPlayableRate(5.0));
    EXPECT_FALSE(player::IsPlayableRate(0));
    EXPECT_FALSE(player::IsPlayableRate(-1));
    EXPECT_FALSE(player::IsPlayableRate(0.05));
    EXPECT_FALSE(player::IsPlayableRate(5.1));
    EXPECT_FALSE(player::IsPlayableRate(std::numeric_limits<double>::quiet_NaN()));
}

TEST(TrackingScaleTest, NineStepsOfATenthFromOneAreAllPlayable)
{
    double rate = 1;
    for (int step = 0; step < 9; ++step) {
        EXPECT_TRUE(player::IsPlayableRate(rate -= 0.1)) << rate;
    }
    EXPECT_FALSE(player::IsPlayableRate(rate - 0.1));
}
