#pragma once

#include <QDeadlineTimer>

#include <chrono>
#include <functional>
#include <future>
#include <stop_token>
#include <system_error>
#include <thread>

/// How long somebody waits for an answer, and what he does about twenty times a second meanwhile; what that
/// throws gives the answer up.
struct Patience {
    std::chrono::milliseconds longest;
    std::function<void()> meanwhile;
};

/// Carries a question out on a thread of its own, since it may never be answered. Gives its answer or throws
/// what it threw, or Late when that takes too long or there is no thread for it. One that is given up is left
/// to itself: its token says so, and an answer that still comes goes to tooLate on its thread. So question
/// and tooLate may hold nothing that can end before them.
template <typename Late, typename Question, typename TooLate>
auto AskAside(const Patience& patience, Question question, TooLate tooLate)
{
    using Answer = decltype(question(std::stop_token()));
    std::promise<Answer> promise;
    std::future<Answer> answer = promise.get_future();
    std::stop_source end; // the first to request it decides: answered, or given up
    auto ask = [=, promise = std::move(promise)]() mutable {
        try {
            Answer found = question(end.get_token());
            if (end.request_stop())
                promise.set_value(std::move(found));
            else
                tooLate(found);
        } catch (...) {
            if (end.request_stop())
                promise.set_exception(std::current_exception());
        }
    };
    try {
        std::thread(std::move(ask)).detach();
    } catch (const std::system_error&) {
        throw Late();
    }

    constexpr std::chrono::milliseconds Tick(50);
    const QDeadlineTimer deadline(patience.longest);
    try {
        while (answer.wait_for(Tick) != std::future_status::ready) {
            if (deadline.hasExpired())
                throw Late();
            if (patience.meanwhile)
                patience.meanwhile();
        }
    } catch (...) {
        if (end.request_stop())
            throw;
    } // an answer that came first counts
    return answer.get();
}
