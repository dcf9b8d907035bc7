#include "imaging/Palettes.h"

namespace imaging {
namespace {

constexpr QRgb Black = 0xff000000;

constexpr QRgb Display16[] = { 0xff000000, 0xff800000, 0xff008000, 0xff808000, 0xff000080, 0xff800080,
    0xff008080, 0xffc0c0c0, 0xff808080, 0xffff0000, 0xff00ff00, 0xffffff00, 0xff0000ff, 0xffff00ff,
    0xff00ffff, 0xffffffff };

constexpr QRgb LowTen[] = { 0xff000000, 0xff800000, 0xff008000, 0xff808000, 0xff000080, 0xff800080,
    0xff008080, 0xffc0c0c0, 0xffc0dcc0, 0xffa6caf0 };
constexpr QRgb HighTen[] = { 0xfffffbf0, 0xffa0a0a4, 0xff808080, 0xffff0000, 0xff00ff00, 0xffffff00,
    0xff0000ff, 0xffff00ff, 0xff00ffff, 0xffffffff };

QList<QRgb> CubeAndGreys()
{
    constexpr int levels = 6, step = 255 / (levels - 1), greysBetween = 8;
    QList<QRgb> palette;
    for (int red = 0; red < levels; ++red)
        for (int green = 0; green < levels; ++green)
            for (int blue = 0; blue < levels; ++blue)
                palette += qRgb(red * step, green * step, blue * step);
    for (int level = 0; level < levels - 1; ++level)
        for (int between = 1; between <= greysBetween; ++between) {
            const int grey = level * step + qRound(double(step) * between / (greysBetween + 1));
            palette += qRgb(grey, grey, grey);
        }
    return palette;
}

QList<QRgb> Padded(QList<QRgb> palette, int size)
{
    palette.resize(size, Black);
    return palette;
}

} // namespace

QList<QRgb> FixedPalette(int bits)
{
    if (bits == 1)
        return { Black, 0xffffffff };
    if (bits == 4)
        return { std::begin(Display16), std::end(Display16) };
    return CubeAndGreys();
}

QList<QRgb> IdentityPalette(const QImage& picture, int bits)
{
    if (bits < 8)
        return FixedPalette(bits);
    constexpr int between = 256 - int(std::size(LowTen) + std::size(HighTen));
    return QList<QRgb>(std::begin(LowTen), std::end(LowTen))
        + Padded(OptimizedPalette(picture, between), between)
        + QList<QRgb>(std::begin(HighTen), std::end(HighTen));
}

QImage WithWholePalette(QImage picture, int bits)
{
    picture.setColorTable(Padded(picture.colorTable(), 1 << bits));
    return picture;
}

} // namespace imaging
