#include "media/player/StepAhead.h"

namespace player {

namespace {

constexpr int BackwardReach = 8; // so many cached pictures before the shown one are enough
constexpr int ForwardReach = 2;

} // namespace

void StepAhead::Stepped(int number)
{
    const int direction = !at_ ? 0 : number > *at_ ? 1 : number < *at_ ? -1 : 0;
    stepsInARow_ = direction != 0 && direction == direction_ ? stepsInARow_ + 1 : 1;
    direction_ = direction;
    at_ = number;
}

std::optional<int> StepAhead::Wanted(int count, const std::function<bool(int)>& isCached) const
{
    // One step back may be a correction; a second one in a row is a walk, and its next span costs a whole
    // decode.
    if (!at_ || direction_ == 0 || (direction_ < 0 && stepsInARow_ < 2))
        return std::nullopt;
    const int reach = direction_ < 0 ? BackwardReach : ForwardReach;
    for (int step = 1; step <= reach; ++step) {
        const int number = *at_ + step * direction_;
        if (number < 0 || number >= count)
            return std::nullopt;
        if (!isCached(number))
            return number;
    }
    return std::nullopt;
}

} // namespace player
