#pragma once

#include "media/Interrupt.h"
#include "media/Libav.h"
#include "media/MemoryFile.h"
#include "media/Source.h"

namespace media {

/// One reader of a source's packets of one stream, in the order they are stored. Opening and every read end
/// when the interrupt is due.
class MediaSource {
public:
    /// Which stream is read: the first of its kind that can be decoded. Captions are those of line 21.
    enum class Track { Video, Sound, Captions };

    /// Opens the source and finds its stream. Throws MediaError.
    MediaSource(const Source& source, Interrupt& interrupt, Track track = Track::Video);
    ~MediaSource();
    MediaSource(const MediaSource&) = delete;
    MediaSource& operator=(const MediaSource&) = delete;

    /// The next packet of the stream; null at the end of the file. A place that cannot be read counts as the
    /// end. Throws MediaError when the interrupt is due.
    PacketPtr Read();
    /// Places the reader at a key packet at or before the time stamp (stream time base); false when it
    /// cannot.
    bool SeekTime(int64_t stamp);
    /// Places the reader at or before a moment, counted from the start of the media; false when it cannot.
    bool SeekSeconds(double seconds);
    /// Places the reader at or near a byte of the file; false when it cannot.
    bool SeekByte(int64_t position);
    /// Places the reader at the first packet by opening the source again. Throws MediaError.
    void Rewind();
    /// count bytes of the file at a position, for streams without a container; null when they cannot be had.
    PacketPtr ReadBytes(int64_t position, int count);

    const AVStream& Stream() const { return *format_->streams[stream_]; }
    /// Whether packets that hold two pictures are split on the way.
    bool IsUnpacked() const { return filter_ != nullptr; }
    /// The codec parameters of the packets that Read gives.
    const AVCodecParameters& Parameters() const { return filter_ ? *filter_->par_out : *Stream().codecpar; }
    const AVFormatContext& Format() const { return *format_; }
    bool HasSound() const;
    /// Whether captions stand in a track of their own.
    bool HasCaptions() const;
    /// Whether the container can say when a packet's picture is shown.
    bool HasPresentationStamps() const { return !IsAvi(); }
    /// Stamp of the media's first moment, in microseconds.
    int64_t Start() const { return format_->start_time == AV_NOPTS_VALUE ? 0 : format_->start_time; }
    /// A bare stream without container and time stamps, whose packets lie one after the other.
    bool IsBareStream() const;
    /// Whether what the library is doing must end: the interrupt is due, or the opening takes too long.
    bool IsDue() const;

private:
    void Open();
    void OpenAnew();
    void Configure(AVFormatContext& format);
    void OpenMemory(AVFormatContext& format);
    void FindStreams();
    void ChooseStream();
    bool HasStream(bool (*fits)(const AVStream&)) const;
    bool IsOurs(const AVStream& stream) const;
    int Guide() const;
    void MakeFilter();
    bool IsAvi() const;
    PacketPtr ReadFromContainer();
    [[noreturn]] void FailToOpen(int error) const;
    void ThrowIfDue() const;

    Source source_;
    QByteArray address_;
    Interrupt& interrupt_;
    Track track_;
    Interrupt::Clock::time_point openBy_ = Interrupt::Clock::time_point::max();
    std::unique_ptr<MemoryFile> memory_;
    FormatPtr format_;
    FilterPtr filter_;
    unsigned stream_ = 0;
};

} // namespace media
