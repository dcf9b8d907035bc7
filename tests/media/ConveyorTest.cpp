#include "media/Conveyor.h"

#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <semaphore>
#include <vector>

using media::Conveyor;

namespace {

std::vector<int> UpTo(int count)
{
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

} // namespace

TEST(Conveyor, EverythingIsWorkedOnInOrder)
{
    std::vector<int> done;
    Conveyor<int> conveyor([&](int number) {
        done.push_back(number);
        return true;
    });
    for (const int number : UpTo(100))
        ASSERT_TRUE(conveyor.Put(number));
    conveyor.Finish();
    EXPECT_EQ(done, UpTo(100));
}

TEST(Conveyor, TheOwnerGoesOnWhileWorkIsDone)
{
    std::binary_semaphore ownerWentOn(0);
    bool isDone = false;
    Conveyor<int> conveyor([&](int) {
        ownerWentOn.acquire();
        isDone = true;
        return true;
    });
    EXPECT_TRUE(conveyor.Put(1));
    ownerWentOn.release();
    conveyor.Finish();
    EXPECT_TRUE(isDone);
}

TEST(Conveyor, WorkThatHasEnoughIsGivenNoMore)
{
    std::vector<int> done;
    Conveyor<int> conveyor([&](int number) {
        done.push_back(number);
        return number < 2;
    });
    int number = 0;
    while (conveyor.Put(number))
        ++number;
    conveyor.Finish();
    EXPECT_EQ(done, UpTo(3));
}

TEST(Conveyor, WhatWorkThrowsComesOutOfFinish)
{
    Conveyor<int> conveyor(
        [](int) -> bool { throw media::MediaError(media::Failure::TooLarge, "no memory"); });
    while (conveyor.Put(1)) { }
    EXPECT_THROW(conveyor.Finish(), media::MediaError);
}

TEST(Conveyor, WhatStillWaitsIsDroppedWithIt)
{
    using Thing = std::shared_ptr<int>;
    std::binary_semaphore isAtWork(0);
    std::binary_semaphore isDropped(0);
    std::vector<int> done;
    {
        Conveyor<Thing> conveyor([&](const Thing& number) {
            isAtWork.release();
            isDropped.acquire(); // the first ends when the second has gone
            done.push_back(*number);
            return true;
        });
        conveyor.Put(std::make_shared<int>(0));
        isAtWork.acquire();
        conveyor.Put(Thing(new int(1), [&](const int* number) {
            delete number;
            isDropped.release();
        }));
    }
    EXPECT_EQ(done, UpTo(1));
}
