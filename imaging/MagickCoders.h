#pragma once

#include "imaging/Animation.h"
#include "imaging/FormatTable.h"
#include <QByteArray>
#include <QImage>

/// The formats that GraphicsMagick reads and writes: all of FormatTable but PSD. In memory alone, with a
/// format we name.
namespace imaging::MagickCoders {

/// See PictureFile::Initialise.
void Initialise();

/// The first picture of a file whose kind and size were looked at before. Throws PictureError.
QImage Decode(const QByteArray& file, FormatCode format);

/// The first pages of a GIF file, up to so many, each as it is to be seen over those before it. Throws
/// PictureError.
std::vector<Page> DecodePages(const QByteArray& file, int most);

/// Jpg, Tga, Gif, Tif or Png at the depth of FormatTable. Throws PictureError.
QByteArray Encode(const QImage& picture, FormatCode format, int quality);

} // namespace imaging::MagickCoders
