#include "tests/player/FakeTimeline.h"

#include <gmock/gmock.h>

using player::PlayOptions;
using player::PlayPlan;
using player::PlaySpan;
using testing::ElementsAre;

namespace {

PlayOptions Options(int playCount, double rate = 1)
{
    PlayOptions options;
    options.playCount = playCount;
    options.rate = rate;
    return options;
}

/// The numbers given to a decoder that is never late.
std::vector<int> Numbers(PlayPlan& plan, std::size_t limit = 100)
{
    std::vector<int> numbers;
    double now = 0;
    while (numbers.size() < limit) {
        const auto step = plan.Next(now);
        if (!step)
            break;
        numbers.push_back(step->number);
        now = step->due;
    }
    return numbers;
}

} // namespace

TEST(PlayPlanTest, GivesEveryPictureAtItsTime)
{
    FakeTimeline video({ 0, 0.06, 0.09, 3 }, 3.04);
    PlayPlan plan(video, {}, Options(1), 1, 0);
    EXPECT_DOUBLE_EQ(plan.Next(0)->due, 0.06);
    EXPECT_DOUBLE_EQ(plan.Next(0)->due, 0.09);
    EXPECT_DOUBLE_EQ(plan.Next(0)->due, 3);
    EXPECT_FALSE(plan.Next(0));
    EXPECT_DOUBLE_EQ(plan.End(), 3.04);
}

TEST(PlayPlanTest, EndsBehindTheSelection)
{
    FakeTimeline video = FakeTimeline::Even(10, 0.04);
    PlayPlan plan(video, { 3, 5 }, Options(1), 3, 0.12);
    EXPECT_THAT(Numbers(plan), ElementsAre(3, 4, 5));
    EXPECT_DOUBLE_EQ(plan.End(), 0.24);
}

TEST(PlayPlanTest, PlaysAsManyRoundsAsAsked)
{
    FakeTimeline video = FakeTimeline::Even(10, 0.04);
    PlayPlan plan(video, { 3, 5 }, Options(3), 5, 0.2);
    EXPECT_THAT(Numbers(plan), ElementsAre(5, 3, 4, 5, 3, 4, 5));
}

TEST(PlayPlanTest, ZeroRoundsAreForEver)
{
    FakeTimeline video = FakeTimeline::Even(3, 0.04);
    PlayPlan plan(video, {}, Options(0), 0, 0);
    EXPECT_EQ(Numbers(plan, 1000).size(), 1000U);
}

TEST(PlayPlanTest, ALapFollowsTheOneBeforeWithoutAGap)
{
    FakeTimeline video = FakeTimeline::Even(3, 0.04);
    PlayPlan plan(video, {}, Options(2), 0, 0);
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(plan.Next(0)->due, i * 0.04, 1e-9);
    EXPECT_FALSE(plan.Next(0));
    EXPECT_NEAR(plan.End(), 0.24, 1e-9);
}

TEST(PlayPlanTest, ASinglePictureInALoopDoesNotSpin)
{
    FakeTimeline video({ 0 }, 0);
    PlayPlan plan(video, {}, Options(0), 0, 0);
    const double first = plan.Next(0)->due;
    EXPECT_GE(plan.Next(0)->due - first, 0.04);
}

TEST(PlayPlanTest, StartingBehindTheLastPictureIsTheEnd)
{
    FakeTimeline video = FakeTimeline::Even(3, 0.04);
    PlayPlan once(video, {}, Options(1), 3, 0.08);
    EXPECT_FALSE(once.Next(0.08));
    EXPECT_DOUBLE_EQ(once.End(), 0.08);
    PlayPlan forEver(video, {}, Options(0), 3, 0.08);
    const auto step = forEver.Next(0.08);
    ASSERT_TRUE(step);
    EXPECT_EQ(step->number, 0);
    EXPECT_NEAR(step->due, 0.12, 1e-9);
}

