#include "imaging/PictureHeader.h"

#include "imaging/ByteReader.h"

#include <algorithm>

namespace imaging {
namespace {

using Order = ByteReader::Order;
using Measure = PictureHeader (*)(const QByteArray&);

PictureHeader MeasureBmp(const QByteArray& file)
{
    const ByteReader in(file, Order::Little);
    constexpr quint32 oldHeaderSize = 12;
    if (in.U32(14) == oldHeaderSize)
        return { Bmp, in.U16(18), in.U16(20) };
    const qint64 height = qint32(in.U32(22)); // negative: the highest row first
    return { Bmp, qint32(in.U32(18)), std::abs(height) };
}

PictureHeader MeasureGif(const QByteArray& file)
{
    const ByteReader in(file, Order::Little);
    return { Gif, in.U16(6), in.U16(8) };
}

PictureHeader MeasurePng(const QByteArray& file)
{
    const ByteReader in(file, Order::Big);
    return { Png, in.U32(16), in.U32(20) };
}

PictureHeader MeasurePsd(const QByteArray& file)
{
    const ByteReader in(file, Order::Big);
    return { Psd, in.U32(18), in.U32(14) };
}

/// Walks the segments to the frame header.
PictureHeader MeasureJpg(const QByteArray& file)
{
    const ByteReader in(file, Order::Big);
    for (qint64 at = 2;;) {
        while (in.U8(at) != 0xFF || in.U8(at + 1) == 0xFF)
            ++at;
        const int marker = in.U8(at + 1);
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame)
            return { Jpg, in.U16(at + 7), in.U16(at + 5) };
        const bool isBare = marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8);
        at += isBare ? 2 : 2 + in.U16(at + 2);
    }
}

/// Walks the first directory to the tags of width and height.
PictureHeader MeasureTif(const QByteArray& file)
{
    const ByteReader in(file, file[0] == 'I' ? Order::Little : Order::Big);
    constexpr int widthTag = 256, heightTag = 257, shortType = 3, entrySize = 12;
    PictureHeader header { Tif, 0, 0 };
    const qint64 directory = in.U32(4);
    for (int entry = 0, count = in.U16(directory); entry < count; ++entry) {
        const qint64 at = directory + 2 + qint64(entry) * entrySize;
        const qint64 value = in.U16(at + 2) == shortType ? in.U16(at + 8) : in.U32(at + 8);
        if (in.U16(at) == widthTag)
            header.width = value;
        else if (in.U16(at) == heightTag)
            header.height = value;
    }
    return header;
}

PictureHeader MeasureTga(const QByteArray& file)
{
    const ByteReader in(file, Order::Little);
    return { Tga, in.U16(12), in.U16(14) };
}

struct Signature {
    QByteArrayView bytes;
    Measure measure;
};

const Signature Signatures[] = {
    { "BM", MeasureBmp },
    { "\xFF\xD8\xFF", MeasureJpg },
    { "GIF87a", MeasureGif },
    { "GIF89a", MeasureGif },
    { QByteArrayView("II*\0", 4), MeasureTif },
    { QByteArrayView("MM\0*", 4), MeasureTif },
    { QByteArrayView("\x89PNG\r\n\x1A\n", 8), MeasurePng },
    { QByteArrayView("8BPS\0\1", 6), MeasurePsd },
};

/// The kind without a signature: all fields of its header must make sense together.
bool IsTga(const QByteArray& file)
{
    constexpr int headerSize = 18;
    if (file.size() <= headerSize)
        return false;
    const ByteReader in(file, Order::Little);
    const int colourMap = in.U8(1), type = in.U8(2), mapBits = in.U8(7), bits = in.U8(16),
              attributes = in.U8(17);
    constexpr int types[] = { 1, 2, 3, 9, 10, 11 };
    constexpr int depths[] = { 8, 15, 16, 24, 32 };
    const bool isMapped = type == 1 || type == 9;
    const bool hasGoodMap =
        isMapped ? colourMap == 1 && std::ranges::count(depths, mapBits) == 1 : colourMap <= 1;
    return std::ranges::count(types, type) == 1 && std::ranges::count(depths, bits) == 1 && hasGoodMap
        && (attributes & 0xC0) == 0;
}

} // namespace

PictureHeader ReadPictureHeader(const QByteArray& file)
{
    for (const Signature& signature : Signatures)
        if (file.startsWith(signature.bytes))
            return signature.measure(file);
    if (IsTga(file))
        return MeasureTga(file);
    throw PictureError(QStringLiteral("The file is not a picture of a known kind."));
}

} // namespace imaging
