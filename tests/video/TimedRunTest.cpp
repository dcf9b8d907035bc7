#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/SmallDisk.h"
#include "tests/video/AutoRunFixture.h"
#include "tests/video/HeldDisk.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace {

class TimedRunTest : public AutoRunFixture {
protected:
    /// A run whose pictures come in quick succession: the video plays fast.
    void RunQuickly(const QStringList& names)
    {
        player->rate = 50;
        RunByTime(names, 1);
    }
    /// Waits until so many captures of one video were told, 2 to 9.
    bool AwaitCaptures(int count) const
    {
        return AwaitLabel(QStringLiteral("Captured frame at 00:00:0%1        Total Captures = %2")
                              .arg(count - 1)
                              .arg(count));
    }
};

const QString A = QStringLiteral("a.avi");
const QString B = QStringLiteral("b.wmv");
const QString C = QStringLiteral("c.mpg");

/// The timers that have ticked for a run, which are the precise ones.
class Ticking : public QObject {
public:
    Ticking() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        auto* timer = event->type() == QEvent::Timer ? qobject_cast<QTimer*>(receiver) : nullptr;
        if (timer && timer->timerType() == Qt::PreciseTimer)
            timers_.emplace_back(timer);
        return false;
    }
    bool TicksOn() const
    {
        return std::any_of(timers_.begin(), timers_.end(),
            [](const QPointer<QTimer>& timer) { return timer && timer->isActive(); });
    }

private:
    std::vector<QPointer<QTimer>> timers_;
};

} // namespace

TEST_F(TimedRunTest, TheVideoPlaysAndItsFirstPictureComesAlmostAtOnce)
{
    RunByTime({ A }, 10);
    EXPECT_EQ(Status(StatusLabel::Operation), "Video #:1");
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    EXPECT_EQ(player->state, ltmmPlay::Running);
    EXPECT_EQ(Status(StatusLabel::Flashing), "Auto");
    for (const StatusLabel label :
        { StatusLabel::AutoCapture, StatusLabel::Operation, StatusLabel::Position })
        EXPECT_TRUE(frame.statusShown.value(label));
    EXPECT_EQ(FilesWritten(), 1);
    EXPECT_TRUE(pane.Cmd2[PauseButton]->isEnabled());
    EXPECT_TRUE(pane.Cmd3[SoundButton]->isEnabled());
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
}

TEST_F(TimedRunTest, LaterPicturesComeInTheirIntervalAndTellTheirTime)
{
    RunByTime({ A }, 1);
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured frame at 00:00:02        Total Captures = 3")));
    EXPECT_EQ(FilesWritten(), 3);
}

TEST_F(TimedRunTest, TheFilesBearTheExtensionOfCapturesAndHoldBitmapData)
{
    Store("Ext", QStringLiteral(".png"));
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(FileBytes(PicturePath(1, ".png")).startsWith("BM"));
}

TEST_F(TimedRunTest, TheExtensionIsReadAnewForEachVideo)
{
    const auto pictures = [this](const char* extension) {
        return FilesIn(PictureFolder()).filter(QLatin1String(extension)).size();
    };
    RunQuickly({ A, C });
    ASSERT_TRUE(Await([&] { return pictures(".bmp") > 0; }));
    Store("Ext", QStringLiteral(".png"));
    ASSERT_TRUE(AwaitStills(4)); // one of them is written by now
    EXPECT_EQ(pictures(".png"), 0);
    Progress(10'000);
    ASSERT_TRUE(Await([&] { return pictures(".png") > 0; }));
    const auto before = pictures(".bmp");
    ASSERT_TRUE(AwaitStills(4));
    EXPECT_EQ(pictures(".bmp"), before);
}

TEST_F(TimedRunTest, APausedVideoWaitsAndTheCountDoesNotMove)
{
    RunByTime({ A }, 1);
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    player->Pause();
    ASSERT_TRUE(Await([&] { return Status(StatusLabel::Flashing) == QStringLiteral("Paused"); }));
    EXPECT_EQ(FilesWritten(), 1);
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured first frame.     Total Captures = 1");
    player->Run();
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured frame at 00:00:01        Total Captures = 2")));
    EXPECT_EQ(Status(StatusLabel::Flashing), "Auto");
}

TEST_F(TimedRunTest, AStillThatIsRefusedIsPassedOverAndTheNextOneComes)
{
    player->failsStills = true;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return player->lastTimeout == 5000; })) << "it was asked for";
    EXPECT_EQ(FilesWritten(), 0);
    EXPECT_EQ(Status(StatusLabel::AutoCapture), QString());
    player->failsStills = false;
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
}

