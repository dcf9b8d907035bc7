#pragma once

#include "toolkit/Face.h"

#include <QColor>

class QPainter;
class QRect;

/// The five looks that a person can tell apart.
enum class ButtonLook { Rest, Hover, Pressed, Disabled, Latched, Count };

/// Paints the ground of a button in one look and gives the colour of what stands on it.
QColor PaintButtonGround(QPainter& painter, const QRect& area, FaceTone tone, ButtonLook look);
/// Paints the ring of the keyboard's focus just inside area.
void PaintFocusRing(QPainter& painter, const QRect& area);
