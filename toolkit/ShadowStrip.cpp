#include "toolkit/ShadowStrip.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Opaque = 255;

int BottomAlpha(int column, int row, int depth)
{
    const int peak = column < depth ? column * Opaque / depth : Opaque;
    return peak * row / depth;
}

// The rising rule comes first, so a strip lower than twice its width has no full stretch.
int RightPeak(int row, int width, int height)
{
    if (row < width)
        return row * Opaque / width;
    return row < height - width ? Opaque : (height - row) * Opaque / width;
}

int RightAlpha(int column, int row, QSize size)
{
    return RightPeak(row, size.width(), size.height()) * (size.width() - column) / size.width();
}

} // namespace

int ShadowStrip::AlphaAt(int column, int row) const
{
    if (!isSoft)
        return Opaque;
    return side == Bottom ? BottomAlpha(column, row, size.height()) : RightAlpha(column, row, size);
}

QRgb ShadowStrip::Premultiplied(QRgb color, int alpha)
{
    const double share = alpha / double(Opaque);
    const auto part = [share](int value) { return int(std::nearbyint(value * share)); };
    return qRgba(part(qRed(color)), part(qGreen(color)), part(qBlue(color)), alpha);
}

QImage ShadowStrip::Picture(QRgb color) const
{
    if (size.isEmpty())
        return {};
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            line[x] = Premultiplied(color, AlphaAt(x, picture.height() - 1 - y));
    }
    return picture;
}

QRect ShadowStrip::Place(Side side, const QRect& form, int depth)
{
    if (side == Right)
        return { form.x() + form.width(), form.y() + depth, depth, form.height() };
    return { form.x() + depth, form.y() + form.height(), std::max(0, form.width() - depth), depth };
}

void ShadowStrip::RoundCorner(QImage& strip)
{
    constexpr int Cleared[] { 5, 3, 2, 1, 1 }; // pixels from the right, row by row from the top
    for (int row = 0; row < std::min(int(std::size(Cleared)), strip.height()); ++row)
        for (int column = 0; column < std::min(Cleared[row], strip.width()); ++column)
            strip.setPixel(strip.width() - 1 - column, row, 0);
}
