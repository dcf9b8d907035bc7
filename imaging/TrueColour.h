#pragma once

#include <QImage>
#include <array>

namespace imaging {

/// Whether the pixels of a picture are numbers of colours, which stand in its palette.
bool HasPalette(const QImage& picture);
/// A picture with a palette as Format_Indexed8.
QImage Indexed(const QImage& picture);
/// Which colours of a palette some pixel of a Format_Indexed8 has.
std::array<bool, 256> UsedColours(const QImage& indexed);
/// The picture with no more than one pixel in a byte.
QImage WholeBytes(const QImage& picture);

/// The picture in the format that the operations on pixels share: bytes of blue, green and red, and of alpha
/// where it has 32 bits (BGR888, RGB32 or ARGB32).
QImage TrueColour(const QImage& picture);
/// What an operation made of a picture, at the depth and in the byte order of that picture. One with a
/// palette gets a palette of the same size that is made for the result: exact when its colours suffice;
/// a result that has a palette keeps it.
QImage AtDepthOf(const QImage& picture, const QImage& result);

/// The picture in true colour for a mixing of pixels: colours count by how much of them shows, or what is
/// transparent would bleed into what is not. Format_ARGB32_Premultiplied where it has alpha.
QImage Mixable(const QImage& picture);
/// What was mixed, with plain colours again.
QImage Unmixed(QImage mixed);

/// An uninitialised picture of this size with the format and palette of another. Throws std::bad_alloc.
QImage LikePicture(const QImage& picture, QSize size);

} // namespace imaging
