#include "toolkit/FadeSteps.h"

#include <gtest/gtest.h>

TEST(FadeSteps, AFadeStartsOpaque)
{
    EXPECT_EQ(FadeSteps(500).Alpha(), 255);
}

TEST(FadeSteps, TicksInTimeTakeEvenSteps)
{
    FadeSteps fade(500);
    ASSERT_TRUE(fade.Tick(20)); // 24 ticks are left: 255 / 24 = 10.6
    EXPECT_EQ(fade.Alpha(), 244);
    ASSERT_TRUE(fade.Tick(40)); // 244 / 23 = 10.6
    EXPECT_EQ(fade.Alpha(), 233);
    int ticks = 2;
    for (qint64 elapsed = 60; fade.Tick(elapsed); elapsed += 20)
        ++ticks;
    EXPECT_EQ(ticks, 23); // with one tick left the step is the whole rest
}

TEST(FadeSteps, ALateTickTakesABiggerStep)
{
    FadeSteps fade(500);
    ASSERT_TRUE(fade.Tick(400)); // 5 ticks are left
    EXPECT_EQ(fade.Alpha(), 204);
}

TEST(FadeSteps, AHalfStepGoesToTheEvenNeighbour)
{
    FadeSteps fade(2060);
    ASSERT_TRUE(fade.Tick(20)); // 255 / 102 = 2.5
    EXPECT_EQ(fade.Alpha(), 253);
}

TEST(FadeSteps, AStepIsNeverLessThanOne)
{
    FadeSteps fade(1'000'000);
    ASSERT_TRUE(fade.Tick(0));
    EXPECT_EQ(fade.Alpha(), 254);
}

TEST(FadeSteps, TheLastOpacityIsNotForcedToNothing)
{
    FadeSteps fade(500);
    ASSERT_TRUE(fade.Tick(460));
    EXPECT_EQ(fade.Alpha(), 127); // 255 / 2 = 127.5
    EXPECT_FALSE(fade.Tick(500));
    EXPECT_EQ(fade.Alpha(), 127);
}

TEST(FadeSteps, AStepAsLargeAsWhatIsLeftEndsIt)
{
    EXPECT_FALSE(FadeSteps(500).Tick(480));
    EXPECT_FALSE(FadeSteps(500).Tick(499));
}

TEST(FadeSteps, AFadeOfNoTimeIsOverAtOnce)
{
    EXPECT_FALSE(FadeSteps(0).Tick(0));
    EXPECT_FALSE(FadeSteps(-5).Tick(0));
}
