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

/// A video of ten pictures a second, of which no more than ten come in time.
class StuckServer : public media::FrameServer {
public:
    int KnownFrames() const override { return known_; }
    bool IsComplete() const override { return false; }
    void ExtendIndex(int frames) override { known_ = std::min(frames, 10); }
    QSize Size() const override { return {}; }
    double Duration() const override { return 100; }
    bool TellsDuration() const override { return tellsDuration; }
    bool HasSound() const override { return false; }
    double Start() const override { return 0; }
    double TimeOf(int number) const override { return number / 10.0; }
    int NumberAt(double seconds) const override { return std::min(int(seconds * 10), known_ - 1); }
    media::Caption CaptionAt(int) const override { return {}; }
    media::Picture Get(int, media::Purpose) override { return {}; }
    bool Prepare(int, media::Interrupt::Clock::time_point) override { return false; }
    int Reserve() const override { return 0; }
    void Walk(const std::vector<int>&, const std::function<bool(const media::Picture&)>&) override { }
    media::Picture Cached(int) const override { return {}; }

    bool tellsDuration = true;

private:
    int known_ = 1;
};

struct Stuck {
    explicit Stuck(bool isAddress)
        : index(server, interrupt, facts, isAddress)
    {
    }
    StuckServer server;
    media::Interrupt interrupt;
    FactSheet facts;
    GrowingIndex index;
};

template <typename Work> void ExpectNotInTime(const Work& work)
{
    try {
        work();
        ADD_FAILURE() << "another picture in its place";
    } catch (const media::MediaError& error) {
        EXPECT_EQ(error.failure, media::Failure::TimedOut);
    }
}

} // namespace

TEST(GrowingIndex, APlaceThatDoesNotComeInTimeIsToldAndNotReplaced)
{
    Stuck stuck(false);
    EXPECT_EQ(stuck.index.Reach(5), 5);
    ExpectNotInTime([&] { stuck.index.Reach(10); });
    EXPECT_EQ(stuck.index.ReachTime(0.5), 5);
    ExpectNotInTime([&] { stuck.index.ReachTime(2); });
    ExpectNotInTime([&] { stuck.index.ReachLast(); });
}

TEST(GrowingIndex, TheEndOfWhatIsSentAsItHappensIsTheLastPictureThatCame)
{
    Stuck stuck(true);
    stuck.server.tellsDuration = false;
    EXPECT_EQ(stuck.index.ReachLast(), 9);
}

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
