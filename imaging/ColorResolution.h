#pragma once

#include "imaging/Dither.h"

namespace imaging {

/// Which colours a picture of up to 8 bits has, or in which order one of more stores them.
enum class PaletteKind {
    OrderRgb = 0, ///< red first in memory; pictures of 16 bits have one order only
    Fixed = 1, ///< the kinds of Palettes.h
    Optimized = 2,
    OrderBgr = 4, ///< blue first
    Identity = 8
};

/// The picture at another depth: 1, 4 or 8 bits with a palette of exactly 2, 16 or 256 entries, 16, 24 or 32.
/// Dithering counts up to 8 bits only. Of an optimized palette only so many colours are used, 0 for all.
/// Throws PictureError for a depth that there is not, and for a palette that this depth cannot have.
QImage WithColorResolution(const QImage& picture, int bits, PaletteKind palette, Dithering dithering,
    int colours, const Progress& progress = {});

} // namespace imaging
