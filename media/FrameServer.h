#pragma once

#include "media/Caption.h"
#include "media/Interrupt.h"
#include "media/Picture.h"
#include "media/Source.h"
#include <functional>
#include <vector>

/// The engine's core: any picture of a video by its ordinal in presentation order, exactly. No thread of its
/// own; each object is used by one thread at a time. No FFmpeg type leaves this folder.
namespace media {

/// How the asked picture will be used: it decides what the decoder may skip and keep.
enum class Purpose {
    Jump, ///< a single picture at some place; the decoder's place need not survive
    Step, ///< neighbours will be asked for next; pictures before it are kept while the cache has room
    Play, ///< the next pictures follow in order
};

/// Bytes that a server may keep.
struct Limits {
    qsizetype pictures = qsizetype(320) << 20; ///< decoded
    qsizetype packets = qsizetype(192) << 20; ///< as stored; what does not fit is read again when needed
};

/// The pictures of one video.
class FrameServer {
public:
    /// Opens the source and its first video stream (attached pictures do not count). Throws MediaError.
    /// interrupt must outlive the server.
    static std::unique_ptr<FrameServer> Open(
        const Source& source, Interrupt& interrupt, const Limits& limits = {});
    virtual ~FrameServer() = default;

    /// Number of pictures known so far, growing while the index is built; exact once IsComplete().
    virtual int KnownFrames() const = 0;
    virtual bool IsComplete() const = 0;
    /// Reads on in the file until at least frames pictures are known or the file's end or the interrupt is
    /// due.
    virtual void ExtendIndex(int frames) = 0;

    /// Natural size of the first picture in square pixels, rotated as tagged.
    virtual QSize Size() const = 0;
    /// Seconds; from the index once it is complete, from the container before.
    virtual double Duration() const = 0;
    /// Whether the container tells how long the video is; one that goes on without an end does not.
    virtual bool TellsDuration() const = 0;
    virtual bool HasSound() const = 0;
    /// Seconds that the source's own clock shows at the start of the media.
    virtual double Start() const = 0;
    /// Seconds from the start of the media to picture number; number in [0, KnownFrames).
    virtual double TimeOf(int number) const = 0;
    /// The last picture whose time is at or before seconds (half a tick of grace); 0 before the first.
    virtual int NumberAt(double seconds) const = 0;
    /// What closed captions say at picture number; number in [0, KnownFrames).
    virtual Caption CaptionAt(int number) const = 0;

    /// Exactly picture number. Throws MediaError when it cannot be had before the interrupt is due.
    virtual Picture Get(int number, Purpose purpose) = 0;
    /// Goes on towards having picture number, and as many before it as there is room for, in the cache, for
    /// steps that are expected to come to it; the Reserve() pictures behind it stay there. Pauses at until.
    /// Whether it is there.
    virtual bool Prepare(int number, Interrupt::Clock::time_point until) = 0;
    /// How many pictures may wait in the cache to be shown while those before them are prepared.
    virtual int Reserve() const = 0;
    /// Skips what need not be decoded on the way through numbers (rising); calls take for each wanted picture
    /// in order until it returns false.
    virtual void Walk(const std::vector<int>& numbers, const std::function<bool(const Picture&)>& take) = 0;
    /// The picture if it is in the cache, else null; never decodes.
    virtual Picture Cached(int number) const = 0;
};

} // namespace media
