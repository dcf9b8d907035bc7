#include "media/player/GrowingIndex.h"
#include "tests/media/Opened.h"

#include <gtest/gtest.h>

using namespace player;

namespace {

/// A clip's index that grows.
struct Grown {
    explicit Grown(const char* clip)
        : opened(QString::fromUtf8(clip))
    {
    }
    media::Opened opened;
    FactSheet facts;
    GrowingIndex index { *opened.server, *opened.interrupt, facts, false };
};

} // namespace

TEST(GrowingIndex, PlayingShowsEveryPictureOfAnAvi)
{
    for (const char* clip : { "mpeg4_bf.avi", "xvid_packed.avi", "h264_bframes.avi", "mpeg4_nvop.avi" }) {
        SCOPED_TRACE(clip);
        Grown grown(clip);
        PlayPlan plan(grown.index, {}, {}, 0, 0);
        int next = 0;
        while (const auto step = plan.Next(0))
            EXPECT_EQ(step->number, next++);
        EXPECT_EQ(next, grown.opened->KnownFrames());
    }
}
