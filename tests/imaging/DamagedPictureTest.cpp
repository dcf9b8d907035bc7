// Damaged and hostile files: each either loads or is refused; nothing else may happen.
#include "imaging/PictureFile.h"
#include "imaging/PictureLimits.h"

#include "Pictures.h"

#include <random>

using imaging::FormatRow;
using imaging::FormatTable;
using imaging::PictureError;
namespace PictureFile = imaging::PictureFile;

namespace {

/// The reason why a file is refused, empty when it loads; what loads is a picture as any other.
QString Refusal(const QByteArray& file)
{
    try {
        const QImage picture = PictureFile::Decode(file);
        EXPECT_NO_THROW(imaging::CheckPictureSize(picture.width(), picture.height()));
        EXPECT_NE(imaging::BitsPerPixel(picture), 0);
        return {};
    } catch (const PictureError& error) {
        return error.Reason();
    }
}

/// Where each format keeps width and height, and in which form.
struct SizeField {
    int format;
    qsizetype width;
    qsizetype height;
    int bytes;
    bool isBigEndian;
};

constexpr SizeField SizeFields[] = {
    { imaging::Bmp, 18, 22, 4, false },
    { imaging::Tga, 12, 14, 2, false },
    { imaging::Gif, 6, 8, 2, false },
    { imaging::Png, 16, 20, 4, true },
    { imaging::Psd, 18, 14, 4, true },
};

void Put(QByteArray& file, qsizetype at, quint32 number, const SizeField& field)
{
    for (int i = 0; i < field.bytes; ++i)
        file[at + i] = char(number >> (8 * (field.isBigEndian ? field.bytes - 1 - i : i)));
}

QByteArray Claiming(int width, int height, const SizeField& field)
{
    const auto row = std::ranges::find(FormatTable, field.format, &FormatRow::format);
    QByteArray file = Encode(Pictures::Plain({ 16, 16 }, Qt::black), *row);
    Put(file, field.width, quint32(width), field);
    Put(file, field.height, quint32(height), field);
    return file;
}

} // namespace

TEST_F(PictureFileTest, FilesThatEndTooEarlyLoadOrAreRefused)
{
    std::mt19937 random(11);
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 40, 30 }), row);
        for (int i = 0; i < 60; ++i)
            Refusal(file.first(qsizetype(random() % unsigned(file.size()))));
        EXPECT_FALSE(Refusal(file.first(0)).isEmpty()) << row.extension;
        EXPECT_FALSE(Refusal(file.first(20)).isEmpty()) << row.extension;
        EXPECT_TRUE(Refusal(file).isEmpty()) << row.extension;
    }
}

TEST_F(PictureFileTest, FilesWithFlippedBitsLoadOrAreRefused)
{
    std::mt19937 random(12);
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 40, 30 }), row);
        for (int i = 0; i < 100; ++i) {
            const bool isHeader = i % 2 == 0;
            const unsigned reach = isHeader ? std::min(120u, unsigned(file.size())) : unsigned(file.size());
            Refusal(Pictures::Damaged(file, reach, 1 + int(random() % 4), random));
        }
    }
}

TEST_F(PictureFileTest, NoiseBehindASignatureLoadsOrIsRefused)
{
    std::mt19937 random(13);
    for (const FormatRow& row : FormatTable)
        for (int i = 0; i < 30; ++i) {
            QByteArray noise = Encode(Pictures::Photo({ 4, 4 }), row).first(8 + i);
            while (noise.size() < 2000)
                noise.append(char(random()));
            Refusal(noise);
        }
}

TEST_F(PictureFileTest, AHugeClaimIsRefusedByItsSize)
{
    for (const SizeField& field : SizeFields) {
        EXPECT_EQ(Refusal(Claiming(60000, 60000, field)), "The picture is too large: 60000x60000.");
        EXPECT_EQ(Refusal(Claiming(16384, 16384, field)), "The picture is too large: 16384x16384.");
        EXPECT_FALSE(Refusal(Claiming(0, 16, field)).isEmpty()) << field.format;
    }
}

TEST_F(PictureFileTest, AClaimThatTheBytesCannotHoldIsRefused)
{
    for (const SizeField& field : SizeFields)
        EXPECT_EQ(Refusal(Claiming(8000, 8000, field)), "The picture is damaged or incomplete.")
            << field.format;
}
