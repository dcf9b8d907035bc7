// What is written, looked at by a reader that is not ours.
#include "imaging/PictureFile.h"

#include "Pictures.h"
#include "tests/testing/SmallMemory.h"

#include <csignal>
#include <thread>

using imaging::FormatRow;
using imaging::FormatTable;
using imaging::PictureError;
namespace PictureFile = imaging::PictureFile;

namespace {

struct Sample {
    const char* name;
    QImage picture;
};

std::vector<Sample> Samples()
{
    return { { "photo", Pictures::Photo({ 320, 240 }) }, { "black", Pictures::Plain({ 64, 48 }, Qt::black) },
        { "grey", Pictures::GreyRamp({ 64, 48 }) }, { "two colours", Pictures::TwoColours({ 64, 48 }) },
        { "odd size", Pictures::Photo({ 1917, 33 }) },
        { "one pixel", Pictures::Plain({ 1, 1 }, QColor(1, 2, 3)) },
        { "tall", Pictures::Photo({ 1, 500 }) } };
}

/// Least likeness of a saved picture, in decibels.
double Bar(const FormatRow& row)
{
    return row.format == imaging::Jpg ? 36 : row.format == imaging::Gif ? 27 : 1000;
}

bool IsLossy(const FormatRow& row)
{
    return row.format == imaging::Jpg || row.format == imaging::Gif;
}

quint16 BigEndian(const QByteArray& file, qsizetype at)
{
    return quint16(uchar(file[at]) << 8 | uchar(file[at + 1]));
}

/// Bits per pixel as the file's own header tells them.
int BitsInHeader(const QByteArray& file, int format)
{
    switch (format) {
    case imaging::Bmp:
        return uchar(file[28]);
    case imaging::Tga:
        return uchar(file[16]);
    case imaging::Gif:
        return (uchar(file[10]) & 7) + 1;
    case imaging::Png:
        return file[25] == 2 ? 3 * uchar(file[24]) : 0; // 2 is true-colour without transparency
    case imaging::Psd:
        return BigEndian(file, 12) * BigEndian(file, 22);
    case imaging::Jpg: {
        const qsizetype frame = file.indexOf("\xFF\xC0");
        return frame < 0 ? 0 : uchar(file[frame + 4]) * uchar(file[frame + 9]);
    }
    case imaging::Tif: { // entry of tag 277, samples per pixel, little-endian
        const qsizetype entry = file.indexOf(QByteArray("\x15\x01\x03\x00\x01\x00\x00\x00", 8));
        return entry < 0 ? 0 : 8 * uchar(file[entry + 8]);
    }
    }
    return 0;
}

const char NoMemory[] = "There is not enough memory for this picture: 8000x8000.";

template <typename Step> std::string RefusalOf(Step&& step)
{
    try {
        step();
    } catch (const PictureError& error) {
        return error.what();
    }
    return {};
}

} // namespace

TEST_F(PictureFileTest, EveryFormatHasTheDepthOfTheTableOnEveryPicture)
{
    for (const FormatRow& row : FormatTable)
        for (const Sample& sample : Samples())
            EXPECT_EQ(BitsInHeader(Encode(sample.picture, row), row.format), row.bits)
                << row.extension << " " << sample.name;
}

TEST_F(PictureFileTest, OtherProgramsAndOurReaderSeeThePixelsThatWereSaved)
{
    const std::vector<Sample> samples = Samples();
    for (const FormatRow& row : FormatTable) {
        std::vector<QByteArray> files;
        for (const Sample& sample : samples)
            files.push_back(Encode(sample.picture, row));
        const std::vector<QImage> theirs = Pictures::ReadElsewhere(files, row.extension);
        for (size_t i = 0; i < samples.size(); ++i) {
            SCOPED_TRACE(testing::Message() << row.extension << " " << samples[i].name);
            const QImage ours = PictureFile::Decode(files[i]);
            EXPECT_GE(Pictures::Likeness(theirs[i], samples[i].picture), Bar(row));
            EXPECT_GE(Pictures::Likeness(ours, theirs[i]), row.format == imaging::Jpg ? 45 : 1000);
            EXPECT_EQ(imaging::BitsPerPixel(ours), row.bits);
        }
    }
}

TEST_F(PictureFileTest, SavingWhatWasLoadedChangesNothingMore)
{
    for (const FormatRow& row : FormatTable) {
        if (row.format == imaging::Jpg)
            continue;
        const QImage once = PictureFile::Decode(Encode(Pictures::Photo({ 33, 17 }), row));
        const QImage twice = PictureFile::Decode(Encode(once, row));
        EXPECT_GE(Pictures::Likeness(once, twice), row.format == imaging::Gif ? 40 : 1000) << row.extension;
    }
}

TEST_F(PictureFileTest, AGifHasAPaletteMadeForItsPicture)
{
    const QImage blues = Pictures::Plain({ 32, 32 }, QColor(0, 0, 0));
    QImage picture = blues;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            picture.setPixelColor(x, y, QColor(0, 0, (x + 32 * y) % 200));
    EXPECT_GE(Pictures::Likeness(PictureFile::Decode(Encode(picture, FormatTable[3])), picture), 40);
}

