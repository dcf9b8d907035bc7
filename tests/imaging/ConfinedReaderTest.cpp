// Pictures from anywhere: what the reading program gives, and what comes of one that fails, lies or is not
// there.
#include "imaging/ConfinedReader.h"

#include "Pictures.h"

#include "imaging/ReaderAnswer.h"
#include "tests/testing/Files.h"
#include "tests/testing/OtherReader.h"

#include <QTemporaryDir>

#include <cerrno>
#include <cstddef>
#include <gmock/gmock.h>
#include <random>
#include <sys/syscall.h>
#include <unistd.h>

using imaging::DecodeConfined;
using imaging::FormatRow;
using imaging::FormatTable;

namespace {

int interruptions = 0; // of the next reservations of memory

}

/// Stands between the program and the system.
extern "C" int posix_fallocate(int file, off_t from, off_t size)
{
    if (interruptions > 0) {
        --interruptions;
        return EINTR;
    }
    return syscall(SYS_fallocate, file, 0, from, size) == 0 ? 0 : errno;
}

namespace {

constexpr auto Damaged = "This picture is damaged or too large and could not be opened.";

/// Why a step failed, empty when it did not.
template <typename Step> QString ReasonOf(Step&& step)
{
    try {
        step();
    } catch (const imaging::PictureError& error) {
        return error.Reason();
    }
    return {};
}

QImage Opened(const QByteArray& file)
{
    return DecodeConfined(file, [] {});
}

QString Refusal(const QByteArray& file)
{
    return ReasonOf([&] { Opened(file); });
}

/// What becomes of a file that is decoded here: its picture, or the reason why there is none.
std::pair<QImage, QString> Here(const QByteArray& file)
{
    QImage picture;
    const QString reason = ReasonOf([&] { picture = imaging::PictureFile::Decode(file); });
    return { picture, reason };
}

QByteArray SmallPng()
{
    return Encode(
        Pictures::Photo({ 4, 4 }), *std::ranges::find(FormatTable, imaging::Png, &FormatRow::format));
}

/// Bytes as the shell's printf takes them.
QByteArray Octal(const QByteArray& bytes)
{
    QByteArray octal;
    for (const char byte : bytes)
        octal += '\\' + QByteArray::number(uchar(byte), 8).rightJustified(3, '0');
    return octal;
}

/// A line that writes bytes into the shared memory from a place on.
QByteArray Writing(const QByteArray& bytes, int place)
{
    return "printf '" + Octal(bytes)
        + "' | dd of=/proc/self/fd/$2 conv=notrunc bs=1 status=none seek=" + QByteArray::number(place) + "\n";
}

/// A reader that leaves these numbers at the start of the shared memory and this byte in every pixel of a 4 x
/// 4 picture of 8 bits.
QByteArray Answering(const std::vector<qint32>& head, char pixel)
{
    const QByteArray numbers(
        reinterpret_cast<const char*>(head.data()), qsizetype(head.size() * sizeof(qint32)));
    return Writing(numbers, 0) + Writing(QByteArray(16, pixel), imaging::ReaderAnswer::PixelsAt);
}

/// A GIF whose first picture is smaller than its screen.
QByteArray GifOnAScreen(QSize picture, QSize screen)
{
    QByteArray file =
        Encode(Pictures::Photo(picture), *std::ranges::find(FormatTable, imaging::Gif, &FormatRow::format));
    const int sides[] { screen.width(), screen.height() };
    for (int byte = 0; byte < 4; ++byte)
        file[6 + byte] = char(sides[byte / 2] >> 8 * (byte % 2));
    return file;
}

using ConfinedReaderTest = PictureFileTest;

} // namespace

TEST_F(ConfinedReaderTest, APictureIsTheOneThatIsDecodedHere)
{
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 37, 23 }), row);
        const QImage here = imaging::PictureFile::Decode(file), there = Opened(file);
        EXPECT_EQ(there.format(), here.format()) << row.extension;
        EXPECT_EQ(there.colorTable(), here.colorTable()) << row.extension;
        EXPECT_EQ(there, here) << row.extension;
    }
}

TEST_F(ConfinedReaderTest, ALargePictureComesWhole)
{
    const QByteArray file = Encode(
        Pictures::Photo({ 4000, 3000 }), *std::ranges::find(FormatTable, imaging::Bmp, &FormatRow::format));
    EXPECT_EQ(Opened(file), imaging::PictureFile::Decode(file));
}

TEST_F(ConfinedReaderTest, ADamagedFileIsThePictureThatItIsHereOrRefused)
{
    std::mt19937 random(21);
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 40, 30 }), row);
        for (int i = 0; i < 20; ++i) {
            const auto reach = i % 2 ? unsigned(file.size()) : std::min(120u, unsigned(file.size()));
            const QByteArray damaged = Pictures::Damaged(file, reach, 1 + i % 4, random);
            const auto [picture, reasonHere] = Here(damaged);
            QImage there;
            const QString reason = ReasonOf([&] { there = Opened(damaged); });
            if (reason.isEmpty())
                EXPECT_EQ(there, picture) << row.extension << i;
            else // the walls may end what is only slow or large
                EXPECT_THAT(reason.toStdString(),
                    testing::AnyOf(
                        reasonHere.toStdString(), Damaged, "The picture is damaged or incomplete."))
                    << row.extension << i;
        }
        EXPECT_FALSE(Refusal(file.first(20)).isEmpty()) << row.extension;
    }
}

