#include "media/player/StepAhead.h"

#include <algorithm>

namespace player {

namespace {

constexpr int ForwardReach = 2;

} // namespace

void StepAhead::Stepped(int number)
{
    const int direction = !at_ ? 0 : number > *at_ ? 1 : number < *at_ ? -1 : 0;
    stepsInARow_ = direction != 0 && direction == direction_ ? stepsInARow_ + 1 : 1;
    direction_ = direction;
    at_ = number;
}

std::optional<int> StepAhead::Wanted(int count, int reserve, const std::function<bool(int)>& isCached) const
{
    // One step back may be a correction; a second one in a row is a walk, and the pictures before it cost a
    // whole decode: they are made as soon as there is room for them.
    if (!at_ || direction_ == 0 || (direction_ < 0 && stepsInARow_ < 2))
        return std::nullopt;
    const int reach = direction_ < 0 ? reserve : std::min(reserve, ForwardReach);
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
