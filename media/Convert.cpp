#include "media/DecodedFrame.h"
#include "media/Picture.h"
#include "media/QuickStill.h"
#include <algorithm>
#include <cmath>

namespace media {

namespace {

constexpr int LargestSide = 32767;
constexpr int LastLineOfStandardTelevision = 576;
constexpr int RowAlignment = 64; ///< the scaler writes whole vectors

struct Target {
    AVPixelFormat pixels;
    QImage::Format format;
};
constexpr Target StillTarget { AV_PIX_FMT_BGR24, QImage::Format_BGR888 };
constexpr Target ScreenTarget { AV_PIX_FMT_BGRA, QImage::Format_RGB32 };

size_t BytesOf(AVPixelFormat pixels, QSize size)
{
    const int bytes = av_image_get_buffer_size(pixels, size.width(), size.height(), RowAlignment);
    return bytes > 0 ? size_t(bytes) + RowAlignment : 0;
}

/// Rows aligned and padded for the scaler; the block goes back to its pool with the last copy of the image.
QImage AlignedImage(QSize size, const Target& target, BufferPool& pool)
{
    BufferPool::Block block = pool.Take(BytesOf(target.pixels, size));
    if (!block)
        return {};
    const int rowBytes = FFALIGN(av_image_get_linesize(target.pixels, size.width(), 0), RowAlignment);
    const auto giveBack = [](void* info) { BufferPool::Block(static_cast<AVBufferRef*>(info)); };
    uchar* const rows = block->data;
    return QImage(rows, size.width(), size.height(), rowBytes, target.format, giveBack, block.release());
}

int MatrixOf(const AVFrame& frame)
{
    switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
        return SWS_CS_ITU709;
    case AVCOL_SPC_FCC:
        return SWS_CS_FCC;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return SWS_CS_ITU601;
    case AVCOL_SPC_SMPTE240M:
        return SWS_CS_SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return SWS_CS_BT2020;
    default:
        return frame.height <= LastLineOfStandardTelevision ? SWS_CS_ITU601 : SWS_CS_ITU709;
    }
}

struct FullRangeName {
    AVPixelFormat full;
    AVPixelFormat plain;
};
constexpr FullRangeName FullRangeNames[] = {
    { AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUV420P },
    { AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUV422P },
    { AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUV444P },
    { AV_PIX_FMT_YUVJ440P, AV_PIX_FMT_YUV440P },
    { AV_PIX_FMT_YUVJ411P, AV_PIX_FMT_YUV411P },
};

/// The format without its range, which the frame's own tag or the format's name tells.
AVPixelFormat PlainFormat(const AVFrame& frame)
{
    for (const FullRangeName& name : FullRangeNames)
        if (name.full == frame.format)
            return name.plain;
    return AVPixelFormat(frame.format);
}

bool IsFullRange(const AVFrame& frame)
{
    return frame.color_range == AVCOL_RANGE_JPEG || PlainFormat(frame) != frame.format;
}

ScalerKind KindFor(const AVFrame& frame, QSize size, AVPixelFormat target, int flags)
{
    return { frame.width, frame.height, PlainFormat(frame), size.width(), size.height(), target, flags,
        MatrixOf(frame), IsFullRange(frame) };
}

/// The frame in another size and format; null when there is no memory for it.
QImage Scaled(
    const AVFrame& frame, QSize size, const Target& target, int flags, BufferPool& pool, ScalerPool& scalers)
{
    QImage image = AlignedImage(size, target, pool);
    if (image.isNull())
        return {};
    // An odd width takes the scaler's slow road, up to five times the time. For the screen the padding of the
    // rows takes the column that makes it even.
    const int width = target.pixels == ScreenTarget.pixels ? FFALIGN(size.width(), 2) : size.width();
    uint8_t* rows[] = { image.bits(), nullptr, nullptr, nullptr };
    const int strides[] = { int(image.bytesPerLine()), 0, 0, 0 };
    const bool isDone =
        scalers.With(KindFor(frame, { width, size.height() }, target.pixels, flags), [&](SwsContext& scaler) {
            sws_scale(&scaler, frame.data, frame.linesize, 0, frame.height, rows, strides);
        });
    return isDone ? image : QImage();
}

/// A frame of three planes for colours; null when there is no memory for it.
FramePtr PlanarFrame(QSize size, BufferPool& pool)
{
    BufferPool::Block block = pool.Take(BytesOf(AV_PIX_FMT_GBRP, size));
    FramePtr planes(av_frame_alloc());
    if (!block || !planes)
        return nullptr;
    planes->format = AV_PIX_FMT_GBRP;
    planes->width = size.width();
    planes->height = size.height();
    av_image_fill_arrays(planes->data, planes->linesize, block->data, AV_PIX_FMT_GBRP, size.width(),
        size.height(), RowAlignment);
    planes->buf[0] = block.release();
    return planes;
}

QImage StillByQuickRoad(const AVFrame& frame, QSize size, PictureMemory& memory)
{
    QImage image = AlignedImage(size, StillTarget, memory.stills);
    if (!image.isNull())
        QuickStill::Write(frame, sws_getCoefficients(MatrixOf(frame)), IsFullRange(frame), image.bits(),
            int(image.bytesPerLine()));
    return image;
}

/// Colour between the stored samples is interpolated both ways. The scaler has a fast road for that to
/// separate planes only: over them it takes a sixth of the time of the straight way.
QImage Still(const AVFrame& frame, QSize size, PictureMemory& memory)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    constexpr int best = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT;
    if (!format || format->flags & AV_PIX_FMT_FLAG_RGB)
        return Scaled(frame, size, StillTarget, best, memory.stills, memory.scalers);
    if (QuickStill::CanTake(frame, size))
        return StillByQuickRoad(frame, size, memory);
    const FramePtr planes = PlanarFrame(size, memory.planes);
    const auto scale = [&](SwsContext& scaler) {
        sws_scale(&scaler, frame.data, frame.linesize, 0, frame.height, planes->data, planes->linesize);
    };
    if (!planes || !memory.scalers.With(KindFor(frame, size, AV_PIX_FMT_GBRP, best), scale))
        return {};
    return Scaled(*planes, size, StillTarget, SWS_POINT, memory.stills, memory.scalers);
}

