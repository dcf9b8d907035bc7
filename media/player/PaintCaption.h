#pragma once

#include "media/Caption.h"
#include <QRectF>

class QPainter;

namespace player {

/// Draws captions over a picture that is seen at place (widget pixels), and only there, at the sharpness of
/// the screen: each letter in its cell of the grid of captions, which keeps 4:3 in the middle of wider
/// pictures.
void PaintCaption(QPainter& painter, const media::Caption& caption, const QRectF& place);

} // namespace player
