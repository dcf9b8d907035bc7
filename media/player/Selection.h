#pragma once

#include <limits>

namespace player {

/// The part of the video that is played, in seconds: from the picture at start through the picture at end.
struct Selection {
    double start = 0;
    /// Infinite until it is set: the media's end, wherever the index finds it.
    double end = std::numeric_limits<double>::infinity();

    bool operator==(const Selection&) const = default;
    /// Puts a bound, kept within [0, duration].
    void SetStart(double seconds, double duration);
    void SetEnd(double seconds, double duration);
};

/// How the video is to be played.
struct PlayOptions {
    Selection selection;
    double rate = 1;
    /// 0 for ever.
    int playCount = 1;
    bool rewindsAtEnd = false;
    bool isMuted = false;
};

/// A selection in pictures, both included.
struct PlaySpan {
    int first = 0;
    int last = std::numeric_limits<int>::max();

    /// Where playing starts when picture shown stands on the screen: behind it inside the span, else at its
    /// start.
    int NextAfter(int shown) const { return shown >= first && shown < last ? shown + 1 : first; }
};

} // namespace player
