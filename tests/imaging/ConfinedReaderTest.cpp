// Pictures from anywhere: what the reading program gives, and what comes of one that fails, lies or is not
// there.
#include "imaging/ConfinedReader.h"

#include "Pictures.h"

#include <QCoreApplication>
#include <QFile>

#include <random>

using imaging::DecodeConfined;
using imaging::FormatRow;
using imaging::FormatTable;
using imaging::PictureError;

namespace {

constexpr auto Damaged = "This picture is damaged or too large and could not be opened.";

QString Refusal(const QByteArray& file)
{
    try {
        DecodeConfined(file);
        return {};
    } catch (const PictureError& error) {
        return error.Reason();
    }
}

QByteArray SmallPng()
{
    return Encode(
        Pictures::Photo({ 4, 4 }), *std::ranges::find(FormatTable, imaging::Png, &FormatRow::format));
}

/// Puts something else where the reading program stands, until the end of the scope.
class OtherReader {
public:
    /// A shell script, or nothing at all for an empty text.
    explicit OtherReader(const QByteArray& script)
    {
        QFile::rename(Place(), Place() + QStringLiteral(".aside"));
        if (script.isEmpty())
            return;
        QFile file(Place());
        isThere_ = file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + script) > 0
            && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ~OtherReader()
    {
        QFile::remove(Place());
        QFile::rename(Place() + QStringLiteral(".aside"), Place());
    }
    OtherReader(const OtherReader&) = delete;
    OtherReader& operator=(const OtherReader&) = delete;
    bool IsThere() const { return isThere_; }

private:
    static QString Place() { return QCoreApplication::applicationDirPath() + QStringLiteral("/taq-reader"); }
    bool isThere_ = false;
};

/// A reader that leaves these numbers at the start of the shared memory and this byte in every pixel of a 4 x
/// 4 picture of 8 bits.
QByteArray Answering(std::initializer_list<int> head, char pixel)
{
    QByteArray octal;
    const auto put = [&](int byte) {
        octal += '\\' + QByteArray::number(byte & 255, 8).rightJustified(3, '0');
    };
    for (const int number : head)
        for (int shift = 0; shift < 32; shift += 8)
            put(number >> shift);
    QByteArray pixels;
    std::swap(octal, pixels);
    for (int i = 0; i < 16; ++i)
        put(pixel);
    const QByteArray to = " | dd of=/proc/self/fd/$2 conv=notrunc bs=1 status=none";
    return "printf '" + pixels + "'" + to + "\nprintf '" + octal + "'" + to + " seek=4096\n";
}

using ConfinedReaderTest = PictureFileTest;

} // namespace

TEST_F(ConfinedReaderTest, APictureIsTheOneThatIsDecodedHere)
{
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 37, 23 }), row);
        const QImage here = imaging::PictureFile::Decode(file), there = DecodeConfined(file);
        EXPECT_EQ(there.format(), here.format()) << row.extension;
        EXPECT_EQ(there.colorTable(), here.colorTable()) << row.extension;
        EXPECT_EQ(there, here) << row.extension;
    }
}

TEST_F(ConfinedReaderTest, ALargePictureComesWhole)
{
    const QByteArray file = Encode(
        Pictures::Photo({ 4000, 3000 }), *std::ranges::find(FormatTable, imaging::Bmp, &FormatRow::format));
    EXPECT_EQ(DecodeConfined(file), imaging::PictureFile::Decode(file));
}

TEST_F(ConfinedReaderTest, DamagedFilesAreOpenedOrRefused)
{
    std::mt19937 random(21);
    for (const FormatRow& row : FormatTable) {
        const QByteArray file = Encode(Pictures::Photo({ 40, 30 }), row);
        for (int i = 0; i < 20; ++i) {
            const auto reach = i % 2 ? unsigned(file.size()) : std::min(120u, unsigned(file.size()));
            Refusal(Pictures::Damaged(file, reach, 1 + i % 4, random));
        }
        EXPECT_FALSE(Refusal(file.first(20)).isEmpty()) << row.extension;
    }
}

TEST_F(ConfinedReaderTest, ARefusalTellsTheReadersReason)
{
    QByteArray file = Encode(
        Pictures::Photo({ 40, 30 }), *std::ranges::find(FormatTable, imaging::Psd, &FormatRow::format));
    file[25] = 9; // Lab colours
    EXPECT_EQ(Refusal(file), [&] {
        try {
            imaging::PictureFile::Decode(file);
        } catch (const PictureError& error) {
            return error.Reason();
        }
        return QString();
    }());
    EXPECT_FALSE(Refusal(file).isEmpty());
}

TEST_F(ConfinedReaderTest, WhatIsNoPictureNeverReachesAReader)
{
    const OtherReader none({});
    EXPECT_EQ(Refusal("just a text that is long enough to be a picture"),
        "The file is not a picture of a known kind.");
}

TEST_F(ConfinedReaderTest, AMissingReaderIsToldWithWhatToDo)
{
    const OtherReader none({});
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

TEST_F(ConfinedReaderTest, AnAnswerThatDoesNotFitTheFileIsADamagedPicture)
{
    constexpr int indexed = QImage::Format_Indexed8;
    const std::initializer_list<int> lies[] = {
        { 0, 0, 0, 0 }, { 5, 4, indexed, 1 }, // larger than the file said
        { 4, 4, indexed, 0 }, { 4, 4, indexed, 257 }, { 4, 4, 77, 0 },
        { 4, 4, indexed, 3 }, // a pixel of a colour that is not in the palette
    };
    for (const auto& lie : lies) {
        const OtherReader liar(Answering(lie, 3));
        ASSERT_TRUE(liar.IsThere());
        EXPECT_EQ(Refusal(SmallPng()), Damaged) << testing::PrintToString(lie);
    }
    const OtherReader honest(Answering({ 4, 4, indexed, 4 }, 3));
    EXPECT_EQ(DecodeConfined(SmallPng()).size(), QSize(4, 4));
}

TEST_F(ConfinedReaderTest, TheWaitIsFilledWithTheCallersWork)
{
    const OtherReader slow("sleep 0.4\n" + Answering({ 4, 4, QImage::Format_Indexed8, 4 }, 3));
    int calls = 0;
    DecodeConfined(SmallPng(), [&] { ++calls; });
    EXPECT_GE(calls, 2);
}
