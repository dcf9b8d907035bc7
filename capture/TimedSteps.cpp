#include "capture/TimedSteps.h"

#include <algorithm>
#include <cmath>

int TimedSteps::FirstDelay(int seconds)
{
    return std::max(seconds, 1);
}

int TimedSteps::NextDelay(double position, int seconds, double rate)
{
    const double interval = std::max(seconds, 1);
    const double next = (std::floor(position / interval + 0.5) + 1) * interval;
    return int(std::lround((next - position) / rate * 1000));
}
