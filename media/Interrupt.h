#pragma once

#include "media/Failure.h"
#include <atomic>
#include <chrono>

namespace media {

/// Lets another thread end a blocking call: the call fails with Failure::TimedOut soon after Raise or the
/// deadline.
class Interrupt {
public:
    using Clock = std::chrono::steady_clock;
    void Raise() { raised_ = true; }
    void SetDeadline(Clock::time_point deadline) { deadline_ = deadline.time_since_epoch().count(); }
    void ClearDeadline() { deadline_ = Clock::time_point::max().time_since_epoch().count(); }
    /// Throws MediaError when it is due.
    void ThrowIfDue() const
    {
        if (IsDue())
            throw MediaError(Failure::TimedOut, "no answer in time");
    }
    bool IsDue() const
    {
        return raised_ || Clock::now().time_since_epoch().count() > deadline_.load(std::memory_order_relaxed);
    }

private:
    std::atomic<bool> raised_ = false;
    std::atomic<Clock::rep> deadline_ = Clock::time_point::max().time_since_epoch().count();
};

} // namespace media
