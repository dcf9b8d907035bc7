#include "media/MediaSource.h"

#include "media/Picture.h"
#include "media/SourceCheck.h"
#include <algorithm>
#include <cstring>
#include <vector>

namespace media {

namespace {

constexpr unsigned MaxStreams = 64;
constexpr size_t MaxAllocation = 536'870'912;
constexpr auto OpenAddressWithin = std::chrono::seconds(15);

bool IsVideo(const AVStream& stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_VIDEO
        && !(stream.disposition & AV_DISPOSITION_ATTACHED_PIC)
        && avcodec_find_decoder(stream.codecpar->codec_id);
}

bool IsAudio(const AVStream& stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

bool IsSound(const AVStream& stream)
{
    return IsAudio(stream) && avcodec_find_decoder(stream.codecpar->codec_id);
}

bool IsCaptions(const AVStream& stream)
{
    return stream.codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE
        && stream.codecpar->codec_id == AV_CODEC_ID_EIA_608;
}

/// The options that keep the size of what a stranger's file may ask for within bounds, one set per stream.
class StreamOptions {
public:
    explicit StreamOptions(unsigned streams)
        : sets_(streams)
    {
        for (AVDictionary*& set : sets_) {
            av_dict_set_int(&set, "max_pixels", MaxPixels, 0);
            av_dict_set(&set, "threads", "1", 0);
        }
    }
    ~StreamOptions()
    {
        for (AVDictionary*& set : sets_)
            av_dict_free(&set);
    }
    StreamOptions(const StreamOptions&) = delete;
    StreamOptions& operator=(const StreamOptions&) = delete;
    AVDictionary** Address() { return sets_.data(); }

private:
    std::vector<AVDictionary*> sets_;
};

} // namespace

MediaSource::MediaSource(const Source& source, Interrupt& interrupt, Track track)
    : source_(source)
    , address_(CheckedAddress(source))
    , interrupt_(interrupt)
    , track_(track)
{
    av_max_alloc(MaxAllocation);
    Open();
}

MediaSource::~MediaSource() = default;

bool MediaSource::IsDue() const
{
    return interrupt_.IsDue() || Interrupt::Clock::now() > openBy_;
}

/// What stood open before stays when the new opening fails: others still ask for its facts.
void MediaSource::Open()
{
    std::unique_ptr<MemoryFile> memory = std::move(memory_);
    FormatPtr format = std::move(format_);
    FilterPtr filter = std::move(filter_);
    const unsigned stream = stream_;
    try {
        OpenAnew();
    } catch (...) {
        openBy_ = Interrupt::Clock::time_point::max();
        filter_ = std::move(filter);
        format_ = std::move(format);
        memory_ = std::move(memory);
        stream_ = stream;
        throw;
    }
}

void MediaSource::OpenAnew()
{
    if (source_.kind == Source::Kind::Address)
        openBy_ = Interrupt::Clock::now() + OpenAddressWithin;
    AVFormatContext* format = avformat_alloc_context();
    if (!format)
        throw MediaError(Failure::TooLarge, "no memory");
    Configure(*format);
    if (source_.kind == Source::Kind::Memory)
        OpenMemory(*format);
    Options options;
    KeepToProtocols(options, source_.kind);
    options.Set("format_whitelist", AllowedFormats(source_.kind).constData());
    if (const int error = avformat_open_input(&format, address_.constData(), nullptr, options.Address());
        error < 0)
        FailToOpen(error);
    format_.reset(format);
    FindStreams();
    ChooseStream();
    MakeFilter();
    openBy_ = Interrupt::Clock::time_point::max();
}

void MediaSource::Configure(AVFormatContext& format)
{
    format.interrupt_callback = EndedBy(*this);
    format.probesize = 5'000'000;
    format.max_analyze_duration = int64_t(5) * AV_TIME_BASE;
    format.max_streams = int(MaxStreams);
}

void MediaSource::OpenMemory(AVFormatContext& format)
{
    memory_ = std::make_unique<MemoryFile>(source_.data);
    format.pb = memory_->Io();
    format.flags |= AVFMT_FLAG_CUSTOM_IO;
}

void MediaSource::FindStreams()
{
    StreamOptions options(format_->nb_streams);
    avformat_find_stream_info(format_.get(), options.Address());
    ThrowIfDue();
}

bool MediaSource::IsOurs(const AVStream& stream) const
{
    switch (track_) {
    case Track::Video:
        return IsVideo(stream);
    case Track::Sound:
        return IsSound(stream);
    case Track::Captions:
        return IsCaptions(stream);
    }
    return false;
}

void MediaSource::ChooseStream()
{
    bool found = false;
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        AVStream& stream = *format_->streams[i];
        const bool isOurs = !found && IsOurs(stream);
        stream.discard = isOurs ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
        if (isOurs)
            stream_ = i;
        found |= isOurs;
    }
    if (!found)
        throw MediaError(Failure::NotAVideo, "no such stream");
    const AVCodecParameters& parameters = *Stream().codecpar;
    if (int64_t(parameters.width) * parameters.height > MaxPixels)
        throw MediaError(
            Failure::TooLarge, std::to_string(parameters.width) + "x" + std::to_string(parameters.height));
}

/// In AVI a packet of MPEG-4 may hold two pictures, which no later step could tell apart.
void MediaSource::MakeFilter()
{
    filter_.reset();
    if (Stream().codecpar->codec_id != AV_CODEC_ID_MPEG4 || !IsAvi())
        return;
    AVBSFContext* filter = nullptr;
    if (av_bsf_alloc(av_bsf_get_by_name("mpeg4_unpack_bframes"), &filter) < 0)
        return;
    filter_.reset(filter);
    avcodec_parameters_copy(filter->par_in, Stream().codecpar);
    filter->time_base_in = Stream().time_base;
    if (av_bsf_init(filter) < 0)
        filter_.reset();
}

PacketPtr MediaSource::ReadFromContainer()
{
    PacketPtr packet(av_packet_alloc());
    for (;;) {
        const int error = av_read_frame(format_.get(), packet.get());
        ThrowIfDue();
        if (error == AVERROR(EAGAIN))
            continue;
        if (error < 0)
            return nullptr;
        if (packet->stream_index == int(stream_) && packet->size > 0)
            return packet;
        av_packet_unref(packet.get());
    }
}

PacketPtr MediaSource::Read()
{
    if (!filter_)
        return ReadFromContainer();
    PacketPtr filtered(av_packet_alloc());
    while (av_bsf_receive_packet(filter_.get(), filtered.get()) < 0) {
        PacketPtr packet = ReadFromContainer();
        if (!packet)
            return nullptr;
        av_bsf_send_packet(filter_.get(), packet.get());
    }
    return filtered;
}

bool MediaSource::SeekTime(int64_t stamp)
{
    if (filter_)
        av_bsf_flush(filter_.get());
    return av_seek_frame(format_.get(), int(stream_), stamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

bool MediaSource::SeekSeconds(double seconds)
{
    if (filter_)
        av_bsf_flush(filter_.get());
    const int guide = Guide();
    const auto stamp = Start() + int64_t(seconds * AV_TIME_BASE);
    return av_seek_frame(format_.get(), guide,
               av_rescale_q(stamp, AV_TIME_BASE_Q, format_->streams[guide]->time_base), AVSEEK_FLAG_BACKWARD)
        >= 0;
}

/// The stream whose index leads to a moment. Matroska has one of the pictures only; by the sound it would be
/// read from its start.
int MediaSource::Guide() const
{
    if (std::strncmp(format_->iformat->name, "matroska", 8) == 0)
        for (unsigned i = 0; i < format_->nb_streams; ++i)
            if (IsVideo(*format_->streams[i]))
                return int(i);
    return int(stream_);
}

bool MediaSource::SeekByte(int64_t position)
{
    if (filter_)
        av_bsf_flush(filter_.get());
    return av_seek_frame(format_.get(), int(stream_), position, AVSEEK_FLAG_BYTE) >= 0;
}

void MediaSource::Rewind()
{
    Open();
}

PacketPtr MediaSource::ReadBytes(int64_t position, int count)
{
    PacketPtr packet(av_packet_alloc());
    if (avio_seek(format_->pb, position, SEEK_SET) < 0
        || av_get_packet(format_->pb, packet.get(), count) != count)
        return nullptr;
    return packet;
}

bool MediaSource::HasStream(bool (*fits)(const AVStream&)) const
{
    return std::any_of(format_->streams, format_->streams + format_->nb_streams,
        [fits](const AVStream* stream) { return fits(*stream); });
}

bool MediaSource::HasSound() const
{
    return HasStream(IsAudio);
}

bool MediaSource::HasCaptions() const
{
    return HasStream(IsCaptions);
}

bool MediaSource::IsAvi() const
{
    return std::strcmp(format_->iformat->name, "avi") == 0;
}

bool MediaSource::IsBareStream() const
{
    constexpr int bare = AVFMT_GENERIC_INDEX | AVFMT_NOTIMESTAMPS;
    return (format_->iformat->flags & bare) == bare;
}

void MediaSource::FailToOpen(int error) const
{
    Failure failure = FailureOf(error, source_.kind);
    if (IsDue())
        failure = Failure::TimedOut;
    else if (error == AVERROR(EINVAL) && source_.kind == Source::Kind::Address)
        failure = Failure::Refused; // a server that sends the asker on to where no server is
    else if (failure == Failure::NotAVideo && source_.kind != Source::Kind::Address
        && LooksLikeVideo(source_))
        failure = Failure::Damaged;
    throw MediaError(failure, DetailOf(error));
}

void MediaSource::ThrowIfDue() const
{
    if (IsDue())
        throw MediaError(Failure::TimedOut, "no answer in time");
}

} // namespace media
