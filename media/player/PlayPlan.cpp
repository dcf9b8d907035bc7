#include "media/player/PlayPlan.h"

#include <algorithm>

namespace player {

namespace {

constexpr int PatienceInPictures = 3; // so many late pictures are still decoded one by one
constexpr double ShortestOnScreen = 1.0 / 75; // seconds; no screen shows more
constexpr double ShortestLap = 0.04; // a single picture in a loop must not spin

} // namespace

PlayPlan::PlayPlan(Timeline& timeline, PlaySpan span, const PlayOptions& options, int next, double start)
    : timeline_(timeline)
    , span_(span)
    , rounds_(std::max(options.playCount, 0))
    , shortest_(ShortestOnScreen * options.rate)
    , next_(next)
    , end_(start)
{
}

std::optional<PlayPlan::Step> PlayPlan::Next(double now)
{
    if (!Holds(next_) && !StartLap())
        return std::nullopt;
    const int number = SkipShort(SkipLate(next_, now));
    const double due = std::max(DueOf(number), lastDue_.value_or(DueOf(number)));
    next_ = number + 1;
    lastDue_ = due;
    end_ = std::max(due, timeline_.EndOf(number) + offset_);
    return Step { number, due };
}

std::optional<media::SoundTurn> PlayPlan::NextTurn()
{
    const std::optional<int> end = timeline_.Last();
    if (!end)
        return lap_;
    const double due = timeline_.EndOf(std::min(span_.last, *end)) + offset_;
    if (rounds_ == 1)
        return media::SoundTurn { due, std::nullopt };
    return media::SoundTurn { due, timeline_.TimeOf(span_.first) };
}

bool PlayPlan::StartLap()
{
    if (rounds_ == 1 || !Holds(span_.first))
        return false;
    rounds_ = std::max(rounds_ - 1, 0);
    offset_ = std::max(end_, lastDue_.value_or(end_) + ShortestLap) - timeline_.TimeOf(span_.first);
    lap_ = { DueOf(span_.first), timeline_.TimeOf(span_.first) };
    next_ = span_.first;
    return true;
}

int PlayPlan::SkipLate(int number, double now)
{
    const int beyond = number + PatienceInPictures;
    if (!Holds(beyond) || DueOf(beyond) > now)
        return number;
    while (Holds(number + 1) && DueOf(number + 1) <= now)
        ++number;
    return number;
}

int PlayPlan::SkipShort(int number)
{
    while (lastDue_ && DueOf(number) < *lastDue_ + shortest_ && Holds(number + 1))
        ++number;
    return number;
}

} // namespace player
