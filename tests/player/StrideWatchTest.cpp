#include "media/player/StrideWatch.h"

#include <gtest/gtest.h>
#include <initializer_list>

using player::StrideWatch;

namespace {

int StrideAfter(std::initializer_list<int> numbers)
{
    StrideWatch watch;
    for (const int number : numbers) {
        watch.Sought(number);
        watch.StillTaken();
    }
    return watch.Stride();
}

} // namespace

TEST(StrideWatchTest, TwoEqualStridesWithStillsAreAWalk)
{
    EXPECT_EQ(StrideAfter({ 0, 10 }), 0);
    EXPECT_EQ(StrideAfter({ 0, 10, 20 }), 10);
    EXPECT_EQ(StrideAfter({ 5, 6, 7, 8 }), 1);
}

TEST(StrideWatchTest, AnotherStrideStartsTheCountAnew)
{
    EXPECT_EQ(StrideAfter({ 0, 10, 20, 25 }), 0);
    EXPECT_EQ(StrideAfter({ 0, 10, 20, 25, 30 }), 5);
}

TEST(StrideWatchTest, TheWayBackIsNoWalk)
{
    EXPECT_EQ(StrideAfter({ 30, 20, 10, 0 }), 0);
}

TEST(StrideWatchTest, StayingIsNoWalk)
{
    EXPECT_EQ(StrideAfter({ 7, 7, 7, 7 }), 0);
}

TEST(StrideWatchTest, WithoutStillsNobodyCapturesAndNothingIsMadeAhead)
{
    StrideWatch watch;
    for (const int number : { 0, 10, 20, 30 })
        watch.Sought(number);
    EXPECT_EQ(watch.Stride(), 0);
}

TEST(StrideWatchTest, AStillLeftOutEndsTheWalk)
{
    StrideWatch watch;
    for (const int number : { 0, 10, 20 }) {
        watch.Sought(number);
        watch.StillTaken();
    }
    watch.Sought(30);
    watch.Sought(40);
    watch.StillTaken();
    EXPECT_EQ(watch.Stride(), 0);
}

TEST(StrideWatchTest, TheStrideIsToldOnlyOnceTheFramesStillIsTaken)
{
    StrideWatch watch;
    for (const int number : { 0, 10, 20 }) {
        watch.Sought(number);
        watch.StillTaken();
    }
    watch.Sought(30);
    EXPECT_EQ(watch.Stride(), 0);
    watch.StillTaken();
    EXPECT_EQ(watch.Stride(), 10);
}

TEST(StrideWatchTest, ForgettingEndsTheWalk)
{
    StrideWatch watch;
    for (const int number : { 0, 10, 20 }) {
        watch.Sought(number);
        watch.StillTaken();
    }
    watch.Forget();
    EXPECT_EQ(watch.Stride(), 0);
    watch.Sought(30);
    watch.StillTaken();
    EXPECT_EQ(watch.Stride(), 0);
}
