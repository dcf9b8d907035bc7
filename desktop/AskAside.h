#pragma once

#include <QDeadlineTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <thread>

/// How long somebody waits for an answer, and what he does about twenty times a second meanwhile.
struct Patience {
    std::chrono::milliseconds longest;
    std::function<void()> meanwhile;
};

/// Carries a question out on a thread of its own, since it may never be answered. Gives its answer or throws
/// what it threw, or Late when that takes too long; the question is then left to itself, and an answer that
/// still comes goes to tooLate on its thread. So question and tooLate may hold nothing that can end before
/// them.
template <typename Late, typename Question, typename TooLate>
auto AskAside(const Patience& patience, Question question, TooLate tooLate)
{
    using Answer = decltype(question());
    std::promise<Answer> promise;
    std::future<Answer> answer = promise.get_future();
    const auto isSettled = std::make_shared<std::atomic_flag>();
    std::thread([=, promise = std::move(promise)]() mutable {
        try {
            Answer found = question();
            if (isSettled->test_and_set())
                tooLate(found);
            else
                promise.set_value(std::move(found));
        } catch (...) {
            if (!isSettled->test_and_set())
                promise.set_exception(std::current_exception());
        }
    }).detach();

    constexpr std::chrono::milliseconds Tick(50);
    const QDeadlineTimer end(patience.longest);
    while (answer.wait_for(Tick) != std::future_status::ready) {
        if (end.hasExpired() && !isSettled->test_and_set())
            throw Late();
        if (patience.meanwhile)
            patience.meanwhile();
    }
    return answer.get();
}
