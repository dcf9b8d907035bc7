#include "media/player/MediaClock.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

void GuidedClock::Start(double media, double rate)
{
    WallClock::Start(media, rate);
    hasFollowed_ = false;
}

void GuidedClock::Follow(double heard)
{
    const double error = heard - Now();
    const bool isSmall = std::exchange(hasFollowed_, true) && std::abs(error) <= Largest;
    Shift(isSmall ? Share * error : error);
}

} // namespace player
