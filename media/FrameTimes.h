#pragma once

#include "media/StampLine.h"
#include <cstdint>
#include <vector>

namespace media {

/// When each picture is shown, in ticks of the stream from the start of the media; never falling.
class FrameTimes {
public:
    /// tick: seconds of one tick. start: the stamp of the media's first moment. step: ticks of a usual
    /// picture.
    FrameTimes(double tick, int64_t start, int64_t step);

    /// Makes the first moment of the media the picture to come, the first one, if it has a stamp before that.
    void StartBy(int64_t stamp);
    /// Takes the stamp of the next picture in display order, NoStamp when it has none, and how long it is
    /// shown, 0 when that is unknown. Where stamps begin anew the time goes on from the picture before.
    void Add(int64_t stamp, int64_t duration);

    /// Seconds; number in [0, count).
    double TimeOf(int number) const;
    /// The last picture whose time is at or before seconds, with half a tick of grace; 0 before the first.
    int NumberAt(double seconds) const;
    /// Seconds from the start of the media to the end of the last picture.
    double End() const;

private:
    double tick_;
    int64_t step_;
    StampLine<int64_t> line_;
    int64_t lastDuration_ = 0;
    std::vector<int64_t> times_;
};

} // namespace media
