#pragma once

#include "media/FrameServer.h"
#include "media/player/FactSheet.h"
#include "media/player/PlayPlan.h"
#include <optional>

namespace player {

/// How far a server's index reaches: grows it as far as a call or the playing needs, within a time, and tells
/// the facts. Lives on the engine thread; all references must outlive it.
class GrowingIndex : public Timeline {
public:
    GrowingIndex(media::FrameServer& server, media::Interrupt& interrupt, FactSheet& facts, bool isAddress);

    /// Number, brought into the range of the pictures there are. Throws media::MediaError when that cannot be
    /// known in time, as the two that follow.
    int Reach(int number);
    /// The picture that stands at a time.
    int ReachTime(double seconds);
    /// The last picture; the last that is known of what is sent as it happens.
    int ReachLast();
    /// The picture that stands at a time as far as is known in time.
    int Near(double seconds);

    /// Whether there is a picture number. Throws media::MediaError when that cannot be known in time.
    bool Reaches(int number) override;
    double TimeOf(int number) override { return server_.TimeOf(number); }
    double EndOf(int number) override;
    std::optional<int> Last() override;

    /// Reads on for so many pictures more; false when there is nothing to be gained from going on.
    bool Extend(int pictures);
    /// Why the index cannot grow any more, if so.
    std::optional<media::Failure> Failure() const { return failure_; }
    /// Tells the facts as they stand.
    void Tell();

    /// Pictures that are read between two looks at the commands.
    static constexpr int Slice = 512;
    static constexpr int PlayingSlice = 32;

private:
    bool IsWhole() const { return failure_ || server_.IsComplete(); }
    bool IsLive() const { return isAddress_ && !IsWhole() && !server_.TellsDuration(); }
    bool Knows(double seconds) const;

    media::FrameServer& server_;
    media::Interrupt& interrupt_;
    FactSheet& facts_;
    bool isAddress_;
    std::optional<media::Failure> failure_;
};

} // namespace player
