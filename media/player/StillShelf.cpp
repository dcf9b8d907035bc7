#include "media/player/StillShelf.h"

#include <algorithm>
#include <utility>

namespace player {

namespace {

constexpr int MaxShots = 4;
constexpr int PlanLength = 1000; // a walk that goes on is planned anew

qsizetype BytesOf(const Shot& shot)
{
    return shot.screen.sizeInBytes() + shot.still.sizeInBytes();
}

} // namespace

void StillShelf::Plan(int first, int stride, int last)
{
    const std::lock_guard lock(mutex_);
    shots_.clear();
    next_ = first;
    passed_ = first;
    stride_ = stride;
    last_ = last;
    isHeld_ = false;
    changed_.notify_all();
}

std::vector<int> StillShelf::Wanted() const
{
    const std::lock_guard lock(mutex_);
    std::vector<int> numbers;
    if (stride_ == 0 || isHeld_)
        return numbers;
    for (qint64 number = next_; number <= last_ && numbers.size() < PlanLength; number += stride_)
        numbers.push_back(int(number));
    return numbers;
}

bool StillShelf::HasRoomFor(const Shot& shot) const
{
    qsizetype bytes = BytesOf(shot);
    for (const Shot& other : shots_)
        bytes += BytesOf(other);
    return shots_.empty() || (shots_.size() < MaxShots && bytes <= MaxBytes);
}

bool StillShelf::Put(const Shot& shot)
{
    std::unique_lock lock(mutex_);
    const auto isGone = [&] { return stride_ == 0 || isHeld_ || shot.number != next_; };
    const auto isPassed = [&] { return shot.number < passed_; };
    changed_.wait(lock, [&] { return isGone() || isPassed() || HasRoomFor(shot); });
    if (isGone())
        return false;
    if (!isPassed())
        shots_.push_back(shot);
    next_ += stride_;
    changed_.notify_all();
    return true;
}

bool StillShelf::Expects(int number) const
{
    const std::lock_guard lock(mutex_);
    const auto isIt = [number](const Shot& shot) { return shot.number == number; };
    return IsPlanned(number) || std::any_of(shots_.begin(), shots_.end(), isIt);
}

bool StillShelf::IsSettled(int number) const
{
    const std::lock_guard lock(mutex_);
    return !IsPlanned(number);
}

bool StillShelf::IsPlanned(int number) const
{
    return stride_ > 0 && number >= next_ && number <= last_ && (number - next_) % stride_ == 0;
}

std::optional<Shot> StillShelf::Take(int number, std::chrono::milliseconds limit)
{
    std::unique_lock lock(mutex_);
    passed_ = number;
    std::erase_if(shots_, [number](const Shot& shot) { return shot.number < number; });
    changed_.notify_all();
    const auto isThere = [&] { return !shots_.empty() && shots_.front().number == number; };
    changed_.wait_for(lock, limit, [&] { return isThere() || !IsPlanned(number); });
    if (!isThere())
        return std::nullopt;
    Shot shot = std::move(shots_.front());
    shots_.pop_front();
    changed_.notify_all();
    return shot;
}

bool StillShelf::Hold()
{
    const std::lock_guard lock(mutex_);
    if (!shots_.empty())
        next_ = shots_.front().number;
    shots_.clear();
    isHeld_ = true;
    changed_.notify_all();
    return stride_ > 0;
}

void StillShelf::Release()
{
    const std::lock_guard lock(mutex_);
    isHeld_ = false;
}

bool StillShelf::Drop()
{
    const std::lock_guard lock(mutex_);
    shots_.clear();
    changed_.notify_all();
    return std::exchange(stride_, 0) > 0;
}

} // namespace player
