// Rules that hold for the run by frames and for the run by time.
#include "tests/testing/FileSizeLimit.h"
#include "tests/video/AutoRunFixture.h"
#include "tests/video/HeldDisk.h"

#include <algorithm>

namespace {

enum class Way { ByFrames, ByTime };

class EitherRunTest : public AutoRunFixture, public testing::WithParamInterface<Way> {
protected:
    bool IsTimed() const { return GetParam() == Way::ByTime; }
    void Begin(const QStringList& names)
    {
        player->rate = 50; // the pictures of a timed run come in quick succession
        if (IsTimed())
            RunByTime(names, 1);
        else
            RunByFrames(names, 10);
    }
    /// Plays the video of a timed run to its end; the other comes to it by itself.
    void PlayToEnd()
    {
        if (IsTimed())
            Progress(10'000);
    }
    /// Waits until it had the time to take more pictures than it has taken.
    bool AwaitTurns() const
    {
        const auto ticks = [this] { return frame.told.value(StatusLabel::Flashing).size(); };
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents();
        return !IsTimed() || Await([&, wanted = ticks() + 3] { return ticks() >= wanted; });
    }
};

const QString A = QStringLiteral("a.avi");
const QString B = QStringLiteral("b.avi");

} // namespace

TEST_P(EitherRunTest, ADiskThatHangsLetsNoMoreThanThreePicturesWait)
{
    player->frameCounts[A] = 30'000;
    int mostWaiting = 0;
    player->whenStillIsTaken = [&] {
        mostWaiting = std::max(mostWaiting, player->stillsGiven - FilesWritten());
    };
    {
        const HeldDisk disk;
        Begin({ A });
        ASSERT_TRUE(AwaitStills(3));
        ASSERT_TRUE(AwaitTurns());
        EXPECT_EQ(player->stillsGiven, 3);
    }
    ASSERT_TRUE(AwaitStills(10));
    EXPECT_LE(mostWaiting, 3);
}

TEST_P(EitherRunTest, WhereNoFileMayGrowThereAreWholePicturesOnlyAndTheRightCount)
{
    player->frameCounts[A] = 30'000;
    Begin({ A });
    ASSERT_TRUE(Await([&] { return FilesWritten() > 3; }));
    const bool isOver = [&] {
        const FileSizeLimit limit(100);
        const bool goesOn = !IsTimed() || AwaitStills(5);
        PlayToEnd();
        return goesOn && AwaitOver();
    }();
    ASSERT_TRUE(isOver);
    EXPECT_LT(FilesWritten(), player->stillsGiven);
    EXPECT_TRUE(AreAllWhole());
    EXPECT_TRUE(
        Status(StatusLabel::AutoCapture).endsWith(QStringLiteral("Total Captures = %1").arg(FilesWritten())));
}

TEST_P(EitherRunTest, TheWindowTakesTheSizeOfEachVideo)
{
    player->sizes = { { A, QSize(320, 180) }, { B, QSize(200, 240) } };
    QMap<QString, QSize> seen;
    player->whenStillIsTaken = [&] { seen[player->opened.last()] = window->size(); };
    Begin({ A, B });
    ASSERT_TRUE(Await([&] { return seen.contains(A); }));
    PlayToEnd();
    ASSERT_TRUE(Await([&] { return seen.contains(B); }));
    EXPECT_EQ(seen.value(A), QSize(320 + 10, 180 + 33)) << "150 and 500 twips are kept around the video";
    EXPECT_EQ(seen.value(B), QSize(200 + 10, 240 + 33));
}

INSTANTIATE_TEST_SUITE_P(Ways, EitherRunTest, testing::Values(Way::ByFrames, Way::ByTime),
    [](const auto& way) { return way.param == Way::ByTime ? "ByTime" : "ByFrames"; });
