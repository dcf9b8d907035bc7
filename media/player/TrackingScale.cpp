#include "media/player/TrackingScale.h"

#include <algorithm>
#include <cmath>

namespace player {

int TrackingScale::FromSeconds(double seconds, double duration)
{
    if (!(duration > 0) || !std::isfinite(seconds))
        return seconds > 0 && duration > 0 ? Max : 0;
    return int(std::lround(std::clamp(seconds / duration, 0.0, 1.0) * Max));
}

double TrackingScale::ToSeconds(int position, double duration)
{
    return std::clamp(position, 0, Max) * std::max(duration, 0.0) / Max;
}

bool IsPlayableRate(double rate)
{
    constexpr double grace = 1e-6;
    return rate >= 0.1 - grace && rate <= 5.0 + grace;
}

} // namespace player
