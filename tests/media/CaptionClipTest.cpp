#include "tests/media/Opened.h"

#include <QFile>
#include <gtest/gtest.h>

namespace media {

namespace {

std::string TextOf(const Caption& caption)
{
    std::string text;
    for (const CaptionRow& row : caption)
        for (const CaptionRun& run : row.runs)
            text += run.text.trimmed().toStdString() + "/";
    return text;
}

} // namespace

TEST(CaptionClip, TheTextChangesAtTheVeryPicture)
{
    for (const char* clip : { "cc608.mpg", "cc608.mp4" }) {
        SCOPED_TRACE(clip);
        const Opened opened(QString::fromLatin1(clip));
        const auto textAt = [&](int number) { return TextOf(opened->CaptionAt(number)); };
        ASSERT_EQ(opened->KnownFrames(), 120);
        for (int number = 0; number < 66; ++number)
            EXPECT_EQ(textAt(number), number >= 25 && number < 50 ? "HELLO FRAME 25/" : "") << number;
        EXPECT_EQ(textAt(66), "RO/");
        EXPECT_EQ(textAt(79), "ROLL UP TWO/");
        EXPECT_EQ(textAt(119), "ROLL UP TWO/SECOND LINE/");
    }
}

TEST(CaptionClip, ATrackOfItsOwnSpeaksFromTheFirstPictureThatBeginsWithItsText)
{
    const Opened opened("cc_track.mov");
    ASSERT_EQ(opened->KnownFrames(), 120);
    for (int number = 0; number < 120; ++number)
        EXPECT_EQ(TextOf(opened->CaptionAt(number)), number >= 20 && number < 75 ? "HELLO SCC!/" : "")
            << number << " at " << opened->TimeOf(number);
}

TEST(CaptionClip, ATrackOfItsOwnSpeaksFromMemoryToo)
{
    QFile file(ClipPath("cc_track.mov"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    Interrupt interrupt;
    const auto server = FrameServer::Open({ Source::Kind::Memory, file.readAll() }, interrupt);
    server->ExtendIndex(21);
    EXPECT_EQ(TextOf(server->CaptionAt(20)), "HELLO SCC!/");
}

TEST(CaptionClip, AVideoWithoutCaptionsSaysNothing)
{
    const Opened opened("h264_closed.mp4");
    for (int number = 0; number < opened->KnownFrames(); ++number)
        EXPECT_TRUE(opened->CaptionAt(number).empty());
}

} // namespace media
