#include "toolkit/FadeSteps.h"

#include <algorithm>
#include <cmath>

bool FadeSteps::Tick(qint64 elapsed)
{
    if (elapsed >= duration_)
        return false;
    const double ticksLeft = double(duration_ - elapsed) / Interval;
    const int step = std::max(1, int(std::nearbyint(alpha_ / ticksLeft)));
    if (alpha_ <= step)
        return false;
    alpha_ -= step;
    return true;
}
