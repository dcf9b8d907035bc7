#pragma once

#include "media/Sound.h"
#include "media/SoundSeam.h"
#include "media/Tempo.h"
#include <deque>

namespace media {

/// When the due times come to due, the media jumps: a loop begins anew. Without a place to jump to the sound
/// ends there.
struct SoundTurn {
    double due = 0;
    std::optional<double> media;
};

/// The sound of one playing without a hole, at its rate: due times run on evenly over loops, gaps of the file
/// and changes of its format.
class SoundFeed {
public:
    explicit SoundFeed(SoundReader& reader)
        : reader_(reader)
    {
    }

    /// Begins with the sound of a moment of the media, which is due at a time. Throws MediaError.
    void Begin(double due, double media, double rate);
    /// A turn to come, behind those that were told before.
    void Expect(const SoundTurn& turn) { turns_.push_back(turn); }
    /// The next piece; none at the end, until a turn brings more. Throws MediaError.
    std::optional<Samples> Next();
    /// Due time of the end of all pieces so far.
    double End() const { return begin_ + lead_ + double(given_) * rate_ / SoundRate; }

private:
    std::optional<Samples> Piece();
    Samples Finish();
    void Fetch(SoundBlock block);
    void Turn();
    Samples Cut(Samples samples, bool isSilence);
    void FadeIn(Samples& samples);
    std::size_t RoomBeforeTurn() const;

    SoundReader& reader_;
    SoundSeam seam_;
    std::unique_ptr<Tempo> tempo_;
    std::deque<SoundTurn> turns_;
    double begin_ = 0;
    double rate_ = 1;
    double lead_ = 0; ///< of the tempo
    double offset_ = 0; ///< due time minus media time
    int64_t given_ = 0; ///< frames
    std::size_t silence_ = 0; ///< frames due before held_
    Samples held_;
    std::size_t fade_ = 0; ///< frames that are still to be faded in
    bool isCut_ = false; ///< ended by a turn
    bool isFinished_ = false; ///< the rest of the tempo is out
};

} // namespace media
