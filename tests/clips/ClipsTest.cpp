#include "tests/clips/Clips.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Clips, NumbersAreRangesSinglesAndUnknowns)
{
    EXPECT_THAT(ExpandNumbers(QStringLiteral("0-2,?2,9,?")), ElementsAre(0, 1, 2, -1, -1, 9, -1));
    EXPECT_THAT(ExpandNumbers(QString()), IsEmpty());
}

TEST(Clips, ACodedClipTellsOneNumberForEachPicture)
{
    for (const Clip& clip : AllClips()) {
        const std::size_t expected = clip.Tags.empty() ? 0 : static_cast<std::size_t>(clip.Pictures);
        EXPECT_EQ(clip.Numbers.size(), expected) << clip.Name.toStdString();
    }
}

TEST(Clips, AnUnknownNameIsToldAtOnce)
{
    EXPECT_EQ(ClipNamed(QStringLiteral("h264_closed.mp4")).Pictures, 100);
    EXPECT_THROW(ClipNamed(QStringLiteral("nosuch.mp4")), std::runtime_error);
}

} // namespace
