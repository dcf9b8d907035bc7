#pragma once

#include <QImage>

/// Every pixel keeps its bits; depth, palette and byte order are kept. Twice gives the picture back.
namespace imaging {

/// Top to bottom.
QImage Flipped(const QImage& picture);
/// Left to right.
QImage Reversed(const QImage& picture);

} // namespace imaging
