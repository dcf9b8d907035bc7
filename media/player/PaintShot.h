#pragma once

#include "media/player/Placement.h"
#include "media/player/Shot.h"

class QPainter;

namespace player {

/// Draws a picture in the middle of the widget and ground around it; each pixel is painted once. A picture
/// made for another view is scaled roughly, until the right one comes.
void PaintShot(QPainter& painter, const View& view, const Shot& shot, const QBrush& ground);

/// Whether the picture was made for another view than this.
bool IsOutdated(const Shot& shot, const View& view);

} // namespace player
