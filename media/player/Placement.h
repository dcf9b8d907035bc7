#pragma once

#include "video/ltmmPlay.h"
#include <QRectF>
#include <QSize>

namespace player {

/// How the widget looks at pictures.
struct View {
    ltmmPlay::DisplayMode mode = ltmmPlay::FitToWindow;
    /// The widget, in device-independent pixels.
    QSize area;
    qreal ratio = 1; ///< device pixels in one
    bool isFullScreen = false;
    bool isVisible = false;

    bool operator==(const View&) const = default;
};

/// Size of a picture of natural size in device pixels, empty when nothing of it can be seen. Full screen fits
/// every mode but StretchToWindow.
QSize ShownSize(const View& view, QSize natural);
/// The size in device-independent pixels that a mode with a size of its own (Normal and up) gives a picture.
QSize OwnSize(ltmmPlay::DisplayMode mode, QSize natural);
/// Where a picture of ShownSize stands in the widget: in the middle, also when it is the larger one.
QRectF ShownRect(const View& view, QSize shown);
/// The part of the widget in which a picture of natural size can be seen; empty when there is none.
QRectF VisiblePlace(const View& view, QSize natural);

} // namespace player
