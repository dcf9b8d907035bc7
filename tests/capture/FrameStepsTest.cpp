#include "capture/FrameSteps.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr bool FirstVideo = true;
constexpr bool LaterVideo = false;

/// The frames taken by a player that goes where it is asked to go, up to its last frame.
std::vector<int> Taken(int frameCount, int step, bool isFirstOfRun)
{
    FrameSteps steps(frameCount, step, isFirstOfRun);
    std::vector<int> taken;
    while (const std::optional<int> frame = steps.Next(taken.empty() ? 0 : taken.back()))
        taken.push_back(*frame);
    return taken;
}

using Frames = std::vector<int>;

} // namespace

TEST(FrameSteps, TheFirstVideoOfARunBeginsWithItsFrameZero)
{
    EXPECT_EQ(Taken(31, 10, FirstVideo), (Frames { 0, 10, 20, 30 }));
}

TEST(FrameSteps, LaterVideosBeginOneStepIn)
{
    EXPECT_EQ(Taken(31, 10, LaterVideo), (Frames { 10, 20, 30 }));
}

TEST(FrameSteps, AStepThatReachesTheEndTakesNothingMore)
{
    EXPECT_EQ(Taken(30, 10, FirstVideo), (Frames { 0, 10, 20 }));
    EXPECT_EQ(Taken(10, 10, FirstVideo), (Frames { 0 }));
}

TEST(FrameSteps, AVideoOfFewerFramesThanTheStepGivesAFirstFileAndOneLast)
{
    EXPECT_EQ(Taken(5, 10, FirstVideo), (Frames { 0, 4 }));
    EXPECT_EQ(Taken(2, 10, FirstVideo), (Frames { 0, 1 }));
    EXPECT_EQ(Taken(5, 10, LaterVideo), (Frames { 4 }));
    EXPECT_EQ(Taken(2, 10000, LaterVideo), (Frames { 1 }));
}

TEST(FrameSteps, AStepOfOneEndsWithItsRoundsOneFrameBeforeTheLast)
{
    EXPECT_EQ(Taken(5, 1, FirstVideo), (Frames { 0, 1, 2, 3 }));
    EXPECT_EQ(Taken(5, 1, LaterVideo), (Frames { 1, 2, 3, 4 }));
    EXPECT_EQ(Taken(2, 1, FirstVideo), (Frames { 0 }));
}

TEST(FrameSteps, ASingleFrameGivesNothingAndSaysSo)
{
    EXPECT_EQ(Taken(1, 10, FirstVideo), Frames());
    EXPECT_TRUE(FrameSteps(1, 10, FirstVideo).IsSingleFrame());
    EXPECT_EQ(Taken(0, 10, FirstVideo), Frames());
    EXPECT_FALSE(FrameSteps(0, 10, FirstVideo).IsSingleFrame());
}

TEST(FrameSteps, AStepBelowOneCountsAsOne)
{
    EXPECT_EQ(Taken(4, 0, FirstVideo), (Frames { 0, 1, 2 }));
    EXPECT_EQ(Taken(4, -10, FirstVideo), (Frames { 0, 1, 2 }));
}

TEST(FrameSteps, APlayerBehindItsLastFrameIsAskedOnceMore)
{
    FrameSteps steps(5, 2, FirstVideo);
    EXPECT_EQ(steps.Next(0), 0);
    EXPECT_EQ(steps.Next(5), 5);
    EXPECT_EQ(steps.Next(5), std::nullopt);
}

TEST(FrameSteps, TheLargestStepDoesNotOverflow)
{
    EXPECT_EQ(Taken(2'000'000'000, 2'000'000'000 - 1, FirstVideo), (Frames { 0, 1'999'999'999 }));
}
