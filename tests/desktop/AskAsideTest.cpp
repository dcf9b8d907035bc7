#include "desktop/AskAside.h"

#include <gtest/gtest.h>

#include <pthread.h>
#include <stdexcept>

namespace {

using namespace std::chrono_literals;

struct Late { };
constexpr auto Forget = [](int) {};
const Patience Patient { 1min, {} };

/// No stack is small enough for another thread, until the end of the scope.
class NoThreads {
public:
    NoThreads()
    {
        pthread_getattr_default_np(&before_);
        pthread_attr_t huge {};
        pthread_attr_init(&huge);
        pthread_attr_setstacksize(&huge, size_t(1) << 47);
        pthread_setattr_default_np(&huge);
    }
    ~NoThreads() { pthread_setattr_default_np(&before_); }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t before_ {};
};

} // namespace

TEST(AskAside, TheAnswerIsGiven)
{
    EXPECT_EQ(AskAside<Late>(
                  Patient, [](const std::stop_token&) { return 42; }, Forget),
        42);
}

TEST(AskAside, WhatTheQuestionThrowsIsThrownOn)
{
    const auto question = [](const std::stop_token&) -> int { throw std::logic_error("no"); };
    EXPECT_THROW(AskAside<Late>(Patient, question, Forget), std::logic_error);
}

TEST(AskAside, WhileTheQuestionIsOpenTheCallerIsNotIdle)
{
    std::promise<void> called;
    const std::shared_future<void> isCalled = called.get_future().share();
    int times = 0;
    const Patience busy { 1min, [&] {
                             if (times++ == 0)
                                 called.set_value();
                         } };
    AskAside<Late>(
        busy,
        [isCalled](const std::stop_token&) {
            isCalled.wait();
            return 1;
        },
        Forget);
    EXPECT_GE(times, 1);
}

TEST(AskAside, AnAnswerThatComesTooLateIsUndone)
{
    std::promise<void> givenUp;
    auto undone = std::make_shared<std::promise<int>>();
    std::future<int> undo = undone->get_future();
    const std::shared_future<void> isGivenUp = givenUp.get_future().share();
    EXPECT_THROW(AskAside<Late>(
                     { 100ms, {} },
                     [isGivenUp](const std::stop_token& end) {
                         isGivenUp.wait();
                         return end.stop_requested() ? 7 : 0;
                     },
                     [undone](int answer) { undone->set_value(answer); }),
        Late);
    givenUp.set_value();
    EXPECT_EQ(undo.get(), 7);
}

TEST(AskAside, WhatIsThrownMeanwhileGivesTheQuestionUp)
{
    std::promise<void> givenUp;
    auto undone = std::make_shared<std::promise<int>>();
    std::future<int> undo = undone->get_future();
    const std::shared_future<void> isGivenUp = givenUp.get_future().share();
    EXPECT_THROW(AskAside<Late>(
                     { 1min, [] { throw std::logic_error("no more"); } },
                     [isGivenUp](const std::stop_token& end) {
                         isGivenUp.wait();
                         return end.stop_requested() ? 7 : 0;
                     },
                     [undone](int answer) { undone->set_value(answer); }),
        std::logic_error);
    givenUp.set_value();
    EXPECT_EQ(undo.get(), 7);
}

TEST(AskAside, WithoutAThreadItIsTooLateAtOnce)
{
    const NoThreads none;
    EXPECT_THROW(AskAside<Late>(
                     Patient, [](const std::stop_token&) { return 42; }, Forget),
        Late);
}
