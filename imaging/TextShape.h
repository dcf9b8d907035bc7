#pragma once

#include <QImage>

class QColor;
class QPoint;

namespace imaging::TextShape {

// A shape says of each pixel how much of it is covered: QImage::Format_Alpha8. What reaches beyond its edges is
// cut off.

/// What the letters cover.
QImage Of(const QImage& letters);
/// Every place that the shape passes on its way by so many pixels.
QImage Swept(const QImage& shape, QPoint way);
/// The shape grown by so many pixels on all sides.
QImage Widened(const QImage& shape, int reach);
/// The shape in a colour.
QImage Coloured(const QImage& shape, const QColor& color);

} // namespace imaging::TextShape