TEST_F(PictureFileTest, TransparencyIsKeptInThirtyTwoBitsAndDroppedElsewhere)
{
    QImage picture = Pictures::Photo({ 20, 10 }, QImage::Format_ARGB32);
    picture.setPixelColor(3, 4, QColor(10, 20, 30, 128));
    for (const FormatRow& row : FormatTable) {
        const QImage back = PictureFile::Decode(Encode(picture, row));
        EXPECT_EQ(back.pixelColor(3, 4).alpha(), row.bits == 32 ? 128 : 255) << row.extension;
        if (!IsLossy(row)) {
            EXPECT_EQ(back.pixelColor(3, 4).rgb(), QColor(10, 20, 30).rgb()) << row.extension;
        }
    }
}

TEST_F(PictureFileTest, ABetterJpegQualityFactorIsALowerOne)
{
    const QImage picture = Pictures::Photo({ 320, 240 });
    const auto size = [&](int quality) {
        return PictureFile::Encode(picture, imaging::Jpg, 24, quality).Size();
    };
    EXPECT_GT(size(2), size(10));
    EXPECT_GT(size(10), size(200));
}

TEST_F(PictureFileTest, ABitmapIsWrittenFromThePictureItself)
{
    const QImage picture = Pictures::Photo({ 64, 4 });
    const imaging::EncodedFile file = PictureFile::EncodeBitmap(picture);
    ASSERT_EQ(file.Parts().size(), 5u);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(static_cast<const void*>(file.Parts()[size_t(4 - row)].data()), picture.constScanLine(row));
}

TEST_F(PictureFileTest, RowsOfABitmapArePaddedWithZeros)
{
    QImage picture(1, 2, QImage::Format_BGR888);
    picture.fill(QColor(1, 2, 3));
    EXPECT_EQ(PictureFile::EncodeBitmap(picture).Joined().sliced(54), QByteArray("\3\2\1\0\3\2\1\0", 8));
}

TEST_F(PictureFileTest, ASavedFileStaysWhenThePictureChanges)
{
    QImage picture = Pictures::Photo({ 64, 4 });
    const QImage before = picture.copy();
    const imaging::EncodedFile file = PictureFile::EncodeBitmap(picture);
    picture.fill(Qt::white);
    EXPECT_EQ(PictureFile::Decode(file.Joined()), before);
}

TEST_F(PictureFileTest, FormatsAndDepthsOutsideTheTableAreRefused)
{
    const QImage picture = Pictures::Photo({ 8, 8 });
    for (const auto& [format, bits] : { std::pair(6, 32), { 10, 8 }, { 75, 1 }, { 0, 24 }, { 99, 24 } })
        EXPECT_THROW(PictureFile::Encode(picture, format, bits, 0), PictureError) << format;
}

TEST_F(PictureFileTest, TheBitmapForTheDesktopHasTwentyFourBitsAndNoOtherDepth)
{
    constexpr int code = 14, quality = 1;
    const QImage picture = Pictures::Photo({ 9, 8 });
    const QByteArray file = PictureFile::Encode(picture, code, 24, quality).Joined();
    EXPECT_EQ(BitsInHeader(file, imaging::Bmp), 24);
    EXPECT_EQ(PictureFile::Decode(file), picture);
    for (const int bits : { 8, 32 })
        EXPECT_THROW(PictureFile::Encode(picture, code, bits, quality), PictureError) << bits;
}

TEST_F(PictureFileTest, AnEmptyOrTooLargePictureIsRefused)
{
    for (const FormatRow& row : FormatTable) {
        EXPECT_THROW(Encode(QImage(), row), PictureError);
        EXPECT_THROW(Encode(QImage(16385, 1, QImage::Format_BGR888), row), PictureError);
    }
}

TEST_F(PictureFileTest, APictureThatTheMemoryDoesNotHoldIsRefused)
{
    QImage small(8000, 8000, QImage::Format_Mono);
    small.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255) });
    const QImage full(8000, 8000, QImage::Format_BGR888);
    const SmallMemory memory(100);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    for (const FormatRow& row : FormatTable)
        EXPECT_EQ(RefusalOf([&] { Encode(small, row); }), NoMemory) << row.extension;
    EXPECT_EQ(RefusalOf([&] { PictureFile::Encode(full, imaging::Psd, 24, 0); }), NoMemory);
    EXPECT_EQ(RefusalOf([&] { PictureFile::EncodeBitmap(small); }), NoMemory);
}

TEST_F(PictureFileTest, TheLongestSidesComeBackExactly)
{
    for (const QSize size : { QSize(16384, 1), QSize(1, 16384) })
        for (const FormatRow& row : FormatTable) {
            const QImage picture = Pictures::Photo(size);
            const double bar = row.format == imaging::Jpg ? 36 : row.format == imaging::Gif ? 27 : 1000;
            EXPECT_GE(Pictures::Likeness(PictureFile::Decode(Encode(picture, row)), picture), bar)
                << row.extension;
        }
}

TEST_F(PictureFileTest, SignalsStayAsTheProgramHasThem)
{
    for (const int signal : { SIGINT, SIGTERM, SIGHUP, SIGXCPU }) {
        struct sigaction action { };
        ASSERT_EQ(sigaction(signal, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << signal;
    }
}

TEST_F(PictureFileTest, SeveralThreadsSaveAndLoadAtOnce)
{
    const auto work = [](int seed) {
        for (const FormatRow& row : FormatTable) {
            const QImage picture = Pictures::Photo({ 50 + seed, 40 });
            EXPECT_GE(Pictures::Likeness(PictureFile::Decode(Encode(picture, row)), picture), Bar(row))
                << row.extension;
        }
    };
    std::vector<std::thread> threads;
    for (int seed = 0; seed < 4; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
}
