#include "media/FrameTimes.h"

#include "media/PacketFact.h"
#include <algorithm>
#include <cmath>

namespace media {

FrameTimes::FrameTimes(double tick, int64_t start, int64_t step)
    : tick_(tick)
    , step_(std::max<int64_t>(step, 1))
    , line_(tick, -start)
{
}

void FrameTimes::StartBy(int64_t stamp)
{
    if (times_.empty())
        line_.StartBy(stamp);
}

void FrameTimes::Add(int64_t stamp, int64_t duration)
{
    const int64_t before = times_.empty() ? 0 : times_.back();
    const int64_t usual = before + (times_.empty() ? 0 : lastDuration_ > 0 ? lastDuration_ : step_);
    int64_t time = usual;
    if (stamp != NoStamp)
        time = times_.empty() ? line_.TimeOf(stamp) : line_.TimeOf(stamp, before, usual);
    times_.push_back(std::max(time, before));
    lastDuration_ = duration;
}

double FrameTimes::TimeOf(int number) const
{
    return double(times_[size_t(number)]) * tick_;
}

int FrameTimes::NumberAt(double seconds) const
{
    const double ticks = std::clamp(seconds / tick_ + 0.5, -1e18, 1e18);
    const auto after = std::upper_bound(times_.begin(), times_.end(), int64_t(std::floor(ticks)));
    return std::max(0, int(after - times_.begin()) - 1);
}

double FrameTimes::End() const
{
    if (times_.empty())
        return 0;
    return double(times_.back() + (lastDuration_ > 0 ? lastDuration_ : step_)) * tick_;
}

} // namespace media
