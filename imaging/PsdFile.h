#pragma once

#include <QByteArray>
#include <QImage>

/// Photoshop pictures: only the flattened picture that every such file carries.
namespace imaging::PsdFile {

/// Grey, palette, RGB and CMYK pictures of 8 or 16 bits per channel and black-and-white ones, plain or
/// run-length packed. Extra channels and layers are passed over. Throws PictureError, also for a kind not
/// named here.
QImage Decode(const QByteArray& file);

/// Three planes of 8 bits, not packed. The format would take 30,000 pixels to a side, which no picture here
/// has.
QByteArray Encode(const QImage& picture);

} // namespace imaging::PsdFile
