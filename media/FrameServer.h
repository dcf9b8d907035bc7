#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// The engine's core: any picture of a video by its ordinal in presentation order, exactly. No thread of its
/// own; each object is used by one thread at a time. No FFmpeg type leaves this folder.
namespace media {

/// Why a source cannot be opened or read. Numbers are those of PlayerError.
enum class Failure {
    NotFound = 1,
    NoPermission,
    NotAFile,
    Empty,
    NotAVideo,
    Damaged,
    TooLarge,
    TimedOut,
    Refused,
    Network,
    Vanished,
};

/// One short sentence in the program's words.
QString FailureText(Failure failure);

class MediaError : public std::runtime_error {
public:
    MediaError(Failure why, const std::string& detail)
        : std::runtime_error(detail)
        , failure(why)
    {
    }
    Failure failure;
};

/// What to open: the bytes of a path on this machine, an address, or a block of memory holding a file.
struct Source {
    enum class Kind { File, Address, Memory } kind = Kind::File;
    QByteArray data;
};

/// Lets another thread end a blocking call: the call fails with Failure::TimedOut soon after Raise or the
/// deadline.
class Interrupt {
public:
    using Clock = std::chrono::steady_clock;
    void Raise() { raised_ = true; }
    void SetDeadline(Clock::time_point deadline) { deadline_ = deadline.time_since_epoch().count(); }
    void ClearDeadline() { deadline_ = Clock::time_point::max().time_since_epoch().count(); }
    bool IsDue() const
    {
        return raised_ || Clock::now().time_since_epoch().count() > deadline_.load(std::memory_order_relaxed);
    }

private:
    std::atomic<bool> raised_ = false;
    std::atomic<Clock::rep> deadline_ = Clock::time_point::max().time_since_epoch().count();
};

struct DecodedFrame;

/// A decoded picture, shared, in the codec's own format. Cheap to copy; its members may be called on any
/// thread.
class Picture {
public:
    Picture() = default;
    Picture(std::shared_ptr<const DecodedFrame> frame, int number)
        : frame_(std::move(frame))
        , number_(number)
    {
    }

    bool IsNull() const { return !frame_; }
    /// Presentation ordinal.
    int Number() const { return number_; }
    /// The same picture under another number.
    Picture As(int number) const { return { frame_, number }; }
    /// Size in square pixels (stored height, width by the sample aspect ratio), rotated as tagged.
    QSize Size() const;
    /// Bytes the decoded picture holds.
    qsizetype Bytes() const;
    /// The picture as QImage::Format_BGR888 at Size(), colour matrix and range honoured: what a capture
    /// saves.
    QImage ToStill() const;
    /// The picture as QImage::Format_RGB32 scaled to size (device pixels), for the screen.
    QImage ToScreen(QSize size) const;

private:
    std::shared_ptr<const DecodedFrame> frame_;
    int number_ = -1;
};

/// How the asked picture will be used: it decides what the decoder may skip and keep.
enum class Purpose {
    Jump, ///< a single picture at some place; the decoder's place need not survive
    Step, ///< neighbours will be asked for next; pictures before it are kept while the cache has room
    Play, ///< the next pictures follow in order
};

/// Bytes that a server may keep.
struct Limits {
    qsizetype pictures = qsizetype(256) << 20; ///< decoded
    qsizetype packets = qsizetype(192) << 20; ///< as stored; what does not fit is read again when needed
};

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
    virtual bool HasSound() const = 0;
    /// Seconds from the start of the media to picture number; number in [0, KnownFrames).
    virtual double TimeOf(int number) const = 0;
    /// The last picture whose time is at or before seconds (half a tick of grace); 0 before the first.
    virtual int NumberAt(double seconds) const = 0;

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
