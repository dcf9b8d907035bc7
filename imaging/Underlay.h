#pragma once

#include <QImage>

namespace imaging {

enum class UnderlayFit {
    Tiled, ///< repeated at its own size from the top left corner
    Stretched ///< at the size of the picture, smoothly
};

/// The picture with another under it, as a print on glass over paper: where it is white the other shows,
/// where it is black nothing does, and between the two colours multiply. What is transparent in either is
/// white. White below changes nothing. The result is opaque; depth and byte order are kept, a picture with a
/// palette gets another one of the same size for what comes out.
QImage Underlaid(const QImage& picture, const QImage& below, UnderlayFit fit);

} // namespace imaging
