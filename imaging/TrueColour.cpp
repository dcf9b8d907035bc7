#include "imaging/TrueColour.h"

#include "imaging/Converted.h"
#include "imaging/Dither.h"
#include "imaging/Matrix.h"
#include "imaging/Palettes.h"
#include "imaging/PictureFile.h"

#include <algorithm>

namespace imaging {

bool HasPalette(const QImage& picture)
{
    return picture.depth() <= 8;
}

QImage Indexed(const QImage& picture)
{
    return Converted(picture, QImage::Format_Indexed8);
}

std::array<bool, 256> UsedColours(const QImage& indexed)
{
    std::array<bool, 256> isUsed {};
    for (int y = 0; y < indexed.height(); ++y)
        for (const uchar *at = indexed.constScanLine(y), *end = at + indexed.width(); at != end; ++at)
            isUsed[*at] = true;
    return isUsed;
}

QImage WholeBytes(const QImage& picture)
{
    return picture.depth() < 8 ? Indexed(picture) : picture;
}

QImage TrueColour(const QImage& picture)
{
    switch (picture.format()) {
    case QImage::Format_BGR888:
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        return picture;
    default:
        return Converted(picture, picture.depth() == 32 ? QImage::Format_ARGB32 : QImage::Format_BGR888);
    }
}

QImage AtDepthOf(const QImage& picture, const QImage& result)
{
    if (HasPalette(result))
        return result;
    if (!HasPalette(picture))
        return Converted(result, picture.format());
    const int bits = BitsPerPixel(picture);
    return WithWholePalette(Dithered(result, OptimizedPalette(result, 1 << bits), Dithering::None), bits);
}

QImage Mixable(const QImage& picture)
{
    return picture.hasAlphaChannel() ? Converted(picture, QImage::Format_ARGB32_Premultiplied)
                                     : TrueColour(picture);
}

QImage Unmixed(QImage mixed)
{
    if (!mixed.hasAlphaChannel())
        return mixed;
    for (int y = 0; y < mixed.height();
         ++y) // a curve can overshoot, but no colour shows more than the whole pixel
        for (uchar *at = mixed.scanLine(y), *end = at + qsizetype(4) * mixed.width(); at != end; at += 4)
            for (int channel = 0; channel < 3; ++channel)
                at[channel] = std::min(at[channel], at[3]);
    return Converted(mixed, QImage::Format_ARGB32);
}

QImage LikePicture(const QImage& picture, QSize size)
{
    QImage result = NewPicture(size, picture.format());
    result.setColorTable(picture.colorTable());
    return result;
}

} // namespace imaging
