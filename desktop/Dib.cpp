#include "desktop/Dib.h"

#include <cstring>
#include <new>

namespace {

/// BITMAPINFOHEADER, little-endian as on every machine the program runs on.
struct Header {
    quint32 headerSize = 40;
    qint32 width = 0;
    qint32 height = 0; // positive: the lowest row first
    quint16 planes = 1;
    quint16 bits = 24;
    quint32 compression = 0;
    quint32 imageBytes = 0;
    qint32 horizontalPixelsPerMetre = 0;
    qint32 verticalPixelsPerMetre = 0;
    quint32 coloursUsed = 0;
    quint32 coloursImportant = 0;
};
static_assert(sizeof(Header) == 40);
static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

qsizetype Stride(int width)
{
    return (qsizetype(width) * 3 + 3) / 4 * 4;
}

} // namespace

Dib Dib::FromImage(const QImage& image)
{
    Dib dib;
    if (image.isNull())
        return dib;
    const QImage pixels = image.convertToFormat(QImage::Format_BGR888);
    if (pixels.isNull())
        throw std::bad_alloc();
    const qsizetype stride = Stride(pixels.width());
    Header header;
    header.width = pixels.width();
    header.height = pixels.height();
    header.imageBytes = quint32(stride * pixels.height());
    dib.block_ = QByteArray(qsizetype(sizeof header) + stride * pixels.height(), Qt::Uninitialized);
    std::memcpy(dib.block_.data(), &header, sizeof header);
    char* rows = dib.block_.data() + sizeof header;
    const size_t used = size_t(pixels.width()) * 3;
    for (int y = 0; y < pixels.height(); ++y) {
        char* row = rows + stride * (pixels.height() - 1 - y);
        std::memcpy(row, pixels.constScanLine(y), used);
        std::memset(row + used, 0, size_t(stride) - used);
    }
    return dib;
}

QImage Dib::ToImage() const
{
    Header header;
    if (block_.size() < qsizetype(sizeof header))
        return {};
    std::memcpy(&header, block_.constData(), sizeof header);
    const bool ours = header.headerSize == sizeof header && header.bits == 24 && header.compression == 0
        && header.width > 0 && header.height > 0;
    if (!ours || block_.size() - qsizetype(sizeof header) < Stride(header.width) * header.height)
        return {};
    QImage image(header.width, header.height, QImage::Format_BGR888);
    if (image.isNull())
        return {}; // there is no memory for it
    const char* rows = block_.constData() + sizeof header;
    for (int y = 0; y < header.height; ++y)
        std::memcpy(image.scanLine(y), rows + Stride(header.width) * (header.height - 1 - y),
            size_t(header.width) * 3);
    return image;
}
