#include "imaging/PictureFile.h"

#include "imaging/BmpFile.h"
#include "imaging/Converted.h"
#include "imaging/FormatTable.h"
#include "imaging/MagickCoders.h"
#include "imaging/PictureLimits.h"
#include "imaging/PsdFile.h"

#include <algorithm>
#include <new>

namespace imaging {
namespace {

/// Fewest bytes a picture of this size can take, by the format's best packing of a single colour; a file that
/// claims more pixels than its bytes can hold is refused before any memory is taken for them.
qint64 FewestBytes(const PictureHeader& header)
{
    const qint64 pixels = header.width * header.height;
    switch (header.format) {
    case Png:
        return pixels / 8 / 1032; // one bit per pixel, and the most that deflate can pack
    case Jpg:
        return pixels / 64 / 8; // a bit for each block of 8x8
    case Bmp:
    case DesktopBmp:
    case Tga:
        return pixels / 128 / 8; // runs of up to 255 or 128 pixels
    case Psd:
        return pixels / 8 / 64; // one bit per pixel, runs of 128 bytes in two
    case Gif:
        return pixels / 4096; // the longest string of a code
    case Tif:
        return pixels / MaxSide / 8; // a bit for a white row
    }
    return 0;
}

bool CanBeMade(int format, int bits)
{
    constexpr int bitmapBits = 24;
    if (format == DesktopBmp)
        return bits == bitmapBits;
    return std::ranges::any_of(
        FormatTable, [&](const FormatRow& row) { return row.format == format && row.bits == bits; });
}

/// Carries out a step on a picture of this size; without the memory for it, that is told.
template <typename Step> auto WithinMemory(qint64 width, qint64 height, Step&& step)
{
    try {
        return step();
    } catch (const std::bad_alloc&) {
        throw PictureError(
            QStringLiteral("There is not enough memory for this picture: %1x%2.").arg(width).arg(height));
    }
}

QImage DecodeKnown(const QByteArray& file, FormatCode format)
{
    QImage picture = format == Psd ? PsdFile::Decode(file) : MagickCoders::Decode(file, format);
    CheckPictureSize(picture.width(), picture.height());
    return picture;
}

EncodedFile EncodeKnown(const QImage& picture, FormatCode format, int quality)
{
    if (format == Bmp || format == DesktopBmp)
        return BmpFile::Encode(picture);
    if (format == Psd)
        return EncodedFile(PsdFile::Encode(picture));
    return EncodedFile(MagickCoders::Encode(picture, format, quality));
}

} // namespace

int BitsPerPixel(const QImage& picture)
{
    const qsizetype colours = picture.colorCount();
    if (colours > 0)
        return colours <= 2 ? 1 : colours <= 16 ? 4 : 8;
    return picture.depth();
}

void PictureFile::Initialise()
{
    MagickCoders::Initialise();
}

PictureHeader PictureFile::CheckedHeader(const QByteArray& file)
{
    const PictureHeader header = ReadPictureHeader(file);
    CheckPictureSize(header.width, header.height);
    if (file.size() < FewestBytes(header))
        throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    return header;
}

QImage PictureFile::Decode(const QByteArray& file)
{
    const PictureHeader header = CheckedHeader(file);
    QImage picture =
        WithinMemory(header.width, header.height, [&] { return DecodeKnown(file, header.format); });
    SetAnimated(picture, PagesOf(file) > 1);
    return picture;
}

std::vector<Page> PictureFile::DecodePages(const QByteArray& file, int most)
{
    const PictureHeader header = CheckedHeader(file);
    if (header.format != Gif)
        return { { Converted(Decode(file), QImage::Format_ARGB32), {} } };
    std::vector<Page> pages =
        WithinMemory(header.width, header.height, [&] { return MagickCoders::DecodePages(file, most); });
    for (const Page& page : pages)
        if (page.picture.width() != header.width || page.picture.height() != header.height)
            throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    return pages;
}

EncodedFile PictureFile::Encode(const QImage& picture, int format, int bits, int quality)
{
    if (!CanBeMade(format, bits))
        throw PictureError(
            QStringLiteral("A picture of format %1 cannot have %2 bits.").arg(format).arg(bits));
    CheckPictureSize(picture.width(), picture.height());
    return WithinMemory(
        picture.width(), picture.height(), [&] { return EncodeKnown(picture, FormatCode(format), quality); });
}

EncodedFile PictureFile::EncodeBitmap(const QImage& picture)
{
    CheckPictureSize(picture.width(), picture.height());
    return WithinMemory(picture.width(), picture.height(), [&] { return BmpFile::Encode(picture); });
}

} // namespace imaging
