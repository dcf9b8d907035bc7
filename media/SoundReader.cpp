#include "media/Sound.h"

#include "media/LibraryTalk.h"
#include "media/MediaSource.h"
#include "media/StampLine.h"
#include <algorithm>
#include <utility>

namespace media {

namespace {

constexpr double RunUp = 0.1; // seconds; decoders of sound need some packets to get going
constexpr int SeekAttempts = 6;
constexpr double Second = 1; // of the stamps' line

/// Converts what the decoder gives, which may change in the middle of a file.
class Converter {
public:
    Converter() = default;
    ~Converter() { av_channel_layout_uninit(&layout_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    Samples Convert(const AVFrame& frame)
    {
        if (!Fits(frame))
            Build(frame);
        Samples samples(std::size_t(swr_get_out_samples(swr_.get(), frame.nb_samples)) * SoundChannels);
        auto* target = reinterpret_cast<uint8_t*>(samples.data());
        const int count = swr_convert(swr_.get(), &target, int(FramesIn(samples)),
            const_cast<const uint8_t**>(frame.extended_data), frame.nb_samples);
        samples.resize(std::size_t(std::max(count, 0)) * SoundChannels);
        return samples;
    }
    /// Seconds that the next samples come late.
    double Delay() const { return swr_ ? double(swr_get_delay(swr_.get(), SoundRate)) / SoundRate : 0; }
    void Forget() { swr_.reset(); }

private:
    bool Fits(const AVFrame& frame) const
    {
        return swr_ && frame.format == format_ && frame.sample_rate == rate_
            && av_channel_layout_compare(&frame.ch_layout, &layout_) == 0;
    }
    void Build(const AVFrame& frame)
    {
        format_ = frame.format;
        rate_ = frame.sample_rate;
        if (av_channel_layout_copy(&layout_, &frame.ch_layout) < 0)
            throw MediaError(Failure::TooLarge, "no memory");
        AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
        AVChannelLayout layout = layout_; // borrowed
        if (layout.order == AV_CHANNEL_ORDER_UNSPEC)
            av_channel_layout_default(&layout, layout_.nb_channels);
        SwrContext* swr = nullptr;
        const int error = swr_alloc_set_opts2(
            &swr, &stereo, AV_SAMPLE_FMT_FLT, SoundRate, &layout, AVSampleFormat(format_), rate_, 0, nullptr);
        swr_.reset(swr);
        if (error < 0 || swr_init(swr) < 0)
            throw MediaError(Failure::Damaged, "no way to convert the sound");
    }

    ResamplerPtr swr_;
    int format_ = -1;
    int rate_ = 0;
    AVChannelLayout layout_ {};
};

class FileReader : public SoundReader {
public:
    FileReader(const Source& source, Interrupt& interrupt, std::optional<double> start)
        : media_(source, interrupt, MediaSource::Track::Sound)
        , start_(start.value_or(double(media_.Start()) / AV_TIME_BASE))
    {
        const AVCodec* codec = avcodec_find_decoder(media_.Stream().codecpar->codec_id);
        codec_.reset(avcodec_alloc_context3(codec));
        if (!codec_)
            throw MediaError(Failure::TooLarge, "no memory");
        avcodec_parameters_to_context(codec_.get(), media_.Stream().codecpar);
        codec_->pkt_timebase = media_.Stream().time_base;
        if (const int error = avcodec_open2(codec_.get(), codec, nullptr); error < 0)
            throw MediaError(Failure::Damaged, DetailOf(error));
    }

    void Seek(double seconds) override
    {
        if (std::exchange(isFresh_, false) && seconds <= RunUp)
            return;
        double back = RunUp;
        for (int attempt = 0; attempt < SeekAttempts; ++attempt, back = std::max(2 * back, 1.0)) {
            Restart();
            if (!media_.SeekSeconds(std::max(seconds - back, 0.0)))
                break;
            held_ = Decode();
            if (held_ && held_->start <= seconds)
                return;
            if (back >= seconds)
                break;
        }
        Restart();
        media_.Rewind();
    }

    std::optional<SoundBlock> Read() override
    {
        isFresh_ = false;
        return held_ ? std::exchange(held_, std::nullopt) : Decode();
    }

private:
    void Restart()
    {
        held_.reset();
        avcodec_flush_buffers(codec_.get());
        converter_.Forget();
        isDrained_ = false;
        end_.reset();
        line_ = StampLine<double>(Second);
    }

    std::optional<SoundBlock> Decode()
    {
        const FramePtr frame(av_frame_alloc());
        while (avcodec_receive_frame(codec_.get(), frame.get()) < 0)
            if (!Feed())
                return std::nullopt;
        return BlockOf(*frame);
    }

    bool Feed()
    {
        if (isDrained_)
            return false;
        const PacketPtr packet = media_.Read();
        isDrained_ = !packet;
        avcodec_send_packet(codec_.get(), packet.get()); // damage costs its packet only
        return true;
    }

    SoundBlock BlockOf(const AVFrame& frame)
    {
        const double delay = converter_.Delay();
        const double start = TimeOf(frame);
        end_ = start + double(frame.nb_samples) / std::max(frame.sample_rate, 1);
        return { start - delay, converter_.Convert(frame) };
    }

    double TimeOf(const AVFrame& frame)
    {
        if (frame.best_effort_timestamp == AV_NOPTS_VALUE)
            return end_.value_or(0);
        const double stamp = double(frame.best_effort_timestamp) * av_q2d(media_.Stream().time_base) - start_;
        return end_ ? line_.TimeOf(stamp, *end_, *end_) : line_.TimeOf(stamp);
    }

    MediaSource media_;
    double start_; ///< what the clock of the stamps shows at the start of the media
    CodecPtr codec_;
    Converter converter_;
    std::optional<SoundBlock> held_; ///< read to see where a seek led
    std::optional<double> end_; ///< of the block before
    StampLine<double> line_ { Second };
    bool isDrained_ = false;
    bool isFresh_ = true; ///< at the first packet
};

} // namespace

std::unique_ptr<SoundReader> SoundReader::Open(
    const Source& source, Interrupt& interrupt, std::optional<double> start)
{
    LibraryTalk::Silence();
    return std::make_unique<FileReader>(source, interrupt, start);
}

} // namespace media
