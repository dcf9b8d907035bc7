#pragma once

#include "media/Interrupt.h"
#include "media/PacketIndex.h"
#include "media/Picture.h"
#include "media/PictureMemory.h"
#include <functional>
#include <set>
#include <unordered_set>

namespace media {

/// A picture that is wanted, and what may be left out and kept on the way to it.
struct Goal {
    int number = 0;
    int keepFrom = 0; ///< pictures from here on are wanted for keeping
    bool isLast = false; ///< nothing behind it is wanted, the decoder's place may be given up
    bool isThorough = false; ///< nothing is left out on the way
    const std::vector<int>* others = nullptr; ///< rising; wanted too, while none besides them is kept

    bool Wants(int other) const;
};

/// Gets any picture out of the decoder: knows where the decoder stands, which packets lead from there or from
/// a key to the picture, and which of them it can do without.
class PictureDecoder {
public:
    using Keep = std::function<void(const Picture&)>;

    /// keep is called with each picture on the way that the goal wants kept. All references must outlive the
    /// decoder. Throws MediaError.
    PictureDecoder(PacketIndex& index, Interrupt& interrupt, Keep keep);

    /// The goal's picture; one that the decoder does not give looks like the one before it. Throws MediaError
    /// when there is none, or when the interrupt is due.
    Picture Reach(const Goal& goal);
    /// The same in pieces: null when it paused at until, to be called again.
    Picture Approach(const Goal& goal, Interrupt::Clock::time_point until);
    /// Whether a picture can be had from where the decoder stands.
    bool CanContinue(int number) const;
    /// Whether, with the packets up to ordinal decoded, it takes less to start anew for a picture than to go
    /// on.
    bool IsRestartedFor(int number, int ordinal) const;

private:
    Picture StartFor(const Goal& goal);
    Picture NearestBefore(const Goal& goal);
    void RestartAt(int entry);
    Picture Pursue(const Goal& goal);
    Picture Receive(const Goal& goal);
    bool NoteDamage(int from, int last);
    bool MayDrop(int ordinal, const Goal& goal) const;
    bool IsNearDamage(int ordinal) const;
    bool Feed(const Goal& goal);
    Picture MakePicture(FramePtr frame, int number) const;

    PacketIndex& index_;
    Interrupt& interrupt_;
    Keep keep_;
    std::unique_ptr<Decoder> decoder_;
    std::shared_ptr<PictureMemory> memory_ = std::make_shared<PictureMemory>();

    // Where the decoder stands.
    int entry_ = 0;
    int fed_ = 0; ///< ordinal of the packet to be fed next
    int first_ = -1; ///< number of the picture that came out first
    int out_ = -1; ///< number of the picture that came out last
    bool isDrained_ = false;
    bool isTainted_ = false; ///< what comes out differs from one pass through the file
    std::unordered_set<int> dropped_; ///< ordinals not decoded since the restart

    std::set<int> damaged_; ///< keys behind which damage is known
};

} // namespace media
