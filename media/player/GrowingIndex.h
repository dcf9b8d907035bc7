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

    /// Number, brought into the range of the pictures there are.
    int Reach(int number);
    /// Grows until a time lies within what is known.
    void ReachTime(double seconds);
    /// The last picture, or the last that is known in time.
    int ReachLast();

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

    media::FrameServer& server_;
    media::Interrupt& interrupt_;
    FactSheet& facts_;
    bool isAddress_;
    std::optional<media::Failure> failure_;
};

} // namespace player
