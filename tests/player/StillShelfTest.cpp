#include "media/player/StillShelf.h"

#include <gmock/gmock.h>
#include <thread>

using namespace std::chrono_literals;
using player::Shot;
using player::StillShelf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr auto Forever = 1h; // no test may take so long

Shot ShotOf(int number, QSize size = QSize(8, 8))
{
    Shot shot;
    shot.number = number;
    shot.still = QImage(size, QImage::Format_BGR888);
    return shot;
}

} // namespace

TEST(StillShelfTest, WithoutAPlanThereIsNothingToMakeOrToTake)
{
    StillShelf shelf;
    EXPECT_THAT(shelf.Wanted(), IsEmpty());
    EXPECT_FALSE(shelf.Put(ShotOf(0)));
    EXPECT_FALSE(shelf.Take(0, Forever));
}

TEST(StillShelfTest, ThePlanRunsInStridesToTheLastFrame)
{
    StillShelf shelf;
    shelf.Plan(30, 10, 65);
    EXPECT_THAT(shelf.Wanted(), ElementsAre(30, 40, 50, 60));
}

TEST(StillShelfTest, ExpectsWhatIsPlannedAndWhatLiesThereUntilItIsTaken)
{
    StillShelf shelf;
    shelf.Plan(30, 10, 65);
    EXPECT_TRUE(shelf.Expects(30));
    EXPECT_TRUE(shelf.Expects(60));
    EXPECT_FALSE(shelf.Expects(70));
    EXPECT_TRUE(shelf.Put(ShotOf(30)));
    EXPECT_TRUE(shelf.Expects(30));
    EXPECT_TRUE(shelf.Take(30, Forever));
    EXPECT_FALSE(shelf.Expects(30));
}

TEST(StillShelfTest, WhatIsNotPlannedIsNotWaitedFor)
{
    StillShelf shelf;
    shelf.Plan(30, 10, 65);
    EXPECT_FALSE(shelf.Take(35, Forever));
    EXPECT_FALSE(shelf.Take(20, Forever));
    EXPECT_FALSE(shelf.Take(70, Forever));
}

TEST(StillShelfTest, AWalkIsServedFromAnotherThread)
{
    StillShelf shelf;
    shelf.Plan(0, 7, 700);
    std::thread engine([&] {
        for (const int number : shelf.Wanted())
            ASSERT_TRUE(shelf.Put(ShotOf(number)));
    });
    for (int number = 0; number <= 700; number += 7) {
        const auto shot = shelf.Take(number, Forever);
        ASSERT_TRUE(shot);
        EXPECT_EQ(shot->number, number);
    }
    engine.join();
    EXPECT_FALSE(shelf.Take(707, Forever));
}

TEST(StillShelfTest, ACallerThatLeapsAheadInThePlanIsServedToo)
{
    StillShelf shelf;
    shelf.Plan(0, 1, 100);
    std::thread engine([&] {
        for (const int number : shelf.Wanted())
            if (!shelf.Put(ShotOf(number)))
                return;
    });
    EXPECT_TRUE(shelf.Take(90, Forever));
    EXPECT_FALSE(shelf.Take(3, Forever));
    shelf.Drop();
    engine.join();
}

TEST(StillShelfTest, DroppingThePlanLetsBothSidesGo)
{
    StillShelf shelf;
    shelf.Plan(0, 1, 100);
    std::thread engine([&] {
        for (const int number : shelf.Wanted())
            if (!shelf.Put(ShotOf(number)))
                return;
        ADD_FAILURE() << "the shelf has no end";
    });
    EXPECT_TRUE(shelf.Take(0, Forever));
    shelf.Drop();
    engine.join();
    EXPECT_FALSE(shelf.Take(50, Forever));
}

TEST(StillShelfTest, WhatLayThereWhenThePlanIsHeldIsMadeAgainOnceItIsReleased)
{
    StillShelf shelf;
    shelf.Plan(0, 10, 30);
    ASSERT_TRUE(shelf.Put(ShotOf(0)));
    ASSERT_TRUE(shelf.Put(ShotOf(10)));
    ASSERT_TRUE(shelf.Take(0, Forever));
    EXPECT_TRUE(shelf.Hold());
    EXPECT_FALSE(shelf.Put(ShotOf(20))) << "who fills it is let go";
    EXPECT_TRUE(shelf.Wanted().empty());
    EXPECT_TRUE(shelf.Expects(10)) << "the caller goes on expecting";
    EXPECT_FALSE(shelf.IsSettled(10));
    shelf.Release();
    EXPECT_EQ(shelf.Wanted(), std::vector<int>({ 10, 20, 30 }));
    ASSERT_TRUE(shelf.Put(ShotOf(10)));
    EXPECT_TRUE(shelf.Take(10, Forever));
}

TEST(StillShelfTest, WithoutAPlanThereIsNothingToHold)
{
    StillShelf shelf;
    EXPECT_FALSE(shelf.Hold());
    shelf.Plan(0, 10, 20);
    EXPECT_TRUE(shelf.Put(ShotOf(0))) << "a new plan is not held";
}

TEST(StillShelfTest, LargePicturesAreHeldInSmallNumbers)
{
    StillShelf shelf;
    shelf.Plan(0, 1, 100);
    EXPECT_TRUE(shelf.Put(ShotOf(0, QSize(4096, 4096)))); // 50 MB
    std::thread engine([&] { EXPECT_TRUE(shelf.Put(ShotOf(1, QSize(4096, 4096)))); });
    EXPECT_TRUE(shelf.Take(0, Forever));
    engine.join();
    EXPECT_TRUE(shelf.Take(1, Forever));
}

TEST(StillShelfTest, APictureIsSettledWhenItLiesThereOrWillNotCome)
{
    StillShelf shelf;
    EXPECT_TRUE(shelf.IsSettled(0));
    shelf.Plan(0, 10, 20);
    EXPECT_FALSE(shelf.IsSettled(0));
    EXPECT_TRUE(shelf.IsSettled(5)) << "between the strides";
    EXPECT_TRUE(shelf.IsSettled(30)) << "behind the last";
    ASSERT_TRUE(shelf.Put(ShotOf(0)));
    EXPECT_TRUE(shelf.IsSettled(0));
    EXPECT_FALSE(shelf.IsSettled(10));
    shelf.Drop();
    EXPECT_TRUE(shelf.IsSettled(10));
}