TEST_F(ConfinedReaderTest, AGifWhoseFirstPictureIsSmallerThanItsScreenIsOpened)
{
    const QByteArray file = GifOnAScreen({ 40, 30 }, { 64, 50 });
    EXPECT_EQ(Opened(file).size(), QSize(40, 30));
    EXPECT_EQ(Opened(file), Here(file).first);
}

TEST_F(ConfinedReaderTest, ARefusalTellsTheReadersReason)
{
    QByteArray file = Encode(
        Pictures::Photo({ 40, 30 }), *std::ranges::find(FormatTable, imaging::Psd, &FormatRow::format));
    file[25] = 9; // Lab colours
    EXPECT_EQ(Refusal(file), Here(file).second);
    EXPECT_FALSE(Refusal(file).isEmpty());
}

TEST_F(ConfinedReaderTest, WhatIsNoPictureNeverReachesAReader)
{
    const OtherReader none({});
    ASSERT_TRUE(none.HasMoved());
    EXPECT_EQ(Refusal("just a text that is long enough to be a picture"),
        "The file is not a picture of a known kind.");
}

TEST_F(ConfinedReaderTest, AMissingReaderIsToldWithWhatToDo)
{
    const OtherReader none({});
    ASSERT_TRUE(none.HasMoved());
    EXPECT_EQ(Refusal(SmallPng()),
        "A part of the program that opens pictures is missing. Install the program again.");
}

TEST_F(ConfinedReaderTest, AReaderThatDiesOrFailsIsADamagedPicture)
{
    for (const char* end : { "kill -9 $$\n", "kill -SEGV $$\n", "exit 1\n" }) {
        const OtherReader dying(end);
        ASSERT_TRUE(dying.IsThere());
        EXPECT_EQ(Refusal(SmallPng()), Damaged) << end;
    }
}

TEST_F(ConfinedReaderTest, AReaderThatCannotConfineItselfIsToldAsThat)
{
    const OtherReader unconfined("exit 2\n");
    ASSERT_TRUE(unconfined.IsThere());
    EXPECT_EQ(Refusal(SmallPng()), "This picture cannot be opened safely on this system.");
}

TEST_F(ConfinedReaderTest, AReaderThatNeverEndsIsEndedAndTheFileTakenAsDamaged)
{
    const OtherReader stopped("kill -STOP $$\n");
    ASSERT_TRUE(stopped.IsThere());
    EXPECT_EQ(ReasonOf([] {
        DecodeConfined(
            SmallPng(), [] {}, std::chrono::milliseconds(200));
    }),
        Damaged);
}

TEST_F(ConfinedReaderTest, AReadersReasonBecomesOneLineThatCanBeShown)
{
    constexpr int reasonAt = offsetof(imaging::ReaderAnswer, reason);
    const OtherReader chatty(Writing("  first\nsecond\x1b[31m \t third ", reasonAt));
    ASSERT_TRUE(chatty.IsThere());
    EXPECT_EQ(Refusal(SmallPng()), "first second [31m third");
}

TEST_F(ConfinedReaderTest, AnAnswerThatDoesNotFitTheFileIsADamagedPicture)
{
    constexpr int indexed = QImage::Format_Indexed8;
    const std::vector<qint32> lies[] = {
        { 0, 0, 0, 0 }, { -4, -4, indexed, 4 }, { 20000, 1, indexed, 4 }, { 17, 4, indexed, 4 },
        { 4, 17, indexed, 4 }, // more rows than the shared memory holds
        { 4, 4, indexed, 0 }, { 4, 4, indexed, 257 }, { 4, 4, 77, 0 },
        { 4, 4, indexed, 3 }, // a pixel of a colour that is not in the palette
    };
    for (const auto& lie : lies) {
        const OtherReader liar(Answering(lie, 3));
        ASSERT_TRUE(liar.IsThere());
        EXPECT_EQ(Refusal(SmallPng()), Damaged) << testing::PrintToString(lie);
    }
    const OtherReader honest(Answering({ 4, 4, indexed, 4 }, 3));
    EXPECT_EQ(Opened(SmallPng()).size(), QSize(4, 4));
}

TEST_F(ConfinedReaderTest, WhoHasNothingToDoMeanwhileWaitsAllTheSame)
{
    const OtherReader stopped("kill -STOP $$\n");
    ASSERT_TRUE(stopped.IsThere());
    EXPECT_EQ(ReasonOf([] { DecodeConfined(SmallPng(), {}, std::chrono::milliseconds(200)); }), Damaged);
}

TEST_F(ConfinedReaderTest, ASignalWhileMemoryIsReservedIsNoLackOfMemory)
{
    interruptions = 3;
    EXPECT_EQ(Opened(SmallPng()).size(), QSize(4, 4));
    EXPECT_EQ(interruptions, 0);
}

TEST_F(ConfinedReaderTest, TheWaitIsFilledWithTheCallersWork)
{
    const QTemporaryDir folder;
    const QString sign = folder.filePath(QStringLiteral("called"));
    const OtherReader slow(OtherReader::WaitFor(sign) + Answering({ 4, 4, QImage::Format_Indexed8, 4 }, 3));
    ASSERT_TRUE(slow.IsThere());
    const QImage picture = DecodeConfined(SmallPng(), [&] { EXPECT_TRUE(MakeFile(sign, "now")); });
    EXPECT_EQ(picture.size(), QSize(4, 4));
}
