#include "media/player/Selection.h"

#include <algorithm>
#include <cmath>

namespace player {

void Selection::SetStart(double seconds, double duration)
{
    start = std::isnan(seconds) ? 0 : std::clamp(seconds, 0.0, std::max(duration, 0.0));
}

void Selection::SetEnd(double seconds, double duration)
{
    const bool isMediaEnd = !(seconds < duration);
    end = isMediaEnd ? std::numeric_limits<double>::infinity() : std::max(seconds, 0.0);
}

} // namespace player
