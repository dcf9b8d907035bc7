#pragma once

namespace player {

/// The scale of the position slider.
namespace TrackingScale {

constexpr int Max = 10000;

/// 0 to Max; 0 while the duration is unknown.
int FromSeconds(double seconds, double duration);
/// Seconds from the start of the media; 0 while the duration is unknown.
double ToSeconds(int position, double duration);

} // namespace TrackingScale

/// The rates that can be played, a rounding error of repeated tenths included.
bool IsPlayableRate(double rate);

} // namespace player
