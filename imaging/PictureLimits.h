#pragma once

#include "imaging/PictureError.h"

namespace imaging {

/// Largest picture that is read, made or written.
inline constexpr int MaxSide = 16384;
inline constexpr qint64 MaxPixels = 64'000'000;

/// Whether a picture may have this size.
constexpr bool IsPictureSize(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= MaxSide && height <= MaxSide && width * height <= MaxPixels;
}

/// Throws PictureError, which names the size, for one that no picture may have.
inline void CheckPictureSize(qint64 width, qint64 height)
{
    if (IsPictureSize(width, height))
        return;
    const QString what = width > 0 && height > 0 ? QStringLiteral("The picture is too large: %1x%2.")
                                                 : QStringLiteral("A picture cannot have the size %1x%2.");
    throw PictureError(what.arg(width).arg(height));
}

} // namespace imaging
