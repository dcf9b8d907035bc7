#include "media/player/MediaClock.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using player::MediaClock;
using player::WallClock;

class MediaClockTest : public testing::Test {
protected:
    MediaClock::Wall::time_point wall_ { 1h };
    WallClock clock_ { [this] { return wall_; } };
};

TEST_F(MediaClockTest, StandsStillUntilItIsStarted)
{
    wall_ += 5s;
    EXPECT_FALSE(clock_.IsRunning());
    EXPECT_EQ(clock_.Now(), 0);
}

TEST_F(MediaClockTest, RunsOnFromItsAnchorAtTheRate)
{
    clock_.Start(10, 0.5);
    wall_ += 4s;
    EXPECT_DOUBLE_EQ(clock_.Now(), 12);
}

TEST_F(MediaClockTest, TenSecondsAtRateFivePassInTwo)
{
    clock_.Start(0, 5);
    wall_ += 2s;
    EXPECT_DOUBLE_EQ(clock_.Now(), 10);
}

TEST_F(MediaClockTest, ANewRateCountsFromItsOwnAnchorOnly)
{
    clock_.Start(0, 5);
    wall_ += 1s;
    clock_.Start(clock_.Now(), 1);
    wall_ += 1s;
    EXPECT_DOUBLE_EQ(clock_.Now(), 6);
}

TEST_F(MediaClockTest, TellsWhenAMediaTimeIsReached)
{
    clock_.Start(10, 2);
    EXPECT_EQ(clock_.When(14), wall_ + 2s);
    EXPECT_EQ(clock_.When(8), wall_ - 1s);
}

TEST_F(MediaClockTest, AWildTimeStampStaysInsideTheClocksRange)
{
    clock_.Start(0, 1);
    EXPECT_GT(clock_.When(1e18), wall_);
    EXPECT_LT(clock_.When(-1e18), wall_);
}

class GuidedClockTest : public testing::Test {
protected:
    void SetUp() override
    {
        clock_.Start(10, 1);
        clock_.Follow(10);
    }

    MediaClock::Wall::time_point wall_ { 1h };
    player::GuidedClock clock_ { [this] { return wall_; } };
};

TEST_F(GuidedClockTest, ASmallErrorIsTakenUpByATenth)
{
    clock_.Follow(10.05);
    EXPECT_NEAR(clock_.Now(), 10.005, 1e-9);
    clock_.Follow(10.005 - 0.08);
    EXPECT_NEAR(clock_.Now(), 9.997, 1e-9);
}

TEST_F(GuidedClockTest, ALargeErrorIsTakenUpAtOnce)
{
    clock_.Follow(10.2);
    EXPECT_NEAR(clock_.Now(), 10.2, 1e-9);
    clock_.Follow(60);
    EXPECT_NEAR(clock_.Now(), 60, 1e-9);
}

TEST_F(GuidedClockTest, TheFirstSoundSinceTheStartIsBelievedAtOnce)
{
    clock_.Start(20, 1);
    clock_.Follow(19.96);
    EXPECT_NEAR(clock_.Now(), 19.96, 1e-9);
}

TEST_F(GuidedClockTest, RunsOnByTheWallWhenNothingIsHeardAnyMore)
{
    clock_.Follow(10.2);
    wall_ += 3s;
    EXPECT_NEAR(clock_.Now(), 13.2, 1e-9);
}

TEST_F(GuidedClockTest, ADeviceThatGoesTooSlowIsFollowedWithoutALag)
{
    double heard = 10;
    for (int look = 0; look < 10000; ++look) {
        wall_ += 10ms;
        heard += 0.00999;
        clock_.Follow(heard);
    }
    EXPECT_NEAR(clock_.Now(), heard, 0.001);
}
