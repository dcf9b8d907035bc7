#pragma once

#include "imaging/Animation.h"
#include "imaging/EncodedFile.h"
#include "imaging/PictureError.h"
#include "imaging/PictureHeader.h"
#include <QByteArray>
#include <QImage>

namespace imaging {

/// Bits per pixel of a picture: 1, 4 or 8 with a palette of at most 2, 16 or 256 colours, 16, 24 or 32.
int BitsPerPixel(const QImage& picture);

/// Reading and writing the seven formats of FormatTable, in memory alone.
namespace PictureFile {

/// Largest file that may be read; the largest picture stands in PictureLimits.h.
inline constexpr qsizetype MaxFileBytes = qsizetype(256) << 20;

/// Prepares the coders and their limits; called once by main, before threads start and before any other call
/// here. Throws PictureError when the coders found are not those expected.
void Initialise();

/// What a file that may be decoded says of itself. Throws PictureError for an unknown kind, a size over the
/// limits of PictureLimits.h and one that the file's bytes cannot hold.
PictureHeader CheckedHeader(const QByteArray& file);

/// The first picture of a file of one of the seven kinds, at the file's own depth: palette pictures as
/// QImage::Format_Indexed8, 24 bits as Format_BGR888, 32 bits as Format_ARGB32. Throws PictureError.
QImage Decode(const QByteArray& file);

/// The pages of a GIF file, up to so many; of every other kind its picture alone. Throws PictureError.
std::vector<Page> DecodePages(const QByteArray& file, int most);

/// The picture as a file of a format code, bits and quality of FormatTable; transparency is kept by 32-bit
/// formats and dropped by the others. Throws PictureError, also for a combination that is not in the table
/// and when the memory does not suffice.
EncodedFile Encode(const QImage& picture, int format, int bits, int quality);

/// The picture as a 24-bit Windows bitmap: no pixel is converted or copied when it is a Format_BGR888
/// already. Throws PictureError.
EncodedFile EncodeBitmap(const QImage& picture);

} // namespace PictureFile

} // namespace imaging
