#pragma once

#include "media/player/MediaClock.h"
#include "media/player/PlayPlan.h"
#include "media/player/Shot.h"
#include <deque>
#include <memory>

namespace player {

/// Plays: keeps a few pictures ahead, shows each when the clock has come to it, and drops what comes too
/// late. Lives on the engine thread and works in small pieces.
class Playback {
public:
    using Time = MediaClock::Wall::time_point;
    /// What it works with.
    struct Hands {
        std::function<media::Picture(int number)> decode;
        /// Makes a picture ready for the screen.
        std::function<Shot(const media::Picture&)> render;
        std::function<void(const Shot&)> show;
    };

    /// from is the media time at which the clock starts, rate its speed.
    Playback(PlayPlan plan, double from, double rate, std::unique_ptr<MediaClock> clock, Hands hands);

    /// One piece of work, a picture decoded or shown; the wall time of the next piece. Throws
    /// media::MediaError.
    Time Work();
    /// All rounds are played, and the last picture has stood its time.
    bool IsOver() const { return isOver_; }

    static constexpr std::size_t PicturesAhead = 3;
    /// The time of a next piece that need not wait.
    static constexpr Time AtOnce = {};

private:
    template <typename Thing> struct Due {
        Thing thing;
        double at;
    };
    double Now() const { return clock_->IsRunning() ? clock_->Now() : from_; }
    Time Prime();
    void DecodeNext();
    void DrawOut();
    bool IsTooLate(double due) const;
    void Queue(const media::Picture& picture, double due);
    void ShowDue();

    PlayPlan plan_;
    double from_;
    double rate_;
    std::unique_ptr<MediaClock> clock_;
    Hands hands_;
    std::deque<Due<Shot>> ahead_;
    std::optional<Due<media::Picture>> dropped_; ///< the newest picture, when it came too late
    double lastShown_;
    bool isDrawnOut_ = false;
    bool isOver_ = false;
};

} // namespace player
