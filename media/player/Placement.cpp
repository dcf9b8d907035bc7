#include "media/player/Placement.h"

#include "media/Picture.h"
#include <cmath>

namespace player {

namespace {

QSize Scaled(QSize size, double factor)
{
    return QSize(std::max(1, int(std::lround(size.width() * factor))),
        std::max(1, int(std::lround(size.height() * factor))));
}

double FactorOf(ltmmPlay::DisplayMode mode)
{
    switch (mode) {
    case ltmmPlay::ThreeQuarters:
        return 0.75;
    case ltmmPlay::Half:
        return 0.5;
    case ltmmPlay::Double:
        return 2;
    case ltmmPlay::FitToWindow:
    case ltmmPlay::StretchToWindow:
    case ltmmPlay::Normal:
        break;
    }
    return 1;
}

QSize Bounded(QSize size)
{
    const double pixels = double(size.width()) * size.height();
    // A picture doubled beyond the largest would cost more memory than it shows.
    constexpr auto most = double(media::MaxPixels);
    return pixels > most ? Scaled(size, std::sqrt(most / pixels)) : size;
}

} // namespace

QSize ShownSize(const View& view, QSize natural)
{
    const QSize area = (QSizeF(view.area) * view.ratio).toSize();
    if (natural.isEmpty() || area.isEmpty())
        return {};
    if (view.mode == ltmmPlay::StretchToWindow)
        return Bounded(area);
    if (view.mode == ltmmPlay::FitToWindow || view.isFullScreen)
        return Bounded(natural.scaled(area, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return Bounded(Scaled(natural, FactorOf(view.mode) * view.ratio));
}

QSize OwnSize(ltmmPlay::DisplayMode mode, QSize natural)
{
    return natural.isEmpty() ? QSize() : Scaled(natural, FactorOf(mode));
}

QRectF ShownRect(const View& view, QSize shown)
{
    const QSize area = (QSizeF(view.area) * view.ratio).toSize();
    // Whole device pixels, so that a picture is drawn one to one.
    const int left = int(std::floor((area.width() - shown.width()) / 2.0));
    const int top = int(std::floor((area.height() - shown.height()) / 2.0));
    return QRectF(QPointF(left, top) / view.ratio, QSizeF(shown) / view.ratio);
}

QRectF VisiblePlace(const View& view, QSize natural)
{
    return ShownRect(view, ShownSize(view, natural)) & QRectF({}, QSizeF(view.area));
}

} // namespace player
