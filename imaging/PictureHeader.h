#pragma once

#include "imaging/FormatTable.h"
#include <QByteArray>

namespace imaging {

/// What a picture file says of itself, read without decoding it.
struct PictureHeader {
    FormatCode format;
    qint64 width;
    qint64 height;
};

/// Knows the seven kinds by their content, never by a name. Throws PictureError for anything else and for a
/// header that is cut off.
PictureHeader ReadPictureHeader(const QByteArray& file);

} // namespace imaging
