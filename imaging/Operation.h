#pragma once

#include "imaging/Progress.h"

#include <QImage>
#include <opencv2/core.hpp>

namespace imaging {

/// Makes true-colour pixels of true-colour pixels; what it does to alpha does not count. Called for several
/// bands of a picture at once.
using PixelOperation = std::function<void(const cv::Mat& from, cv::Mat& to)>;

/// A picture of which each pixel depends on its own colour alone; with a palette, its colours are changed and
/// its pixels stay. Depth, byte order and alpha are kept.
QImage OnColours(const QImage& picture, const PixelOperation& operation, const Progress& progress = {});

/// The rows that an operation needs.
struct Rows {
    int reach = 0; ///< those above and below each that it looks at
    int together = 1; ///< so many from the top on belong together, and so on down
};

/// A picture of which each pixel depends on those around it; with a palette, it gets another one for what
/// comes out. Depth, byte order and alpha are kept. What the operation does at the edges of what it is given
/// counts at the edges of the picture only.
QImage OnPixels(
    const QImage& picture, Rows rows, const PixelOperation& operation, const Progress& progress = {});

} // namespace imaging
