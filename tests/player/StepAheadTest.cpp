#include "media/player/StepAhead.h"

#include <gtest/gtest.h>
#include <set>

using player::StepAhead;

class StepAheadTest : public testing::Test {
protected:
    void Walk(std::initializer_list<int> numbers)
    {
        for (const int number : numbers)
            steps_.Stepped(number);
    }
    std::optional<int> Wanted() const
    {
        return steps_.Wanted(100, reserve_, [this](int number) { return cached_.contains(number); });
    }

    StepAhead steps_;
    int reserve_ = 8;
    std::set<int> cached_;
};

TEST_F(StepAheadTest, NothingIsWantedBeforeADirectionIsKnown)
{
    EXPECT_FALSE(Wanted());
    Walk({ 50 });
    EXPECT_FALSE(Wanted());
}

TEST_F(StepAheadTest, AStepForwardWantsTheNextPictures)
{
    Walk({ 50, 51 });
    EXPECT_EQ(Wanted(), 52);
    cached_ = { 52 };
    EXPECT_EQ(Wanted(), 53);
    cached_ = { 52, 53 };
    EXPECT_FALSE(Wanted());
}

TEST_F(StepAheadTest, OneStepBackIsACorrectionAndTwoAreAWalk)
{
    Walk({ 50, 49 });
    EXPECT_FALSE(Wanted());
    Walk({ 48 });
    EXPECT_EQ(Wanted(), 47);
}

TEST_F(StepAheadTest, TheSpanBeforeIsWantedInTimeAndNotForEver)
{
    Walk({ 50, 49, 48 });
    cached_ = { 47, 46, 45, 44 };
    EXPECT_EQ(Wanted(), 43);
    cached_ = { 47, 46, 45, 44, 43, 42, 41, 40 };
    EXPECT_FALSE(Wanted());
}

TEST_F(StepAheadTest, NoMoreIsWantedThanThereIsRoomFor)
{
    reserve_ = 3;
    Walk({ 50, 49, 48 });
    cached_ = { 47, 46 };
    EXPECT_EQ(Wanted(), 45);
    cached_ = { 47, 46, 45 };
    EXPECT_FALSE(Wanted());
    reserve_ = 0;
    cached_ = {};
    EXPECT_FALSE(Wanted());
    Walk({ 49, 50 });
    EXPECT_FALSE(Wanted());
}

TEST_F(StepAheadTest, NothingIsWantedBeyondTheEnds)
{
    Walk({ 2, 1, 0 });
    EXPECT_FALSE(Wanted());
    Walk({ 97, 98, 99 });
    EXPECT_FALSE(Wanted());
}

TEST_F(StepAheadTest, AJumpEndsTheWalk)
{
    Walk({ 50, 51, 52 });
    steps_.Jumped();
    EXPECT_FALSE(Wanted());
}
