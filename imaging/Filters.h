#pragma once

#include "imaging/Progress.h"

#include <QImage>

/// Operations on each pixel and those around it. Depth, byte order and alpha are kept; a picture with a
/// palette gets another one of the same size for what comes out. Values outside a range count as its nearest
/// bound. A neutral value gives the picture itself. Pixels beyond an edge are those of the edge.
namespace imaging {

/// -1000 to 1000, 0 neutral: adds what a soft picture (a Gauss curve of one pixel) lacks, up to five times at
/// 1000, or takes it away, wholly at -1000.
QImage Sharpened(const QImage& picture, int amount, const Progress& progress = {});
/// The median of each channel in a square of size 2 to 25 around the pixel; an even size is taken for the odd
/// one above it, for a square has a middle.
QImage WithMedian(const QImage& picture, int size, const Progress& progress = {});
/// Each square of size 0 to 1000 pixels, laid from the top left corner, becomes the mean of its pixels; those
/// at the right and lower edge may be smaller. 0 and 1 are neutral.
QImage Mosaic(const QImage& picture, int size, const Progress& progress = {});
/// The mean colour of those pixels whose tone, of sixteen, is the most frequent in a square of size 2 to 20
/// around the pixel. Only pixels of the picture count.
QImage OilPainted(const QImage& picture, int size, const Progress& progress = {});

} // namespace imaging
