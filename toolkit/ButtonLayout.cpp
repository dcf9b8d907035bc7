#include "toolkit/ButtonLayout.h"

#include "toolkit/Twips.h"

#include <QColor>
#include <QImage>

namespace {

constexpr int Gap = 4;
constexpr int FocusMargin = 4;
constexpr int LeastSide = 10;
constexpr Twips GrownSide = 150_twips;

bool IsBeside(int picturePosition)
{
    return picturePosition == PicturePosition::Left || picturePosition == PicturePosition::Right;
}

bool IsPictureFirst(int picturePosition)
{
    return picturePosition != PicturePosition::Right && picturePosition != PicturePosition::Below;
}

int Between(QSize picture, QSize caption)
{
    return picture.isEmpty() || caption.isEmpty() ? 0 : Gap;
}

void AddRow(QRegion& shape, const QImage& picture, int y, QRgb mask)
{
    const auto* pixels = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    int start = 0;
    const auto endRun = [&](int x) {
        if (x > start)
            shape += QRect(start, y, x - start, 1);
        start = x + 1;
    };
    for (int x = 0; x < picture.width(); ++x)
        if (qAlpha(pixels[x]) == 0 || (pixels[x] & RGB_MASK) == (mask & RGB_MASK))
            endRun(x);
    endRun(picture.width());
}

} // namespace

QSize ButtonLayout::Together(QSize picture, QSize caption, int picturePosition)
{
    const int between = Between(picture, caption);
    if (IsBeside(picturePosition))
        return { picture.width() + between + caption.width(), qMax(picture.height(), caption.height()) };
    return { qMax(picture.width(), caption.width()), picture.height() + between + caption.height() };
}

ButtonLayout::Places ButtonLayout::PlacesOf(QSize button, QSize picture, QSize caption, int picturePosition)
{
    const QSize together = Together(picture, caption, picturePosition);
    const QPoint corner((button.width() - together.width()) / 2, (button.height() - together.height()) / 2);
    const auto across = [](int room, int size) { return (room - size) / 2; };
    const bool beside = IsBeside(picturePosition);
    const QSize first = IsPictureFirst(picturePosition) ? picture : caption;
    const int second = (beside ? first.width() : first.height()) + Between(picture, caption);
    const auto place = [&](QSize size, bool isFirst) {
        const int along = isFirst ? 0 : second;
        return beside ? QRect({ corner.x() + along, across(button.height(), size.height()) }, size)
                      : QRect({ across(button.width(), size.width()), corner.y() + along }, size);
    };
    return { place(picture, IsPictureFirst(picturePosition)),
        place(caption, !IsPictureFirst(picturePosition)) };
}

QRect ButtonLayout::FocusRect(QSize button)
{
    return QRect(QPoint(), button).adjusted(FocusMargin, FocusMargin, -FocusMargin, -FocusMargin);
}

QSize ButtonLayout::Grown(QSize button)
{
    const auto grown = [](int side) { return side < LeastSide ? GrownSide.Pixels() : side; };
    return { grown(button.width()), grown(button.height()) };
}

QRegion ButtonLayout::Shape(const QImage& picture, const QColor& mask)
{
    QRegion shape;
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y)
        AddRow(shape, pixels, y, mask.rgb());
    return shape;
}
