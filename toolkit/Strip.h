#pragma once

#include "toolkit/Face.h"

#include <QColor>
#include <QPixmap>
#include <QRect>

class QPainter;

/// The image strips: one SVG file per family in resources/art, a row of cells on a 20-pixel grid, drawn in
/// one colour that is replaced when a cell is rendered.
namespace Strip {

/// Side of a cell at its natural size, in device-independent pixels.
constexpr int CellSize = 20;

/// A face in one colour, side device-independent pixels square, rendered at pixelRatio and kept in Qt's
/// pixmap cache.
QPixmap Cell(Face face, const QColor& tint, int side, qreal pixelRatio);
/// Paints a face centred in area, on whole device pixels, side device-independent pixels square.
void Paint(QPainter& painter, const QRect& area, Face face, const QColor& tint, int side = CellSize);

} // namespace Strip