TEST_F(TimedRunTest, AFileThatCannotBeWrittenIsPassedOverAndTheNextOneComes)
{
    QDir(PictureFolder()).removeRecursively();
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return player->stillsGiven == 1; }));
    QDir().mkpath(PictureFolder());
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
}

TEST_F(TimedRunTest, AFullDiskLeavesWholeFilesOnlyAndTheRightCount)
{
    SmallDisk disk(24);
    if (!disk.IsThere())
        GTEST_SKIP() << "no file system can be mounted here";
    WriteTo(disk);
    player->size = QSize(40, 30);
    RunQuickly({ A });
    ASSERT_TRUE(AwaitStills(20));
    EXPECT_EQ(player->state, ltmmPlay::Running);
    Progress(10'000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_GT(FilesWritten(), 0);
    EXPECT_LT(FilesWritten(), 20);
    EXPECT_TRUE(AreAllWhole());
    EXPECT_TRUE(Status(StatusLabel::AutoCapture).endsWith(QStringLiteral(" %1").arg(FilesWritten())));
    QFile::remove(PictureFolder());
}

TEST_F(TimedRunTest, AFolderRemovedInTheMiddleIsWrittenToAgainOnceItIsBack)
{
    RunQuickly({ A });
    ASSERT_TRUE(AwaitCaptures(3));
    // A picture may come in between.
    ASSERT_TRUE(Await([&] { return QDir(PictureFolder()).removeRecursively(); }));
    ASSERT_TRUE(AwaitStills(7)); // three of them may wait: the fourth has been tried
    QDir().mkpath(PictureFolder());
    ASSERT_TRUE(Await([&] { return FilesWritten() > 0; }));
    EXPECT_EQ(player->state, ltmmPlay::Running);
    EXPECT_FALSE(QFile::exists(PicturePath(4))) << "a number that was tried is not tried again";
}

TEST_F(TimedRunTest, TheUsersTextIsBurntIntoEveryPicture)
{
    Store("UseWatermark", QStringLiteral("True"));
    Store("Ext", QStringLiteral(".png"));
    state.Reload(Key::UseWatermark);
    player->size = QSize(400, 100);
    RunQuickly({ A });
    ASSERT_TRUE(AwaitCaptures(2));
    EXPECT_EQ(Status(StatusLabel::Watermark), "Watermark Applied");
    EXPECT_TRUE(FileBytes(PicturePath(1, ".png")).startsWith("\x89PNG"));
    const QImage written(PicturePath(1, ".png"));
    QImage plain = written;
    plain.fill(written.pixel(399, 99));
    EXPECT_NE(written, plain);
}

TEST_F(TimedRunTest, ATextThatCannotBeBurntLeavesTheFileAsWrittenAndTheNextPictureComes)
{
    Store("UseWatermark", QStringLiteral("True"));
    Store("Ext", QStringLiteral(".tif"));
    state.Reload(Key::UseWatermark);
    player->size = QSize(8, 4);
    RunQuickly({ A });
    const bool goesOn = [&] {
        const FileSizeLimit limit(54 + 8 * 4 * 3); // of a bitmap; the tags of the other format need more
        return AwaitStills(3) && Await([&] { return FilesWritten() > 1; });
    }();
    ASSERT_TRUE(goesOn);
    EXPECT_TRUE(FileBytes(PicturePath(1, ".tif")).startsWith("BM"));
    EXPECT_EQ(Status(StatusLabel::AutoCapture), QString()) << "the count does not move";
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    EXPECT_TRUE(FileBytes(state.CurrentFile).startsWith("II*"));
}

TEST_F(TimedRunTest, TheWindowsCloseButtonLeavesTheRun)
{
    RunQuickly({ A, C });
    ASSERT_TRUE(AwaitCaptures(3));
    ExpectTheCloseButtonToLeaveTheRun();
}

TEST_F(TimedRunTest, ASecondOpenLeavesTheRunAndBeginsItsOwn)
{
    RunQuickly({ A, C });
    ASSERT_TRUE(AwaitCaptures(4));
    frame.told.clear();
    RunQuickly({ B });
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    EXPECT_EQ(player->opened, (QStringList { A, B }));
    Progress(10'000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->opened, (QStringList { A, B })) << "the videos of the first run are left";
}

TEST_F(TimedRunTest, AVideoChosenFromTheListLeavesTheRunAndOpensAsUsual)
{
    RunQuickly({ A, C });
    ASSERT_TRUE(AwaitCaptures(3));
    state.VideoPath = state.Videos.value(2);
    state.FromList = true;
    window->OpenVideo();
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
    const int given = player->stillsGiven;
    QCoreApplication::processEvents();
    EXPECT_EQ(player->stillsGiven, given);
}

TEST_F(TimedRunTest, AnOpenCountsTheCapturesAnew)
{
    RunQuickly({ A, C });
    ASSERT_TRUE(AwaitCaptures(3));
    ASSERT_GE(window->UserCaptures(), 2);
    state.VideoPath = state.Videos.value(2);
    state.FromList = true;
    window->OpenVideo();
    EXPECT_EQ(window->UserCaptures(), 0);
}

TEST_F(TimedRunTest, TheWindowsOtherButtonsLetItGoOn)
{
    RunQuickly({ A });
    ASSERT_TRUE(AwaitCaptures(2));
    for (const char* button : { "Cmds(1)", "Cmds(1)", "Cmds(2)", "Cmds(2)" }) {
        Press(button);
        ASSERT_TRUE(AwaitStills(2)) << button;
    }
    EXPECT_TRUE(AreAllWhole());
}

TEST_F(TimedRunTest, AtHundredPercentTheNextVideoFollowsAndItsFirstPictureDoesNotMoveTheCount)
{
    RunByTime({ A, QStringLiteral("notes.txt"), C }, 1);
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured frame at 00:00:02        Total Captures = 3")));
    Progress(9949);
    QCoreApplication::processEvents();
    EXPECT_EQ(player->opened, QStringList { A });
    Progress(9950); // is shown as 100%
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Flashing));
    ASSERT_TRUE(Await([&] { return player->opened == QStringList({ A, C }); }));
    EXPECT_EQ(Status(StatusLabel::Operation), "Video #:2");
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 3")));
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured frame at 00:00:03        Total Captures = 4")));
    EXPECT_EQ(FilesWritten(), 4) << "numbers run on";
}

