#pragma once

#include "imaging/Progress.h"

#include <QImage>

/// Operations on the colour of each pixel. Depth, byte order and alpha are kept; with a palette, only its
/// colours change. Values outside a range count as its nearest bound. A neutral value gives the picture
/// itself.
namespace imaging {

/// Each channel becomes the pixel's lightness, 0.299 red + 0.587 green + 0.114 blue; greys stay.
QImage Grey(const QImage& picture, const Progress& progress = {});
/// -1000 to 1000, 0 neutral: moves each colour away from the grey of its lightness, or nearer to it; -1000 is
/// grey, 1000 doubles the distance.
QImage WithSaturation(const QImage& picture, int amount, const Progress& progress = {});
/// -180 to 180 degrees, 0 neutral: turns the hue from red towards green; greys stay, and so do saturation and
/// value.
QImage WithHue(const QImage& picture, int degrees, const Progress& progress = {});

} // namespace imaging
