#include "desktop/AskAside.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace std::chrono_literals;

struct Late { };
constexpr auto Forget = [](int) {};
const Patience Patient { 1min, {} };

} // namespace

TEST(AskAside, TheAnswerIsGiven)
{
    EXPECT_EQ(AskAside<Late>(
                  Patient, [] { return 42; }, Forget),
        42);
}

TEST(AskAside, WhatTheQuestionThrowsIsThrownOn)
{
    const auto question = []() -> int { throw std::logic_error("no"); };
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
        [isCalled] {
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
                     [isGivenUp] {
                         isGivenUp.wait();
                         return 7;
                     },
                     [undone](int answer) { undone->set_value(answer); }),
        Late);
    givenUp.set_value();
    EXPECT_EQ(undo.get(), 7);
}
