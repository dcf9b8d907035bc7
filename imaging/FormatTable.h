#pragma once

#include <QStringView>
#include <array>

/// The seven picture formats and how each is written: the one place where an extension becomes values for a
/// save.
namespace imaging {

/// Format codes as saves pass them. DesktopBmp is a bitmap for the desktop's background: the same file as
/// Bmp, at a quality value of its own, and none of the formats that captures are saved in.
enum FormatCode { Gif = 2, Tif = 3, Tga = 4, Bmp = 6, Jpg = 10, DesktopBmp = 14, Png = 75, Psd = 76 };

struct FormatRow {
    const char* extension; ///< with the point, lower case
    int format; ///< FormatCode
    int bits; ///< bits per pixel of the file
    int quality; ///< JPEG quality factor, lower is better; 0 elsewhere
};

inline constexpr std::array<FormatRow, 7> FormatTable { {
    { ".bmp", Bmp, 24, 0 },
    { ".jpg", Jpg, 24, 2 },
    { ".tga", Tga, 32, 0 },
    { ".gif", Gif, 8, 0 },
    { ".tif", Tif, 32, 0 },
    { ".png", Png, 24, 0 },
    { ".psd", Psd, 24, 0 },
} };

/// The row of the format whose three letters a name ends in, in any case; -1 when it fits none.
int FormatIndex(QStringView name);

/// What a save passes on.
struct SaveValues {
    int format = Bmp; ///< FormatCode
    int quality = 0;
    int bits = 24;
};

/// Gives the values of one row; an index outside the table leaves all three as they were.
void WhatTypeFiles(int index, int& format, int& quality, int& bits);

} // namespace imaging
