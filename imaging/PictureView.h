#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>

namespace imaging {

/// Where a picture stands on a drawing area: decides the rectangles, draws nothing. Pictures are measured in
/// their own pixels, areas in device-independent pixels.
class PictureView {
public:
    static constexpr int MinZoom = 10;
    static constexpr int MaxZoom = 10000;

    /// Another picture: rectangles go back to the whole picture at its own size, the zoom stays.
    void SetPicture(QSize size);
    void SetArea(QSizeF area);
    QSizeF Area() const { return area_; }

    bool IsZoomed() const { return isZoomed_; }
    /// Shows the whole picture at ZoomFactor, or at its own size; drops the rectangles.
    void SetZoomed(bool zoomed);
    int ZoomFactor() const { return zoom_; }
    /// Percent, held between MinZoom and MaxZoom; what stands in the middle of the area stays there.
    void SetZoomFactor(int percent);

    /// Each ends zooming and scrolling. The source fills the destination; the clips limit what is drawn of
    /// either.
    void SetDestination(const QRectF& rectangle);
    void SetDestinationClip(const QRectF& rectangle);
    void SetSource(const QRectF& rectangle);
    void SetSourceClip(const QRectF& rectangle);

    /// The part of the picture that is mapped, and the rectangle of the area it is mapped to, scrolled.
    QRectF Source() const;
    QRectF Destination() const;
    /// What of the area may be drawn on.
    QRectF Clip() const;

    /// How far the picture reaches beyond the area; zero in a direction in which it fits.
    QSizeF Overhang() const;
    QPointF Offset() const { return offset_; }
    /// Held between zero and the overhang.
    void ScrollTo(QPointF offset);

private:
    QSizeF ShownSize() const;
    bool IsFixed() const { return source_ || destination_; }
    QPointF Middle() const;
    void ShowInMiddle(QPointF place);
    void EndZoom();

    QSizeF picture_;
    QSizeF area_;
    bool isZoomed_ = false;
    int zoom_ = 100;
    QPointF offset_;
    std::optional<QRectF> source_;
    std::optional<QRectF> sourceClip_;
    std::optional<QRectF> destination_;
    std::optional<QRectF> destinationClip_;
};

} // namespace imaging
