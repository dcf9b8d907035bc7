#include "capture/FrameSteps.h"

#include <algorithm>
#include <utility>

FrameSteps::FrameSteps(int frameCount, int step, bool isFirstOfRun)
    : frameCount_(frameCount)
    , step_(std::max(step, 1))
    , roundsLeft_(IsShort() ? 2 : frameCount - 1)
    , isFirstOfRun_(isFirstOfRun)
{
}

std::optional<int> FrameSteps::Next(int currentFrame)
{
    if (roundsLeft_-- <= 0)
        return std::nullopt;
    if (currentFrame >= frameCount_)
        return Last(frameCount_);
    if (std::exchange(isFirstOfRun_, false))
        return next_;
    if (step_ < frameCount_ - next_)
        return next_ += step_;
    if (IsShort())
        return Last(frameCount_ - 1);
    return std::nullopt;
}

int FrameSteps::Last(int frame)
{
    roundsLeft_ = 0;
    return frame;
}
