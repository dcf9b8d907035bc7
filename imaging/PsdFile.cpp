#include "imaging/PsdFile.h"

#include "imaging/ByteReader.h"
#include "imaging/Converted.h"
#include "imaging/Matrix.h"

#include <QtEndian>

#include <opencv2/core.hpp>

#include <algorithm>
#include <cstring>
#include <vector>

namespace imaging::PsdFile {
namespace {

enum Mode { Bitmap = 0, Grey = 1, Indexed = 2, Rgb = 3, Cmyk = 4, Duotone = 8 };
enum Packing { Plain = 0, RunLength = 1 };

struct Head {
    int channels;
    int width;
    int height;
    int depth;
    int mode;
    qint64 palette; ///< where the colour mode's data stand
    qint64 paletteSize;
    qint64 picture; ///< where the packing and the planes stand

    int Planes() const { return mode == Rgb ? 3 : mode == Cmyk ? 4 : 1; }
    qint64 RowBytes() const { return (qint64(width) * depth + 7) / 8; }
};

[[noreturn]] void RefuseKind(const QString& kind)
{
    throw PictureError(QStringLiteral("This kind of PSD picture is not supported: %1.").arg(kind));
}

void CheckKind(const Head& head)
{
    constexpr int modes[] = { Bitmap, Grey, Indexed, Rgb, Cmyk, Duotone };
    if (std::ranges::count(modes, head.mode) == 0)
        RefuseKind(QStringLiteral("colour mode %1").arg(head.mode));
    const bool isGoodDepth = head.mode == Bitmap ? head.depth == 1 : head.depth == 8 || head.depth == 16;
    if (!isGoodDepth || (head.mode == Indexed && head.depth != 8))
        RefuseKind(QStringLiteral("%1 bits per channel").arg(head.depth));
    if (head.channels < head.Planes())
        RefuseKind(QStringLiteral("%1 channels").arg(head.channels));
}

Head ReadHead(const ByteReader& in)
{
    constexpr qint64 sections = 26;
    Head head {};
    head.channels = in.U16(12);
    head.height = int(in.U32(14));
    head.width = int(in.U32(18));
    head.depth = in.U16(22);
    head.mode = in.U16(24);
    head.paletteSize = in.U32(sections);
    head.palette = sections + 4;
    const qint64 resources = head.palette + head.paletteSize;
    const qint64 layers = resources + 4 + in.U32(resources);
    head.picture = layers + 4 + in.U32(layers);
    CheckKind(head);
    return head;
}

/// Unpacks one row: a count from 0 copies the next count + 1 bytes, one below 0 repeats the next byte 1 -
/// count times, -128 does nothing.
void UnpackRow(QByteArrayView packed, char* row, qint64 rowBytes)
{
    const ByteReader in(packed, ByteReader::Order::Big);
    qint64 done = 0;
    for (qint64 at = 0; done < rowBytes;) {
        const int code = in.U8(at++);
        const int count = code < 128 ? code : code - 256;
        if (count == -128)
            continue;
        const qint64 length = std::min<qint64>(count >= 0 ? count + 1 : 1 - count, rowBytes - done);
        if (count >= 0) {
            std::memcpy(row + done, in.Bytes(at, length).data(), size_t(length));
            at += count + 1;
        } else {
            std::memset(row + done, in.U8(at++), size_t(length));
        }
        done += length;
    }
}

using Planes = std::vector<QByteArray>;

Planes ReadPlain(const ByteReader& in, const Head& head)
{
    const qint64 planeBytes = head.RowBytes() * head.height;
    Planes planes;
    for (int plane = 0; plane < head.Planes(); ++plane)
        planes.push_back(in.Bytes(head.picture + 2 + plane * planeBytes, planeBytes).toByteArray());
    return planes;
}

Planes ReadRunLength(const ByteReader& in, const Head& head)
{
    const qint64 counts = head.picture + 2;
    qint64 at = counts + 2 * qint64(head.channels) * head.height;
    in.Bytes(counts, at - counts);
    Planes planes;
    for (int plane = 0; plane < head.Planes(); ++plane) {
        QByteArray& rows = planes.emplace_back(head.RowBytes() * head.height, Qt::Uninitialized);
        for (int y = 0; y < head.height; ++y) {
            const int packed = in.U16(counts + 2 * (qint64(plane) * head.height + y));
            UnpackRow(in.Bytes(at, packed), rows.data() + y * head.RowBytes(), head.RowBytes());
            at += packed;
        }
    }
    return planes;
}

Planes ReadPlanes(const ByteReader& in, const Head& head)
{
    switch (in.U16(head.picture)) {
    case Plain:
        return ReadPlain(in, head);
    case RunLength:
        return ReadRunLength(in, head);
    }
    RefuseKind(QStringLiteral("packing %1").arg(in.U16(head.picture)));
}

/// One sample of a plane as 8 bits; of 16 bits the upper half, which comes first.
class Samples {
public:
    Samples(const Planes& planes, const Head& head)
        : planes_(planes)
        , step_(head.depth / 8)
        , width_(head.width)
    {
    }
    int At(int plane, int x, int y) const
    {
        return uchar(planes_[size_t(plane)][(qint64(y) * width_ + x) * step_]);
    }

private:
    const Planes& planes_;
    int step_;
    int width_;
};

QImage BlackAndWhite(const Planes& planes, const Head& head)
{
    QImage picture = NewPicture({ head.width, head.height }, QImage::Format_Mono);
    picture.setColorTable({ qRgb(255, 255, 255), qRgb(0, 0, 0) });
    for (int y = 0; y < head.height; ++y)
        std::memcpy(
            picture.scanLine(y), planes[0].constData() + y * head.RowBytes(), size_t(head.RowBytes()));
    return picture;
}

QList<QRgb> Colours(const ByteReader& in, const Head& head)
{
    QList<QRgb> colours(256);
    const bool isGrey = head.mode != Indexed;
    if (!isGrey && head.paletteSize < 768)
        throw PictureError(QStringLiteral("The picture is damaged or incomplete."));
    for (int i = 0; i < 256; ++i)
        colours[i] = isGrey
            ? qRgb(i, i, i)
            : qRgb(in.U8(head.palette + i), in.U8(head.palette + 256 + i), in.U8(head.palette + 512 + i));
    return colours;
}

QImage Paletted(const Planes& planes, const Head& head, const QList<QRgb>& colours)
{
    QImage picture = NewPicture({ head.width, head.height }, QImage::Format_Indexed8);
    picture.setColorTable(colours);
    const Samples samples(planes, head);
    for (int y = 0; y < head.height; ++y) {
        uchar* row = picture.scanLine(y);
        for (int x = 0; x < head.width; ++x)
            row[x] = uchar(samples.At(0, x, y));
    }
    return picture;
}

QImage TrueColour(const Planes& planes, const Head& head)
{
    QImage picture = NewPicture({ head.width, head.height }, QImage::Format_BGR888);
    const Samples samples(planes, head);
    for (int y = 0; y < head.height; ++y) {
        uchar* pixel = picture.scanLine(y);
        for (int x = 0; x < head.width; ++x, pixel += 3) {
            const int light =
                head.mode == Cmyk ? samples.At(3, x, y) : 255; // ink is stored as the light it leaves
            for (int plane = 0; plane < 3; ++plane)
                pixel[2 - plane] = uchar((samples.At(plane, x, y) * light + 127) / 255);
        }
    }
    return picture;
}

template <typename T> void Append(QByteArray& bytes, T number)
{
    number = qToBigEndian(number);
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

} // namespace

QImage Decode(const QByteArray& file)
{
    const ByteReader in(file, ByteReader::Order::Big);
    const Head head = ReadHead(in);
    const Planes planes = ReadPlanes(in, head);
    if (head.mode == Bitmap)
        return BlackAndWhite(planes, head);
    if (head.Planes() == 1)
        return Paletted(planes, head, Colours(in, head));
    return TrueColour(planes, head);
}

QByteArray Encode(const QImage& picture)
{
    const QImage pixels = Converted(picture, QImage::Format_BGR888);
    QByteArray file;
    file.reserve(40 + qsizetype(pixels.width()) * pixels.height() * 3);
    file.append("8BPS\0\1\0\0\0\0\0\0", 12);
    Append<quint16>(file, 3);
    Append<quint32>(file, quint32(pixels.height()));
    Append<quint32>(file, quint32(pixels.width()));
    Append<quint16>(file, 8);
    Append<quint16>(file, Rgb);
    file.append(qsizetype(12), '\0'); // no palette, no resources, no layers
    Append<quint16>(file, Plain);

    const qsizetype start = file.size();
    const qsizetype planeBytes = qsizetype(pixels.width()) * pixels.height();
    file.resize(start + 3 * planeBytes);
    const cv::Mat from(pixels.height(), pixels.width(), CV_8UC3, const_cast<uchar*>(pixels.constBits()),
        size_t(pixels.bytesPerLine()));
    for (int plane = 0; plane < 3; ++plane) {
        cv::Mat to(pixels.height(), pixels.width(), CV_8UC1, file.data() + start + plane * planeBytes);
        cv::extractChannel(from, to, 2 - plane);
    }
    return file;
}

} // namespace imaging::PsdFile