TEST(PlayPlanTest, ALittleLatenessIsCaughtUpPictureByPicture)
{
    FakeTimeline video = FakeTimeline::Even(100, 0.04);
    PlayPlan plan(video, {}, Options(1), 1, 0);
    EXPECT_EQ(plan.Next(0.15)->number, 1); // due at 0.04
}

TEST(PlayPlanTest, AfterThreeLatePicturesItGoesToWhereTheClockIs)
{
    FakeTimeline video = FakeTimeline::Even(100, 0.04);
    PlayPlan plan(video, {}, Options(1), 1, 0);
    EXPECT_EQ(plan.Next(1.01)->number, 25);
    EXPECT_EQ(plan.Next(1.01)->number, 26);
}

TEST(PlayPlanTest, HoweverLateTheLastPictureIsGiven)
{
    FakeTimeline video = FakeTimeline::Even(100, 0.04);
    PlayPlan plan(video, {}, Options(1), 1, 0);
    EXPECT_EQ(plan.Next(500)->number, 99);
    EXPECT_FALSE(plan.Next(500));
}

TEST(PlayPlanTest, PicturesThatNoScreenCouldShowAreLeftOut)
{
    FakeTimeline video = FakeTimeline::Even(30, 0.04);
    PlayPlan plan(video, {}, Options(1, 5), 0, 0);
    const std::vector<int> numbers = Numbers(plan);
    EXPECT_LT(numbers.size(), 20U); // 125 a second were due
    EXPECT_EQ(numbers.front(), 0);
    EXPECT_EQ(numbers.back(), 29);
}

TEST(PlayPlanTest, SixtyPicturesASecondAreAllShown)
{
    FakeTimeline video = FakeTimeline::Even(30, 1.0 / 60);
    PlayPlan plan(video, {}, Options(1), 0, 0);
    EXPECT_EQ(Numbers(plan).size(), 30U);
}

TEST(PlayPlanTest, TimesThatRunBackwardsDoNotTurnTheClock)
{
    FakeTimeline video({ 0, 5, 1, 6 }, 7);
    PlayPlan plan(video, {}, Options(1), 0, 0);
    double before = 0;
    while (const auto step = plan.Next(before)) {
        EXPECT_GE(step->due, before);
        before = step->due;
    }
    EXPECT_EQ(before, 6);
}

TEST(PlayPlanTest, TellsTheSoundWhereItTurnsAndWhereItEnds)
{
    FakeTimeline video = FakeTimeline::Even(10, 0.1);
    PlayPlan plan(video, { .first = 2, .last = 5 }, Options(2), 2, 0.2);
    plan.Next(0);
    ASSERT_TRUE(plan.NextTurn());
    EXPECT_NEAR(plan.NextTurn()->due, 0.6, 1e-9);
    ASSERT_TRUE(plan.NextTurn()->media);
    EXPECT_NEAR(*plan.NextTurn()->media, 0.2, 1e-9);
    for (int picture = 0; picture < 4; ++picture)
        plan.Next(0);
    EXPECT_NEAR(plan.NextTurn()->due, 1, 1e-9);
    EXPECT_FALSE(plan.NextTurn()->media);
}

TEST(PlayPlanTest, WithAnUnknownEndTheSoundIsToldOfALapWhenItBegins)
{
    class Growing : public FakeTimeline {
    public:
        using FakeTimeline::FakeTimeline;
        std::optional<int> Last() override { return std::nullopt; }
    };
    Growing video({ 0, 0.1, 0.2 }, 0.3);
    PlayPlan plan(video, {}, Options(0), 0, 0);
    plan.Next(0);
    EXPECT_FALSE(plan.NextTurn());
    for (int picture = 0; picture < 3; ++picture)
        plan.Next(0);
    ASSERT_TRUE(plan.NextTurn());
    EXPECT_NEAR(plan.NextTurn()->due, 0.3, 1e-9);
    EXPECT_EQ(plan.NextTurn()->media, 0);
}
