// Files that other programs wrote.
#include "imaging/PictureFile.h"

#include "Pictures.h"

using imaging::PictureError;
namespace PictureFile = imaging::PictureFile;

namespace {

struct Variant {
    const char* name;
    const char* extension;
    QStringList arguments;
    int bits;
    double likeness;
};

std::vector<Variant> Variants()
{
    constexpr double exact = 1000, greyed = 10, reduced = 20;
    return {
        { "bitmap", ".bmp", {}, 24, exact },
        { "bitmap with a palette", ".bmp", { "-pix_fmt", "rgb8" }, 8, reduced },
        { "bitmap of 16 bits", ".bmp", { "-pix_fmt", "rgb555le" }, 24, reduced },
        { "bitmap of 32 bits", ".bmp", { "-pix_fmt", "bgra" }, 32, exact },
        { "JPEG with coarse colours", ".jpg", { "-pix_fmt", "yuvj420p", "-q:v", "1" }, 24, 25 },
        { "packed TGA", ".tga", { "-pix_fmt", "bgr24", "-rle", "1" }, 24, exact },
        { "plain TGA", ".tga", { "-pix_fmt", "bgr24", "-rle", "0" }, 24, exact },
        { "TIFF of 24 bits", ".tif", { "-pix_fmt", "rgb24", "-compression_algo", "packbits" }, 24, exact },
        { "deep TIFF", ".tif", { "-pix_fmt", "rgb48le" }, 24, 45 },
        { "PNG with transparency", ".png", { "-pix_fmt", "rgba" }, 32, exact },
        { "deep PNG", ".png", { "-pix_fmt", "rgb48be" }, 24, 45 },
        { "grey PNG", ".png", { "-pix_fmt", "gray" }, 8, greyed },
        { "interlaced PNG", ".png", { "-flags", "+ildct" }, 24, exact },
        { "GIF", ".gif", {}, 8, reduced },
    };
}

} // namespace

TEST_F(PictureFileTest, FilesOfOtherProgramsAreReadRightWayUpAtTheirDepth)
{
    const QImage picture = Pictures::Photo({ 61, 43 });
    for (const Variant& variant : Variants()) {
        const QByteArray file = Pictures::WriteElsewhere(picture, variant.extension, variant.arguments);
        const QImage read = PictureFile::Decode(file);
        EXPECT_GE(Pictures::Likeness(read, picture), variant.likeness) << variant.name;
        EXPECT_EQ(imaging::BitsPerPixel(read), variant.bits) << variant.name;
    }
}

TEST_F(PictureFileTest, OnlyTheFirstPictureOfAFilmIsRead)
{
    const QImage picture = Pictures::Plain({ 32, 24 }, Qt::red);
    const QByteArray film = Pictures::WriteElsewhere(picture, ".gif",
        { "-vf", "loop=200:1,drawbox=color=blue:t=fill:enable='gt(n,0)'", "-frames:v", "200" });
    EXPECT_GT(Pictures::Likeness(PictureFile::Decode(film), picture), 30);
}

TEST_F(PictureFileTest, TheContentDecidesAndNotAName)
{
    for (const char* text : { "<svg xmlns='http://www.w3.org/2000/svg'/>", "%!PS-Adobe-3.0 EPSF-3.0",
             "%PDF-1.4", "push graphic-context\nimage over 0,0 0,0 'msl:x'", "<html><body>", "id=MagickCache",
             "P6 1 1 255 abc", "#!/bin/sh" })
        try {
            PictureFile::Decode(QByteArray(text).leftJustified(200));
            ADD_FAILURE() << text;
        } catch (const PictureError& error) {
            EXPECT_EQ(error.Reason(), "The file is not a picture of a known kind.") << text;
        }
}

TEST(BitsPerPixel, GoBySizeOfThePaletteOrByFormat)
{
    QImage paletted(1, 1, QImage::Format_Indexed8);
    for (const auto& [colours, bits] : { std::pair(2, 1), { 3, 4 }, { 16, 4 }, { 17, 8 }, { 256, 8 } }) {
        paletted.setColorCount(colours);
        EXPECT_EQ(imaging::BitsPerPixel(paletted), bits) << colours;
    }
    EXPECT_EQ(imaging::BitsPerPixel(QImage(1, 1, QImage::Format_RGB16)), 16);
    EXPECT_EQ(imaging::BitsPerPixel(QImage(1, 1, QImage::Format_BGR888)), 24);
    EXPECT_EQ(imaging::BitsPerPixel(QImage(1, 1, QImage::Format_ARGB32)), 32);
}
