#pragma once

#include "media/Failure.h"
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace media {

/// Has things worked on, one after the other, by a thread of its own, while the owner makes the next ones.
template <typename Thing> class Conveyor {
public:
    using Work = std::function<bool(Thing&)>;

    /// work is called with each thing in the order of Put, until it returns false or throws. Throws
    /// MediaError when there is no thread to be had.
    explicit Conveyor(Work work)
        : work_(std::move(work))
        , thread_(Started())
    {
    }
    /// Drops what waits.
    ~Conveyor()
    {
        End(true);
        if (thread_.joinable())
            thread_.join();
    }
    Conveyor(const Conveyor&) = delete;
    Conveyor& operator=(const Conveyor&) = delete;

    /// Hands a thing over, waiting for room; false when work wants no more.
    bool Put(Thing thing)
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isEnded_ || waiting_.size() < MostWaiting; });
        if (isEnded_)
            return false;
        waiting_.push_back(std::move(thing));
        changed_.notify_all();
        return true;
    }
    /// Waits until all that was put is worked on, or work wants no more. Throws what work threw.
    void Finish()
    {
        End(false);
        thread_.join();
        if (failure_)
            std::rethrow_exception(failure_);
    }

private:
    static constexpr std::size_t MostWaiting = 2;

    std::thread Started()
    {
        try {
            return std::thread([this] { Run(); });
        } catch (const std::system_error& error) {
            throw MediaError(Failure::NoResources, error.what());
        }
    }
    void Run()
    {
        try {
            while (std::optional<Thing> thing = Next())
                if (!work_(*thing))
                    break;
        } catch (...) {
            failure_ = std::current_exception();
        }
        End(true);
    }
    std::optional<Thing> Next()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isEnded_ || !waiting_.empty(); });
        if (waiting_.empty())
            return std::nullopt;
        std::optional<Thing> thing(std::move(waiting_.front()));
        waiting_.pop_front();
        changed_.notify_all();
        return thing;
    }
    void End(bool dropsWaiting)
    {
        const std::lock_guard lock(mutex_);
        isEnded_ = true;
        if (dropsWaiting)
            waiting_.clear();
        changed_.notify_all();
    }

    Work work_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Thing> waiting_;
    bool isEnded_ = false; ///< nothing is put any more
    std::exception_ptr failure_;
    std::thread thread_; ///< the last member: it uses all others
};

} // namespace media
