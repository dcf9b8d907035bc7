#include "imaging/ColorResolution.h"

#include "imaging/Converted.h"
#include "imaging/Palettes.h"
#include "imaging/PictureError.h"

#include <algorithm>

namespace imaging {
namespace {

struct DirectRow {
    int bits;
    PaletteKind order;
    QImage::Format format;
};

constexpr DirectRow DirectRows[] = {
    { 16, PaletteKind::OrderRgb, QImage::Format_RGB16 },
    { 16, PaletteKind::OrderBgr, QImage::Format_RGB16 },
    { 24, PaletteKind::OrderRgb, QImage::Format_RGB888 },
    { 24, PaletteKind::OrderBgr, QImage::Format_BGR888 },
    { 32, PaletteKind::OrderRgb, QImage::Format_RGBA8888 },
    { 32, PaletteKind::OrderBgr, QImage::Format_ARGB32 },
};

QList<QRgb> PaletteFor(const QImage& picture, int bits, PaletteKind kind, int colours)
{
    const int all = 1 << bits;
    switch (kind) {
    case PaletteKind::Fixed:
        return FixedPalette(bits);
    case PaletteKind::Optimized:
        return OptimizedPalette(picture, colours == 0 ? all : std::clamp(colours, 2, all));
    case PaletteKind::Identity:
        return IdentityPalette(picture, bits);
    case PaletteKind::OrderRgb:
    case PaletteKind::OrderBgr:
        break;
    }
    throw PictureError(QStringLiteral("A picture of %1 bits has no order of bytes.").arg(bits));
}

} // namespace

QImage WithColorResolution(const QImage& picture, int bits, PaletteKind palette, Dithering dithering,
    int colours, const Progress& progress)
{
    if (bits == 1 || bits == 4 || bits == 8) {
        const QList<QRgb> shown = PaletteFor(picture, bits, palette, colours);
        return WithWholePalette(Dithered(picture, shown, dithering, progress), bits);
    }
    const DirectRow* row = std::ranges::find_if(
        DirectRows, [&](const DirectRow& one) { return one.bits == bits && one.order == palette; });
    if (row == std::end(DirectRows))
        throw PictureError(QStringLiteral("A picture cannot have %1 bits in this order.").arg(bits));
    return Converted(picture, row->format);
}

} // namespace imaging
