#pragma once

#include <QImage>

namespace imaging {

enum class Resampling {
    Nearest, ///< the pixel that lies under it
    Smooth ///< the mean of the pixels that fall together, or a smooth curve between those that are drawn
           ///< apart
};

/// The picture at another size, at least 1x1. Smooth makes pictures with a palette or 16 bits true-colour
/// first. Throws PictureError for a size that is too large.
QImage Resample(const QImage& picture, QSize size, Resampling kind);

} // namespace imaging
