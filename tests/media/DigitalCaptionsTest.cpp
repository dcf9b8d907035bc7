#include "media/CaptionTrack.h"
#include "tests/media/CaptionTriplets.h"

#include <gtest/gtest.h>

namespace media {

namespace {

class DigitalCaptionsTest : public testing::Test {
protected:
    /// The triplets of a packet with one block for a service.
    QByteArray Packet(const QByteArray& commands, int service = 1)
    {
        QByteArray packet;
        packet += char(service << 5 | int(commands.size()));
        packet += commands;
        if (packet.size() % 2 == 0)
            packet += char(0);
        packet.prepend(char((sequence_++ & 3) << 6 | int((packet.size() + 1) / 2)));
        QByteArray triplets;
        for (qsizetype i = 0; i < packet.size(); i += 2)
            triplets += QByteArray(1, char(i == 0 ? 0xFF : 0xFE)) + packet.mid(i, 2);
        return triplets;
    }
    void Say(int number, const QByteArray& commands) { track_.Add(number, Packet(commands)); }
    std::string TextAt(int number) const
    {
        std::string text;
        for (const CaptionRow& row : track_.At(number)) {
            text += text.empty() ? "" : "|";
            for (const CaptionRun& run : row.runs)
                text += run.text.toStdString();
        }
        return text;
    }
    static QByteArray Hex(const char* text) { return QByteArray::fromHex(text); }

    /// Window 0: two rows of 32 letters; its lower left corner stands at 70 of 75 down and 25 of 210 right.
    static QByteArray Window() { return Hex("98 20 46 19 61 1f 00"); }
    static QByteArray HiddenWindow() { return Hex("98 00 46 19 61 1f 00"); }

    CaptionTrack track_;
    int sequence_ = 0;
};

} // namespace

TEST_F(DigitalCaptionsTest, TextInAVisibleWindowIsSaidFromItsPictureOn)
{
    Say(7, Window() + "GOOD EVENING");
    EXPECT_EQ(TextAt(6), "");
    EXPECT_EQ(TextAt(7), "GOOD EVENING");
    EXPECT_EQ(track_.At(7)[0].row, 12);
    EXPECT_EQ(track_.At(7)[0].column, 0);
}

TEST_F(DigitalCaptionsTest, AHiddenWindowIsFilledFirstAndShownThen)
{
    Say(1, HiddenWindow() + "LATER");
    Say(5, Hex("8901"));
    Say(9, Hex("8a01"));
    Say(11, Hex("8b01"));
    Say(13, Hex("8c01"));
    EXPECT_EQ(TextAt(4), "");
    EXPECT_EQ(TextAt(5), "LATER");
    EXPECT_EQ(TextAt(9), "");
    EXPECT_EQ(TextAt(11), "LATER");
    EXPECT_EQ(TextAt(13), "");
}

TEST_F(DigitalCaptionsTest, ANewLineScrollsWhenTheWindowIsFull)
{
    Say(0, Window() + "ONE" + Hex("0d") + "TWO");
    Say(1, Hex("0d") + "SIX");
    EXPECT_EQ(TextAt(0), "ONE|TWO");
    EXPECT_EQ(TextAt(1), "TWO|SIX");
}

TEST_F(DigitalCaptionsTest, LettersLinesAndWindowsAreTakenBack)
{
    Say(0, Window() + "ABC" + Hex("08"));
    EXPECT_EQ(TextAt(0), "AB");
    Say(1, Hex("0e") + "X");
    EXPECT_EQ(TextAt(1), "X");
    Say(2, Hex("0c"));
    EXPECT_EQ(TextAt(2), "");
    Say(3, Window() + "Y" + Hex("8801"));
    EXPECT_EQ(TextAt(3), "");
    Say(4, "Z" + Hex("8f"));
    EXPECT_EQ(TextAt(4), "");
}

TEST_F(DigitalCaptionsTest, ThePenHasAPlaceAColourAndALook)
{
    Say(0, Window() + Hex("920104 91300000 900080") + "RED");
    const Caption caption = track_.At(0);
    ASSERT_EQ(caption.size(), 1U);
    EXPECT_EQ(caption[0].row, 13);
    EXPECT_EQ(caption[0].column, 4);
    const CaptionRun red { QStringLiteral("RED"), qRgb(255, 0, 0), true, false };
    EXPECT_EQ(caption[0].runs, std::vector { red });
}

TEST_F(DigitalCaptionsTest, AWindowMayCentreItsLines)
{
    Say(0, Window() + Hex("97000002 00") + "FOUR");
    EXPECT_EQ(track_.At(0)[0].column, 14);
}

TEST_F(DigitalCaptionsTest, LettersBeyondAsciiAreWhatTheyAre)
{
    Say(0, Window() + Hex("7f c9 1039 1030 18266a 10a0 1041"));
    EXPECT_EQ(TextAt(0), "♪É™█♪__");
}

TEST_F(DigitalCaptionsTest, WindowsAreSaidFromTheUpperRowDown)
{
    Say(0, Window() + "LOWER" + Hex("99 20 05 19 00 1f 00") + "UPPER");
    EXPECT_EQ(TextAt(0), "UPPER|LOWER");
}

TEST_F(DigitalCaptionsTest, ACommandMayGoOnInTheNextPacket)
{
    Say(0, Window().left(3));
    Say(1, Window().mid(3) + "WHOLE");
    EXPECT_EQ(TextAt(1), "WHOLE");
}

TEST_F(DigitalCaptionsTest, AfterALostPacketTheRestOfACommandIsNotWaitedFor)
{
    Say(0, Window() + "AB" + Window().left(3));
    ++sequence_;
    Say(1, "CD");
    EXPECT_EQ(TextAt(1), "ABCD");
}

TEST_F(DigitalCaptionsTest, OtherServicesAreLeftOut)
{
    track_.Add(0, Packet(Window() + "ESPANOL", 2));
    EXPECT_EQ(TextAt(0), "");
}

TEST_F(DigitalCaptionsTest, APacketMayBeSpreadOverPictures)
{
    const QByteArray triplets = Packet(Window() + "SLOWLY");
    track_.Add(3, triplets.left(6));
    track_.Add(4, triplets.mid(6));
    EXPECT_EQ(TextAt(3), "");
    EXPECT_EQ(TextAt(4), "SLOWLY");
}

TEST_F(DigitalCaptionsTest, TheCaptionsOfLine21CountWhereBothAreThere)
{
    using namespace triplets;
    Say(0, Window() + "DIGITAL");
    EXPECT_EQ(TextAt(0), "DIGITAL");
    track_.Add(1, Packet("MORE") + Codes({ PaintOn, LastRow }) + Letters("LINE"));
    EXPECT_EQ(TextAt(1), "LINE");
    EXPECT_EQ(TextAt(0), "");
}

/// What a window that was never defined is asked for, and sizes beyond all bounds.
TEST_F(DigitalCaptionsTest, NonsenseDoesNoHarm)
{
    Say(0, "LOST" + Hex("0d 0e 08 0c 92ffff 88ff 89ff 8bff 8dff 8e"));
    Say(1, Hex("9f ffffffffffff 92ffff 20 0d 0d 08") + "X" + Hex("97ffffffff"));
    for (int byte = 0; byte < 256; ++byte)
        Say(2 + byte, QByteArray(20, char(byte)));
    for (const CaptionRow& row : track_.At(300)) {
        EXPECT_GE(row.row, 0);
        EXPECT_LT(row.row, CaptionRows);
    }
}

} // namespace media
