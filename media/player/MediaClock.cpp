#include "media/player/MediaClock.h"

#include <algorithm>

namespace player {

using Seconds = std::chrono::duration<double>;

void WallClock::Start(double media, double rate)
{
    media_ = media;
    rate_ = rate;
    anchor_ = now_();
    isRunning_ = true;
}

double WallClock::Now() const
{
    return isRunning_ ? media_ + Seconds(now_() - anchor_).count() * rate_ : media_;
}

MediaClock::Wall::time_point WallClock::When(double media) const
{
    constexpr double day = 86400; // keeps wild time stamps inside the clock's range
    const Seconds wait(std::clamp((media - media_) / rate_, -day, day));
    return anchor_ + std::chrono::duration_cast<Wall::duration>(wait);
}

} // namespace player
