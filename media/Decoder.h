#pragma once

#include "media/DamageWatch.h"
#include "media/Libav.h"

namespace media {

/// The codec, fed with packets named by their ordinal; every picture comes out under the ordinal of its
/// packet.
class Decoder {
public:
    /// Throws MediaError when there is no such decoder or it refuses the stream.
    /// isUnpacked: packets that held two pictures have been split.
    Decoder(const AVStream& stream, const AVCodecParameters& parameters, bool isUnpacked);

    /// Forgets everything that was fed.
    void Restart();
    /// Feeds a packet. Pictures that are ready must have been received before.
    void Send(const AVPacket& packet, int ordinal);
    /// No packet follows: the pictures held back come out. Feeding on needs a Restart.
    void Drain();
    /// The next picture in display order, its ordinal in pts; null when more packets are needed or all are
    /// out.
    FramePtr Receive();
    /// Whether damage was patched since the restart or the last asking: in a picture that is out or in one
    /// that an out one refers to, whose own flags say nothing.
    bool TakePatched() { return watch_.isPatched.exchange(false); }
    /// From now on damaged pictures depend on the file alone. Else what damage leaves undecoded is what the
    /// memory held before, and of slices that run into one another, decoded side by side, the later one wins.
    /// False when that was asked for before.
    bool ExpectDamage();

    /// Whether leaving out pictures that no other needs changes no other picture of this codec.
    bool CanDrop() const { return canDrop_; }

private:
    DamageWatch watch_;
    CodecPtr context_;
    bool canDrop_ = false;
};

} // namespace media
