#pragma once

#include "media/SoundFeed.h"
#include "media/player/Selection.h"
#include <optional>

namespace player {

/// The times of a video's pictures, whose number may still be unknown.
class Timeline {
public:
    virtual ~Timeline() = default;
    /// Whether there is a picture number; looks further into the media when it must.
    virtual bool Reaches(int number) = 0;
    virtual double TimeOf(int number) = 0;
    /// When the picture gives way to the next one, or the media ends.
    virtual double EndOf(int number) = 0;
    /// The last picture of the media, when it is known.
    virtual std::optional<int> Last() = 0;
};

/// Which picture is due when. Due times run on evenly over the loops: they are media time plus the laps'
/// lengths.
class PlayPlan {
public:
    struct Step {
        int number;
        double due;
    };

    /// next is the first picture to be given, start the media time at which the clock will be set off.
    PlayPlan(Timeline& timeline, PlaySpan span, const PlayOptions& options, int next, double start);

    /// The picture to decode next when the clock shows now: the following one, or a later one when it comes
    /// too late or would stand too short to be seen. None when all rounds are played.
    std::optional<Step> Next(double now);
    /// Where the media jumps or ends next, behind the picture that was given last. While the end of the media
    /// is unknown it is the jump to the lap under way; none in the first one.
    std::optional<media::SoundTurn> NextTurn();
    /// When the last picture has stood its time.
    double End() const { return end_; }

private:
    bool Holds(int number) { return number <= span_.last && timeline_.Reaches(number); }
    double DueOf(int number) { return timeline_.TimeOf(number) + offset_; }
    bool StartLap();
    int SkipLate(int number, double now);
    int SkipShort(int number);

    Timeline& timeline_;
    PlaySpan span_;
    int rounds_; ///< still to play, 0 for ever
    double shortest_; ///< media seconds below which a picture is not worth showing
    int next_;
    double offset_ = 0;
    std::optional<media::SoundTurn> lap_; ///< the jump that began it
    std::optional<double> lastDue_;
    double end_;
};

} // namespace player