TEST_F(TimedRunTest, AtHundredPercentTheWordsOfTheWatermarkGo)
{
    RunByTime({ A }, 10);
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    for (const int position : { 9949, 9950 }) { // shown as 99% and 100%
        frame.ShowStatus(StatusLabel::Watermark, true);
        Progress(position);
        EXPECT_EQ(frame.statusShown.value(StatusLabel::Watermark), position == 9949);
    }
}

TEST_F(TimedRunTest, AfterTheLastVideoNothingMoreIsWrittenAndTheCommandsComeBack)
{
    const Ticking ticking;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(ticking.TicksOn());
    Progress(10000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_FALSE(ticking.TicksOn());
    EXPECT_TRUE(pane.Cmd2[PlayButton]->isEnabled());
}

TEST_F(TimedRunTest, AfterTheEndTheLabelFlashesNoMore)
{
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return frame.statusShown.value(StatusLabel::Flashing); })) << "it flashes";
    Progress(10'000);
    ASSERT_TRUE(AwaitOver());
    frame.ShowStatus(StatusLabel::Flashing, true);
    window->resize(20, 20); // two seconds later the window grows
    ASSERT_TRUE(Await([&] { return window->height() >= 53; }));
    EXPECT_TRUE(frame.statusShown.value(StatusLabel::Flashing)) << "nothing has hidden it in that time";
}

TEST_F(TimedRunTest, AWmvIsCapturedByTimeAsAnyOther)
{
    RunByTime({ B }, 1);
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
}

TEST_F(TimedRunTest, ABrokenVideoIsPassedOver)
{
    player->refused = frame.folder.filePath(A);
    RunByTime({ A, C }, 1);
    ASSERT_TRUE(Await([&] { return player->opened == QStringList({ A, C }); }));
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
}

TEST_F(TimedRunTest, APlayerThatGivesUpLeadsToTheNextVideo)
{
    state.ShowPlayerErrors = false;
    RunByTime({ A, C }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    player->Stop();
    Q_EMIT player->PlayerError(1);
    ASSERT_TRUE(Await([&] { return player->opened == QStringList({ A, C }); }));
}

TEST_F(TimedRunTest, TheNextVideoOpensWhileTheErrorOfTheLastOneStands)
{
    frame.errors.Expect(QStringLiteral("Error Abort"),
        QStringLiteral("Abort, Error Playing.     Error Code: Reason 1.  Or file is not complete, or it is "
                       "corrupt"));
    frame.errors.whileShown = [this] {
        EXPECT_TRUE(Await([&] { return player->opened == QStringList({ A, C }); }));
    };
    RunByTime({ A, C }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    player->Stop();
    Q_EMIT player->PlayerError(1);
}

TEST_F(TimedRunTest, APictureThatComesDueWhileTheDiskHangsIsTakenAsSoonAsThereIsRoom)
{
    const auto ticks = [this] { return frame.told.value(StatusLabel::Flashing).size(); };
    {
        const HeldDisk disk;
        RunQuickly({ A });
        ASSERT_TRUE(AwaitStills(3));
        player->rate = 0.001; // the tick after the next is far away
        ASSERT_TRUE(Await([&, wanted = ticks() + 1] { return ticks() >= wanted; }));
        EXPECT_EQ(player->stillsGiven, 3);
    }
    EXPECT_TRUE(AwaitStills(1));
}

TEST_F(TimedRunTest, ALastPictureLeavesNoWatermarkLabelBehind)
{
    state.UseWatermark = true;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return player->stillsGiven == 1; }));
    Progress(10'000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(Status(StatusLabel::Watermark), "Watermark Applied");
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
}

