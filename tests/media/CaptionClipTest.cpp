#include "tests/media/Opened.h"

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

TEST(CaptionClip, AVideoWithoutCaptionsSaysNothing)
{
    const Opened opened("h264_closed.mp4");
    for (int number = 0; number < opened->KnownFrames(); ++number)
        EXPECT_TRUE(opened->CaptionAt(number).empty());
}

} // namespace media
