#include "imaging/PictureView.h"

#include <algorithm>
#include <cmath>

namespace imaging {

void PictureView::SetPicture(QSize size)
{
    if (QSizeF(size) != picture_)
        offset_ = {};
    picture_ = size;
    SetZoomed(isZoomed_);
}

void PictureView::SetArea(QSizeF area)
{
    area_ = area;
    ScrollTo(offset_);
}

void PictureView::SetZoomed(bool zoomed)
{
    const QPointF middle = Middle();
    isZoomed_ = zoomed;
    source_.reset();
    sourceClip_.reset();
    destination_.reset();
    destinationClip_.reset();
    ShowInMiddle(middle);
}

void PictureView::SetZoomFactor(int percent)
{
    const QPointF middle = Middle();
    zoom_ = std::clamp(percent, MinZoom, MaxZoom);
    ShowInMiddle(middle);
}

void PictureView::SetDestination(const QRectF& rectangle)
{
    EndZoom();
    destination_ = rectangle.normalized();
}

void PictureView::SetDestinationClip(const QRectF& rectangle)
{
    EndZoom();
    destinationClip_ = rectangle.normalized();
}

void PictureView::SetSource(const QRectF& rectangle)
{
    EndZoom();
    source_ = rectangle.normalized();
}

void PictureView::SetSourceClip(const QRectF& rectangle)
{
    EndZoom();
    sourceClip_ = rectangle.normalized();
}

void PictureView::EndZoom()
{
    isZoomed_ = false;
    offset_ = {};
}

QRectF PictureView::Source() const
{
    return source_.value_or(QRectF({}, picture_));
}

QRectF PictureView::Destination() const
{
    if (IsFixed())
        return destination_.value_or(QRectF({}, Source().size()));
    const QSizeF shown = ShownSize();
    QPointF corner = -offset_;
    if (isZoomed_) { // a picture smaller than the area stands in its middle
        corner.rx() += std::max(0.0, std::floor((area_.width() - shown.width()) / 2));
        corner.ry() += std::max(0.0, std::floor((area_.height() - shown.height()) / 2));
    }
    return { corner, shown };
}

QRectF PictureView::Clip() const
{
    QRectF clip({}, area_);
    if (destinationClip_)
        clip &= *destinationClip_;
    if (!sourceClip_ || Source().isEmpty())
        return clip;
    const QRectF from = Source(), to = Destination();
    const double x = to.width() / from.width(), y = to.height() / from.height();
    return clip
        & QRectF(to.x() + (sourceClip_->x() - from.x()) * x, to.y() + (sourceClip_->y() - from.y()) * y,
            sourceClip_->width() * x, sourceClip_->height() * y);
}

QSizeF PictureView::Overhang() const
{
    if (IsFixed())
        return { 0, 0 };
    return (ShownSize() - area_).expandedTo({ 0, 0 });
}

void PictureView::ScrollTo(QPointF offset)
{
    const QSizeF most = Overhang();
    offset_ = { std::clamp(std::round(offset.x()), 0.0, most.width()),
        std::clamp(std::round(offset.y()), 0.0, most.height()) };
}

/// Whole pixels, so that the edges of a zoomed picture are sharp; a picture never vanishes.
QSizeF PictureView::ShownSize() const
{
    if (!isZoomed_ || picture_.isEmpty())
        return picture_;
    const double scale = zoom_ / 100.0;
    return { std::max(1.0, std::round(picture_.width() * scale)),
        std::max(1.0, std::round(picture_.height() * scale)) };
}

/// The place of the picture, in its own pixels, that stands in the middle of the area.
QPointF PictureView::Middle() const
{
    const double scale = isZoomed_ ? zoom_ / 100.0 : 1.0;
    return (QPointF(area_.width(), area_.height()) / 2 - Destination().topLeft()) / scale;
}

void PictureView::ShowInMiddle(QPointF place)
{
    const double scale = isZoomed_ ? zoom_ / 100.0 : 1.0;
    ScrollTo(place * scale - QPointF(area_.width(), area_.height()) / 2);
}

} // namespace imaging
