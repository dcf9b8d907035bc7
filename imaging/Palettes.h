#pragma once

#include <QImage>

namespace imaging {

/// The palette that is the same for all pictures of 1, 4 or 8 bits: black and white; the sixteen colours of
/// old displays; a cube of six levels each of red, green and blue with forty greys between its own.
QList<QRgb> FixedPalette(int bits);

/// The colours, at most so many, that come nearest to a picture: its own when they suffice.
QList<QRgb> OptimizedPalette(const QImage& picture, int colours);

/// At 8 bits, the twenty colours that a display of 256 colours keeps for itself, ten at either end, and
/// between them the best for the picture, so that such a display shows each at its own number. At less, the
/// fixed palette.
QList<QRgb> IdentityPalette(const QImage& picture, int bits);

/// The picture with as many entries in its palette as its depth is to have, 1, 4 or 8 bits; black stands
/// behind its colours.
QImage WithWholePalette(QImage picture, int bits);

} // namespace imaging
