#pragma once

#include "imaging/EncodedFile.h"

namespace imaging::BmpFile {

/// A 24-bit Windows bitmap; no pixel is converted or copied when the picture is a Format_BGR888 already.
EncodedFile Encode(const QImage& picture);

} // namespace imaging::BmpFile
