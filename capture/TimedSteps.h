#pragma once

/// When a run by time takes its pictures. An interval below one counts as one, so that no run is endless.
namespace TimedSteps {

/// Milliseconds from the start of a video to its first picture: the stored number of seconds, taken as
/// milliseconds, so that it comes almost at once.
int FirstDelay(int seconds);
/// Milliseconds to the next picture for a video that stands at position (seconds) and plays at rate: to the
/// next whole multiple of the interval, so that late ticks do not add up. Half an interval to one and a half.
int NextDelay(double position, int seconds, double rate);

} // namespace TimedSteps
