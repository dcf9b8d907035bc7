#include "media/Decoder.h"

#include "media/Failure.h"
#include "media/Picture.h"
#include <algorithm>
#include <cstring>
#include <thread>

namespace media {

namespace {

constexpr unsigned MostThreads = 8;
constexpr int SmallPicture = 320 * 240; ///< pixels below which threads cost more than they gain

/// In these codecs the decoder itself never refers to a picture that is marked as not needed. MPEG-4 is one
/// of them only where each packet holds one picture.
bool KeepsUnneededApart(AVCodecID codec, bool isUnpacked)
{
    if (codec == AV_CODEC_ID_MPEG4)
        return isUnpacked;
    constexpr AVCodecID safe[] = { AV_CODEC_ID_H264, AV_CODEC_ID_MPEG1VIDEO, AV_CODEC_ID_MPEG2VIDEO };
    return std::find(std::begin(safe), std::end(safe), codec) != std::end(safe);
}

/// Called on the codec's threads.
int GiveBuffer(AVCodecContext* context, AVFrame* frame, int flags)
{
    const int result = avcodec_default_get_buffer2(context, frame, flags);
    if (result < 0 || !static_cast<const DamageWatch*>(context->opaque)->isBlanking)
        return result;
    for (const AVBufferRef* buffer : frame->buf)
        if (buffer)
            std::memset(buffer->data, 0, buffer->size);
    return result;
}

/// The library calls GiveBuffer on its own threads only where it is told that this may be.
void AttachWatch(AVCodecContext& context, DamageWatch& watch)
{
    context.opaque = &watch;
    context.get_buffer2 = &GiveBuffer;
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    context.thread_safe_callbacks = 1;
    QT_WARNING_POP
}

} // namespace

Decoder::Decoder(const AVStream& stream, const AVCodecParameters& parameters, bool isUnpacked)
    : canDrop_(KeepsUnneededApart(parameters.codec_id, isUnpacked))
{
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    context_.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!context_)
        throw MediaError(Failure::NotAVideo, "no decoder");
    avcodec_parameters_to_context(context_.get(), &parameters);
    context_->pkt_timebase = stream.time_base;
    context_->max_pixels = MaxPixels;
    AttachWatch(*context_, watch_);
    const bool isSmall = parameters.width * parameters.height <= SmallPicture;
    context_->thread_count =
        isSmall ? 1 : int(std::clamp(std::thread::hardware_concurrency(), 1U, MostThreads));
    if (const int error = avcodec_open2(context_.get(), codec, nullptr); error < 0)
        throw MediaError(Failure::Damaged, DetailOf(error));
}

void Decoder::Restart()
{
    avcodec_flush_buffers(context_.get());
    while (Receive()) { }
    watch_.isPatched = false;
}

bool Decoder::ExpectDamage()
{
    if (watch_.isBlanking.exchange(true))
        return false;
    context_->execute = &avcodec_default_execute;
    context_->execute2 = &avcodec_default_execute2;
    return true;
}

void Decoder::Send(const AVPacket& packet, int ordinal)
{
    const PacketPtr tagged = CloneOf(packet);
    tagged->pts = tagged->dts = ordinal;
    // Damage costs the packet's picture only. A packet that is not taken would be lost unseen.
    if (avcodec_send_packet(context_.get(), tagged.get()) == AVERROR(EAGAIN))
        throw MediaError(Failure::Damaged, "pictures were not received before the next packet");
}

void Decoder::Drain()
{
    avcodec_send_packet(context_.get(), nullptr);
}

FramePtr Decoder::Receive()
{
    FramePtr frame(av_frame_alloc());
    return avcodec_receive_frame(context_.get(), frame.get()) >= 0 ? std::move(frame) : nullptr;
}

} // namespace media