TEST_F(TimedRunTest, ARunThatIsLeftTakesItsWatermarkLabelWithIt)
{
    state.UseWatermark = true;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return frame.statusShown.value(StatusLabel::Watermark); }));
    window->StopCapture();
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
}

TEST_F(TimedRunTest, TheRunByTimeWinsWhenBothAreOn)
{
    state.AutoFrame = true;
    RunByTime({ A }, 1);
    EXPECT_TRUE(Await([&] { return player->state == ltmmPlay::Running; }));
}

TEST_F(TimedRunTest, AnIntervalNeverStoredIsAThousandSeconds)
{
    state.AutoCapture = true;
    state.CaptureTime = true;
    Open({ A });
    EXPECT_EQ(state.UsersCaptureTime, 1000);
}

TEST_F(TimedRunTest, AVideoThatIsRepeatedForEverIsCapturedOnce)
{
    pane.Cmd3[LoopButton]->SetValue(1);
    player->playCount = 0;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return player->state == ltmmPlay::Running; }));
    EXPECT_EQ(player->playCount, 1);
    window->StopCapture();
    EXPECT_EQ(player->playCount, 0);
}

TEST_F(TimedRunTest, AnIntervalChangedInTheMiddleCountsFromTheNextRun)
{
    RunByTime({ A }, 1);
    state.UsersCaptureTime = 1000;
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured frame at 00:00:01        Total Captures = 2")));
}

TEST_F(TimedRunTest, AutoCaptureWithoutEitherWayOpensAsUsualAndDisablesTheCommandsOfTheVideo)
{
    state.AutoCapture = true;
    frame.enabled[Command::Stretch] = true;
    Open({ A });
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
    EXPECT_FALSE(frame.enabled.value(Command::Stretch));
    EXPECT_TRUE(frame.enabled.value(Command::Capture));
}

TEST_F(TimedRunTest, ClosingTheWindowEndsTheTicks)
{
    const Ticking ticking;
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(ticking.TicksOn());
    frame.own = &spare;
    window->close();
    ASSERT_TRUE(Await([&] { return window.isNull(); }));
    EXPECT_FALSE(ticking.TicksOn());
    EXPECT_EQ(FilesWritten(), 1);
}

TEST_F(TimedRunTest, ThePictureBeingWrittenAtTheEndOfAVideoCountsAsItsOwn)
{
    RunByTime({ A, C }, 1);
    ASSERT_TRUE(Await([&] { return player->stillsGiven == 1; }));
    Progress(10'000);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 2; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured first frame.     Total Captures = 2")
        << "told of the second video";
}

TEST_F(TimedRunTest, TheWindowsOpenButtonLetsTheNumbersBeginAnew)
{
    RunByTime({ A }, 1);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    Press("Cmds(3)");
    QFile::remove(PicturePath(1));
    Open({ A });
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(QFile::exists(PicturePath(1)));
}

TEST_F(TimedRunTest, AnotherRunGoesOnWithTheNumbersAndFillsNoGap)
{
    RunByTime({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    Progress(10'000);
    ASSERT_TRUE(AwaitOver());
    QFile::remove(PicturePath(1));
    RunByTime({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(QFile::exists(PicturePath(2)));
}

TEST_F(TimedRunTest, FromTheFirstPictureOnTheLabelFlashesAndTheWordsOfTheWatermarkGo)
{
    frame.ShowStatus(StatusLabel::Watermark, true);
    RunByTime({ A }, 1);
    const auto isFlashing = [this] { return frame.statusShown.value(StatusLabel::Flashing); };
    ASSERT_TRUE(Await(isFlashing));
    EXPECT_GE(FilesWritten(), 1);
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
    EXPECT_TRUE(Await([&] { return !isFlashing(); }));
}
