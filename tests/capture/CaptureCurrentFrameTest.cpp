#include "capture/CaptureCurrentFrame.h"

#include "app/Hourglass.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/SmallMemory.h"

#include <gtest/gtest.h>

namespace {

class CaptureCurrentFrameTest : public testing::Test {
protected:
    FakeFrame frame_;

    void Store(int opThumb)
    {
        ASSERT_TRUE(frame_.state.Settings.SaveSetting(
            QStringLiteral("Options"), QStringLiteral("OpThumb"), QString::number(opThumb)));
    }
    void ExpectMessage()
    {
        frame_.errors.Expect(QStringLiteral("Error!"),
            QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
    }
    QStringList Opened() const
    {
        QStringList log = frame_.log;
        log.removeAll(QStringLiteral("PumpEvents"));
        return log;
    }
};

TEST_F(CaptureCurrentFrameTest, TheFrameGoesThroughTheClipboardInOrder)
{
    frame_.player.frame = 7;
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(frame_.clipboard.log,
        QStringList({ QStringLiteral("Open"), QStringLiteral("Empty"), QStringLiteral("SetDib"),
            QStringLiteral("Close") }));
    EXPECT_EQ(frame_.clipboard.picture, frame_.player.StillNumber(7));
    EXPECT_EQ(frame_.clipboard.owner, &frame_.window);
    EXPECT_EQ(frame_.player.lastTimeout, 5000);
    EXPECT_EQ(frame_.log.first(), QStringLiteral("PumpEvents"));
    EXPECT_EQ(frame_.log.count(QStringLiteral("PumpEvents")), 1);
}

TEST_F(CaptureCurrentFrameTest, APressDuringACaptureHasTheFrameItSawAndItsTurnAfterwards)
{
    Store(2);
    QList<QImage> shown;
    frame_.player.frame = 1;
    frame_.whenPumped = [this] {
        if (frame_.player.frame > 2)
            return;
        ++frame_.player.frame;
        CaptureCurrentFrame(frame_);
        ++frame_.player.frame;
    };
    frame_.whenViewerOpens = [&] { shown << frame_.clipboard.picture; };
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(shown, QList({ frame_.player.StillNumber(1), frame_.player.StillNumber(2) }));
}

TEST_F(CaptureCurrentFrameTest, NeverStoredMeansWindowAndThumbnail)
{
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened(),
        QStringList(
            { QStringLiteral("OpenViewer"), QStringLiteral("AddThumbnail"), QStringLiteral("ShowFront") }));
    EXPECT_TRUE(frame_.IsCommandEnabled(Command::Save));
}

TEST_F(CaptureCurrentFrameTest, TwoOpensTheCaptureWindowOnly)
{
    Store(2);
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("OpenViewer")));
    EXPECT_TRUE(frame_.IsCommandEnabled(Command::Save));
}

TEST_F(CaptureCurrentFrameTest, TwoPressesOpenTwoWindows)
{
    Store(2);
    CaptureCurrentFrame(frame_);
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened().count(QStringLiteral("OpenViewer")), 2);
}

TEST_F(CaptureCurrentFrameTest, ZeroHoldsTheFrameForTheThumbnailOnly)
{
    Store(0);
    frame_.player.frame = 3;
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("AddThumbnail")));
    EXPECT_EQ(frame_.hold.Bitmap(), frame_.player.StillNumber(3));
    EXPECT_FALSE(frame_.enabled.contains(Command::Save));
}

TEST_F(CaptureCurrentFrameTest, ZeroLeavesAnEnabledSaveCaptureEnabled)
{
    Store(0);
    frame_.EnableCommand(Command::Save, true);
    CaptureCurrentFrame(frame_);
    EXPECT_TRUE(frame_.IsCommandEnabled(Command::Save));
}

TEST_F(CaptureCurrentFrameTest, ZeroWithAnEmptyClipboardDisablesSaveCapture)
{
    Store(0);
    frame_.EnableCommand(Command::Save, true);
    frame_.clipboard.losesWhatItGets = true;
    CaptureCurrentFrame(frame_);
    EXPECT_FALSE(frame_.IsCommandEnabled(Command::Save));
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("AddThumbnail")));
}

