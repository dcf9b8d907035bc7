#include "media/player/CommandQueue.h"

#include <gtest/gtest.h>
#include <memory>
#include <thread>

using namespace std::chrono_literals;
using player::CommandQueue;
using player::Engine;

namespace {

CommandQueue::Command Nothing()
{
    return [](Engine&) {};
}

const CommandQueue::Clock::time_point Past {};

} // namespace

TEST(CommandQueueTest, GivesNothingWhenTheTimeIsUp)
{
    CommandQueue queue;
    EXPECT_FALSE(queue.Pop(Past));
    EXPECT_FALSE(queue.Pop(CommandQueue::Clock::now() + 1ms));
}

TEST(CommandQueueTest, ACommandThatWaitsIsGivenAlsoWhenTheTimeIsUp)
{
    CommandQueue queue;
    EXPECT_TRUE(queue.Push(Nothing()));
    EXPECT_TRUE(queue.Pop(Past));
    EXPECT_FALSE(queue.Pop(Past));
}

TEST(CommandQueueTest, AnEngineThatHangsIsNotBuriedUnderCommands)
{
    CommandQueue queue;
    for (std::size_t i = 0; i < CommandQueue::Capacity; ++i)
        EXPECT_TRUE(queue.Push(Nothing()));
    EXPECT_FALSE(queue.Push(Nothing()));
    EXPECT_TRUE(queue.Pop(Past));
    EXPECT_TRUE(queue.Push(Nothing()));
}

TEST(CommandQueueTest, ACommandWakesWhoWaitsForEver)
{
    CommandQueue queue;
    bool came = false;
    std::thread engine([&] { came = bool(queue.Pop(CommandQueue::Clock::time_point::max())); });
    queue.Push(Nothing());
    engine.join();
    EXPECT_TRUE(came);
}

TEST(CommandQueueTest, ClosingWakesWhoWaitsAndDropsWhatWaits)
{
    CommandQueue queue;
    const auto owned = std::make_shared<int>(7);
    queue.Push([owned](Engine&) {});
    queue.Close();
    EXPECT_EQ(owned.use_count(), 1);
    std::thread engine([&] { EXPECT_FALSE(queue.Pop(CommandQueue::Clock::time_point::max())); });
    engine.join();
    EXPECT_FALSE(queue.Push(Nothing()));
    EXPECT_TRUE(queue.IsClosed());
}
