#include "imaging/Animation.h"

#include "imaging/ByteReader.h"
#include "imaging/PictureHeader.h"

namespace imaging {
namespace {

/// Goes with the picture wherever it is shared to.
const QString Mark = QStringLiteral("Animated");

enum Block { Extension = 0x21, PageOfPixels = 0x2C };
constexpr int HeaderSize = 13;
constexpr int LabelSize = 2;
constexpr int PageSize = 10;

/// Bytes of the palette that a byte of flags announces.
qint64 PaletteBytes(int flags)
{
    constexpr int hasPalette = 0x80;
    return flags & hasPalette ? qint64(3) << ((flags & 7) + 1) : 0;
}

/// The place behind a row of blocks, each with its size before it and the last of size 0.
qint64 BehindBlocks(const ByteReader& in, qint64 at)
{
    while (const int size = in.U8(at))
        at += 1 + size;
    return at + 1;
}

} // namespace

bool IsAnimated(const QImage& picture)
{
    return !picture.text(Mark).isEmpty();
}

void SetAnimated(QImage& picture, bool animated)
{
    if (IsAnimated(picture) != animated)
        picture.setText(Mark, animated ? QStringLiteral("yes") : QString());
}

int PagesOf(const QByteArray& file)
{
    int pages = 0;
    try {
        if (ReadPictureHeader(file).format != Gif)
            return 1;
        const ByteReader in(file, ByteReader::Order::Little);
        constexpr int flagsOfFile = 10, flagsOfPage = 9, codeSize = 1;
        for (qint64 at = HeaderSize + PaletteBytes(in.U8(flagsOfFile));;) {
            const int block = in.U8(at);
            if (block == Extension) {
                at = BehindBlocks(in, at + LabelSize);
            } else if (block == PageOfPixels) {
                const qint64 pixels = at + PageSize + PaletteBytes(in.U8(at + flagsOfPage)) + codeSize;
                at = BehindBlocks(in, pixels);
                ++pages;
            } else {
                break;
            }
        }
    } catch (const PictureError&) {
        // The file ends in the middle of a page: those before it count.
    }
    return std::max(pages, 1);
}

} // namespace imaging
