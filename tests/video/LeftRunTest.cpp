// A run by frames that is left while a message of it stands.
#include "tests/video/AutoRunFixture.h"

namespace {

const QString Wmv = QStringLiteral("b.wmv");
const QString SingleFrame = QStringLiteral("single.avi");
const QString Before = QStringLiteral("before.avi");
const QString Behind = QStringLiteral("behind.avi");
const QString Other = QStringLiteral("other.avi");

/// A video that is told of, in the run's first place or a later one.
struct Told {
    const char* name;
    const QString& video;
    bool isFirst;
};

class LeftRunTest : public AutoRunFixture, public testing::WithParamInterface<Told> {
protected:
    /// Does this while the message stands, and lets the events that follow have their way.
    void WhileTheMessageStands(const std::function<void()>& leave)
    {
        player->frameCounts[SingleFrame] = 1;
        if (GetParam().video == Wmv)
            ExpectRefusal();
        else
            ExpectSingleFrame();
        bool wasLeft = false;
        frame.errors.whileShown = [&] {
            leave();
            wasLeft = true;
        };
        QStringList videos { GetParam().video, Behind };
        if (!GetParam().isFirst)
            videos.prepend(Before);
        RunByFrames(videos, 10);
        ASSERT_TRUE(Await([&] { return wasLeft; }));
        frame.errors.whileShown = nullptr;
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents();
    }
    int FilesBefore() const { return GetParam().isFirst ? 0 : 3; }
};

} // namespace

TEST_P(LeftRunTest, StoppedItOpensNoFurtherVideo)
{
    WhileTheMessageStands([this] { window->StopCapture(); });
    EXPECT_FALSE(player->opened.contains(Behind));
    EXPECT_EQ(FilesWritten(), FilesBefore());
}

TEST_P(LeftRunTest, ASecondOpenBeginsItsOwnRun)
{
    WhileTheMessageStands([this] { RunByFrames({ Other }, 10); });
    ASSERT_TRUE(AwaitOver());
    EXPECT_FALSE(player->opened.contains(Behind));
    EXPECT_EQ(player->opened.last(), Other);
    EXPECT_EQ(FilesWritten(), FilesBefore() + 3);
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured frame at Frame #: 20    Total Captures = 3");
}

TEST_P(LeftRunTest, TheClosedWindowGoesAndNothingMoreIsWritten)
{
    WhileTheMessageStands([this] {
        frame.own = &spare;
        window->close();
    });
    ASSERT_TRUE(Await([&] { return window.isNull(); }));
    EXPECT_EQ(FilesWritten(), FilesBefore());
}

INSTANTIATE_TEST_SUITE_P(Messages, LeftRunTest,
    testing::Values(Told { "OfTheFirstWmv", Wmv, true }, Told { "OfALaterWmv", Wmv, false },
        Told { "OfTheFirstSingleFrame", SingleFrame, true },
        Told { "OfALaterSingleFrame", SingleFrame, false }),
    [](const auto& told) { return told.param.name; });