TEST_F(CaptureCurrentFrameTest, AnyOtherValueOpensNothingAndSaysNothing)
{
    Store(3);
    CaptureCurrentFrame(frame_);
    EXPECT_TRUE(frame_.clipboard.HasPicture());
    EXPECT_TRUE(Opened().isEmpty());
    EXPECT_FALSE(frame_.enabled.contains(Command::Save));
}

TEST_F(CaptureCurrentFrameTest, AChangedSettingCountsFromTheNextPress)
{
    Store(0);
    CaptureCurrentFrame(frame_);
    Store(2);
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened(), QStringList({ QStringLiteral("AddThumbnail"), QStringLiteral("OpenViewer") }));
}

TEST_F(CaptureCurrentFrameTest, AClipboardHeldByAnotherProgramIsSilent)
{
    frame_.EnableCommand(Command::Save, true);
    frame_.clipboard.isHeldElsewhere = true;
    CaptureCurrentFrame(frame_);
    EXPECT_FALSE(frame_.IsCommandEnabled(Command::Save));
    EXPECT_TRUE(frame_.log.isEmpty());
    EXPECT_EQ(frame_.clipboard.log, QStringList(QStringLiteral("Open")));
    EXPECT_TRUE(frame_.state.StillsTaken.empty()) << "the still is released";
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(CaptureCurrentFrameTest, AVideoWithoutAStillIsToldAndOpensNothing)
{
    ExpectMessage();
    frame_.EnableCommand(Command::Save, true);
    frame_.player.failsStills = true;
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(frame_.errors.lastOwner, &frame_.window);
    EXPECT_TRUE(frame_.log.isEmpty());
    EXPECT_TRUE(frame_.IsCommandEnabled(Command::Save));
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(CaptureCurrentFrameTest, AStillThatTheMemoryDoesNotHoldTwiceIsToldAndOpensNothing)
{
    frame_.player.size = { 8000, 8000 };
    const SmallMemory memory(300);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    ExpectMessage();
    CaptureCurrentFrame(frame_);
    EXPECT_TRUE(frame_.log.isEmpty());
    EXPECT_FALSE(frame_.clipboard.HasPicture());
}

TEST_F(CaptureCurrentFrameTest, AWindowThatDoesNotOpenIsToldAndTheClipboardKeepsTheFrame)
{
    ExpectMessage();
    frame_.whenViewerOpens = [] { throw ControlError(QStringLiteral("no window")); };
    CaptureCurrentFrame(frame_);
    EXPECT_TRUE(frame_.clipboard.HasPicture());
    EXPECT_FALSE(frame_.IsCommandEnabled(Command::Save));
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("OpenViewer")));
}

TEST_F(CaptureCurrentFrameTest, TheVideoKeepsRunning)
{
    frame_.player.state = ltmmPlay::Running;
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(frame_.player.state, ltmmPlay::Running);
}

TEST_F(CaptureCurrentFrameTest, APausedVideoGivesThePausedFrame)
{
    frame_.player.state = ltmmPlay::Paused;
    frame_.player.frame = 12;
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(frame_.clipboard.picture, frame_.player.StillNumber(12));
    EXPECT_EQ(frame_.player.frame, 12);
}

TEST_F(CaptureCurrentFrameTest, TheHourglassStandsUntilTheWindowIsOpen)
{
    Pointer seen = Pointer::Normal;
    frame_.whenViewerOpens = [&seen] { seen = CurrentPointer(); };
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(seen, Pointer::Busy);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(CaptureCurrentFrameTest, ASecondPressInsideTheFirstIsNotRefused)
{
    Store(2);
    frame_.whenPumped = [this] {
        frame_.whenPumped = nullptr;
        CaptureCurrentFrame(frame_);
    };
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(Opened().count(QStringLiteral("OpenViewer")), 2);
}

} // namespace
