#pragma once

#include "imaging/Progress.h"

#include <QImage>

namespace imaging {

/// How the colours that a palette lacks are made to appear from a distance.
enum class Dithering {
    None = 0, ///< each pixel by itself takes the nearest colour
    FloydSteinberg = 1, ///< this and the next five give what a pixel is off to those still to come
    Stucki = 2,
    Burkes = 3,
    Sierra = 4,
    StevensonArce = 5,
    Jarvis = 6,
    Ordered = 7 ///< a pattern of 8x8 thresholds
};

/// The picture in the colours of a palette of 1 to 256, as Format_Indexed8. Alpha does not count.
QImage Dithered(
    const QImage& picture, const QList<QRgb>& palette, Dithering method, const Progress& progress = {});

} // namespace imaging
