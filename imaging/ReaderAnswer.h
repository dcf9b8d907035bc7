#pragma once

#include <QRgb>
#include <QtGlobal>

namespace imaging {

/// What the reading program leaves in the memory it shares with the program that asked: this head, and from
/// PixelsAt on the rows, each padded to four bytes.
struct ReaderAnswer {
    static constexpr qsizetype PixelsAt = 4096;
    static constexpr int MaxColours = 256;
    static constexpr int MaxReason = 512;

    qint32 width;
    qint32 height;
    qint32 format; ///< QImage::Format
    qint32 colours; ///< colours of the palette, 0 without one
    QRgb palette[MaxColours];
    char reason[MaxReason]; ///< why there is no picture, UTF-8 and ended by a NUL; empty when there is one
};
static_assert(sizeof(ReaderAnswer) <= ReaderAnswer::PixelsAt);

/// The same for all pages of a picture that moves: from PixelsAt on one page behind the other, each of the
/// size that the file's header tells, 32 bits a pixel.
struct PagesAnswer {
    static constexpr qsizetype PixelsAt = 8192;
    static constexpr int MaxPages = 1024;

    qint32 pages; ///< as many as stand there
    qint32 hundredths[MaxPages]; ///< of a second that each is to be seen
    char reason[ReaderAnswer::MaxReason]; ///< as in ReaderAnswer
};
static_assert(sizeof(PagesAnswer) <= PagesAnswer::PixelsAt);

/// The reading program's exit code where the system does not let it confine itself.
inline constexpr int ReaderNotConfined = 2;

/// Bytes from one row to the next.
constexpr qsizetype RowBytes(qsizetype width, int bitsPerPixel)
{
    return (width * bitsPerPixel + 31) / 32 * 4;
}

} // namespace imaging