/// Size in square pixels before any turn: the stored height, the width by the pixels' aspect.
QSize SquareSize(const DecodedFrame& decoded)
{
    const AVRational aspect = decoded.pixelAspect;
    const double factor = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1.0;
    const int width = int(std::lround(std::min(decoded.frame->width * factor, double(LargestSide))));
    return { std::max(width, 1), decoded.frame->height };
}

bool SwapsSides(const QTransform& turn)
{
    return std::abs(turn.m12()) > std::abs(turn.m11());
}

QImage Turned(const QImage& image, const QTransform& turn, QImage::Format format)
{
    return turn.isIdentity() ? image : image.transformed(turn).convertToFormat(format);
}

} // namespace

QSize Picture::Size() const
{
    if (IsNull())
        return {};
    const QSize size = SquareSize(*frame_);
    return SwapsSides(frame_->turn) ? size.transposed() : size;
}

qsizetype Picture::Bytes() const
{
    qsizetype bytes = 0;
    if (!IsNull())
        for (const AVBufferRef* buffer : frame_->frame->buf)
            bytes += buffer ? qsizetype(buffer->size) : 0;
    return bytes;
}

QImage Picture::ToStill() const
{
    if (IsNull())
        return {};
    return Turned(
        Still(*frame_->frame, SquareSize(*frame_), *frame_->memory), frame_->turn, StillTarget.format);
}

QImage Picture::ToScreen(QSize size) const
{
    if (IsNull() || size.isEmpty())
        return {};
    const QSize unturned = SwapsSides(frame_->turn) ? size.transposed() : size;
    const bool isHalfOrLess = unturned.width() * 2 <= frame_->frame->width;
    const QImage image = Scaled(*frame_->frame, unturned, ScreenTarget,
        isHalfOrLess ? SWS_AREA : SWS_BILINEAR, frame_->memory->screens, frame_->memory->scalers);
    return Turned(image, frame_->turn, ScreenTarget.format);
}

} // namespace media
