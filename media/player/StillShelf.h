#pragma once

#include "media/player/Shot.h"
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

namespace player {

/// A short shelf of pictures made ahead for a caller that walks in equal strides. The engine thread fills it
/// and waits while it is full, the user-interface thread takes from it.
class StillShelf {
public:
    /// The caller is expected at first, first + stride … up to last.
    void Plan(int first, int stride, int last);
    /// Whether the picture lies there or is planned.
    bool Expects(int number) const;
    /// Whether the picture lies there, or will not come.
    bool IsSettled(int number) const;
    /// What the plan still asks for, in order.
    std::vector<int> Wanted() const;
    /// Lays the next wanted picture down, waiting for room; false when the plan was dropped.
    bool Put(const Shot& shot);
    /// The picture, waiting for it as long as it is planned; none when it is not, or when limit has passed.
    std::optional<Shot> Take(int number, std::chrono::milliseconds limit);
    /// Drops the pictures and lets go who fills it; what was planned of them stays planned until Release lets
    /// it be wanted again. Whether there is a plan.
    bool Hold();
    void Release();
    /// Drops the plan and the pictures, and lets go who waits; whether there was a plan.
    bool Drop();

    static constexpr qsizetype MaxBytes = qsizetype(64) * 1024 * 1024;

private:
    bool IsPlanned(int number) const;
    bool HasRoomFor(const Shot& shot) const;

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Shot> shots_;
    int next_ = 0; ///< to be put
    int passed_ = 0; ///< what comes before it is not wanted any more
    int stride_ = 0; ///< 0 without a plan
    int last_ = -1;
    bool isHeld_ = false;
};

} // namespace player
