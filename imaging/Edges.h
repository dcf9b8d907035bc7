#pragma once

#include "imaging/Progress.h"

#include <QImage>

/// Operations on the differences between neighbours. Depth, byte order and alpha are kept; a picture with a
/// palette gets another one of the same size for what comes out. Pixels beyond an edge are those of the edge.
namespace imaging {

enum class Direction { East = 0, West = 1, North = 2, South = 3 };

/// A grey relief in which what is lighter stands higher, lit from a direction; even ground is middle grey,
/// and each unit of the depth, 0 to 1000, adds the slope, in levels a pixel.
QImage Embossed(const QImage& picture, Direction light, int depth, const Progress& progress = {});

/// The spatial filters by their codes. Each compares neighbours in its direction, channel by channel; even
/// ground becomes black.
enum class SpatialCode {
    GradientNorth = 8, ///< what becomes lighter towards the north
    GradientEast = 10,
    GradientSouth = 12,
    GradientWest = 14,
    SobelHorizontal = 22, ///< differences between left and right, whichever is lighter
    SobelVertical = 23,
    PrewittHorizontal = 24,
    PrewittVertical = 25,
    ShiftHorizontal = 27, ///< the picture less itself shifted by one pixel to the right
    ShiftVertical = 28
};
QImage SpatiallyFiltered(const QImage& picture, SpatialCode code, const Progress& progress = {});
/// Whether a number is that of a spatial filter.
bool IsSpatialCode(int code);

} // namespace imaging
