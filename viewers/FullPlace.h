#pragma once

#include <QRect>
#include <QSize>

/// Where a picture stands on the whole screen, both in device pixels: in the middle at its natural size, or,
/// when it is wider or taller than the screen, as large as the screen lets the whole of it be.
QRect FullPlace(QSize picture, QSize screen);
