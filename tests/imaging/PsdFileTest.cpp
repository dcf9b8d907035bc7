#include "imaging/PsdFile.h"

#include "Pictures.h"

using imaging::PictureError;
namespace PictureFile = imaging::PictureFile;

namespace {

struct Kind {
    int channels;
    int depth;
    int mode;
};

QByteArray Number(quint32 number, int bytes)
{
    QByteArray text;
    while (bytes-- > 0)
        text.append(char(number >> (8 * bytes)));
    return text;
}

/// A file as others write it: with a palette, resources and layers to pass over.
QByteArray File(Kind kind, QSize size, int packing, const QByteArray& planes, const QByteArray& palette = {})
{
    return "8BPS" + Number(1, 2) + QByteArray(6, '\0') + Number(quint32(kind.channels), 2)
        + Number(quint32(size.height()), 4) + Number(quint32(size.width()), 4)
        + Number(quint32(kind.depth), 2) + Number(quint32(kind.mode), 2) + Number(quint32(palette.size()), 4)
        + palette + Number(5, 4) + "noise" + Number(3, 4) + "lay" + Number(quint32(packing), 2) + planes;
}

QRgb PixelOf(const QByteArray& file, int x, int y)
{
    return PictureFile::Decode(file).pixel(x, y);
}

QString Refusal(const QByteArray& file)
{
    try {
        PictureFile::Decode(file);
    } catch (const PictureError& error) {
        return error.Reason();
    }
    return {};
}

} // namespace

TEST(Psd, PlainPlanesOfRedGreenAndBlue)
{
    const QByteArray file = File({ 3, 8, 3 }, { 2, 1 }, 0, "\x01\x02\x03\x04\x05\x06");
    EXPECT_EQ(PixelOf(file, 0, 0), qRgb(1, 3, 5));
    EXPECT_EQ(PixelOf(file, 1, 0), qRgb(2, 4, 6));
}

TEST(Psd, FurtherChannelsArePassedOver)
{
    EXPECT_EQ(PixelOf(File({ 5, 8, 3 }, { 1, 1 }, 0, "\x01\x02\x03zz"), 0, 0), qRgb(1, 2, 3));
}

TEST(Psd, PackedRowsWithRunsCopiesAndTheCodeThatDoesNothing)
{
    const QByteArray row =
        QByteArray("\x80\xFE\x07\x01\x08\x09", 6); // nothing, three of 7, two as they stand
    const QByteArray counts = Number(6, 2).repeated(3);
    const QImage picture = PictureFile::Decode(File({ 3, 8, 3 }, { 5, 1 }, 1, counts + row.repeated(3)));
    const int expected[] = { 7, 7, 7, 8, 9 };
    for (int x = 0; x < 5; ++x)
        EXPECT_EQ(picture.pixel(x, 0), qRgb(expected[x], expected[x], expected[x])) << x;
}

TEST(Psd, OfSixteenBitsTheUpperHalfCounts)
{
    EXPECT_EQ(PixelOf(File({ 3, 16, 3 }, { 1, 1 }, 0, "\x10zz zz"), 0, 0), qRgb(0x10, 'z', 'z'));
}

TEST(Psd, GreyAndPalettePicturesHaveEightBits)
{
    QByteArray palette(768, '\0');
    palette[7] = 100;
    palette[256 + 7] = 110;
    palette[512 + 7] = 120;
    const QByteArray grey = File({ 1, 8, 1 }, { 1, 1 }, 0, "\x07");
    const QByteArray indexed = File({ 1, 8, 2 }, { 1, 1 }, 0, "\x07", palette);
    EXPECT_EQ(PixelOf(grey, 0, 0), qRgb(7, 7, 7));
    EXPECT_EQ(PixelOf(indexed, 0, 0), qRgb(100, 110, 120));
    EXPECT_EQ(imaging::BitsPerPixel(PictureFile::Decode(grey)), 8);
    EXPECT_EQ(imaging::BitsPerPixel(PictureFile::Decode(indexed)), 8);
}

TEST(Psd, InksAreStoredAsTheLightTheyLeave)
{
    EXPECT_EQ(PixelOf(File({ 4, 8, 4 }, { 1, 1 }, 0, "\xFF\x80\x40\xFF"), 0, 0), qRgb(255, 128, 64));
    EXPECT_EQ(
        PixelOf(File({ 4, 8, 4 }, { 1, 1 }, 0, QByteArray("\xFF\xFF\xFF\x00", 4)), 0, 0), qRgb(0, 0, 0));
}

TEST(Psd, BlackAndWhiteHasOneBit)
{
    const QByteArray file = File({ 1, 1, 0 }, { 3, 2 }, 0, "\x40\xA0");
    EXPECT_EQ(PixelOf(file, 0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(PixelOf(file, 1, 0), qRgb(0, 0, 0));
    EXPECT_EQ(PixelOf(file, 2, 1), qRgb(0, 0, 0));
    EXPECT_EQ(imaging::BitsPerPixel(PictureFile::Decode(file)), 1);
}

TEST(Psd, KindsThatAreNotReadAreNamed)
{
    EXPECT_EQ(Refusal(File({ 3, 8, 9 }, { 1, 1 }, 0, "abc")),
        "This kind of PSD picture is not supported: colour mode 9.");
    EXPECT_EQ(Refusal(File({ 3, 32, 3 }, { 1, 1 }, 0, QByteArray(12, 'a'))),
        "This kind of PSD picture is not supported: 32 bits per channel.");
    EXPECT_EQ(Refusal(File({ 2, 8, 3 }, { 1, 1 }, 0, "abc")),
        "This kind of PSD picture is not supported: 2 channels.");
    EXPECT_EQ(Refusal(File({ 3, 8, 3 }, { 1, 1 }, 2, "abc")),
        "This kind of PSD picture is not supported: packing 2.");
}

TEST(Psd, TooLargeIsRefusedWithItsSize)
{
    EXPECT_EQ(Refusal(File({ 3, 8, 3 }, { 30001, 10 }, 0, "abc")), "The picture is too large: 30001x10.");
}

TEST(Psd, WhatEndsTooEarlyIsRefused)
{
    const QByteArray plain = File({ 3, 8, 3 }, { 2, 1 }, 0, "abcdef");
    const QByteArray packed = File({ 3, 8, 3 }, { 5, 1 }, 1,
        Number(6, 2).repeated(3) + QByteArray("\x80\xFE\x07\x01\x08\x09", 6).repeated(3));
    for (const QByteArray& file : { plain, packed })
        for (qsizetype length = 0; length < file.size(); ++length)
            EXPECT_THROW(PictureFile::Decode(file.first(length)), PictureError) << length;
    EXPECT_THROW(
        PictureFile::Decode(File({ 1, 8, 2 }, { 1, 1 }, 0, "a", QByteArray(767, 'p'))), PictureError);
}
