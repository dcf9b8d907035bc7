#pragma once

#include <QColor>
#include <QImage>

namespace imaging {

enum class RotatedSize {
    Kept, ///< the picture turns about its middle, and what leaves its frame is lost
    Grown ///< the frame is as large as what was turned
};

/// The picture turned clockwise by hundredths of a degree, any number of turns either way; what it does not
/// cover gets the fill colour. Quarter turns move pixels as they are; between them colours are mixed along
/// smooth curves, and a picture with a palette takes its nearest pixels, its fill standing in the
/// palette in place of a colour that no pixel has, or else being the nearest of its colours. Depth and byte
/// order are kept. Throws PictureError when the frame would be too large.
QImage Rotated(const QImage& picture, int hundredths, RotatedSize size, const QColor& fill);

} // namespace imaging
