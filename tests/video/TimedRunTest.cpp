#include "tests/video/AutoRunFixture.h"
#include "toolkit/StripButton.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>

namespace {

using TimedRunTest = AutoRunFixture;

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
    EXPECT_EQ(player->state, ltmmPlay::Running);
    EXPECT_EQ(Status(StatusLabel::Operation), "Video #:1");
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    EXPECT_EQ(Status(StatusLabel::Flashing), "Auto");
    for (const StatusLabel label :
        { StatusLabel::AutoCapture, StatusLabel::Operation, StatusLabel::Position })
        EXPECT_TRUE(frame.statusShown.value(label));
    EXPECT_EQ(FilesWritten(), 1);
    EXPECT_TRUE(pane.Cmd2[PauseButton]->isEnabled());
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

TEST_F(TimedRunTest, TheRunByTimeWinsWhenBothAreOn)
{
    state.AutoFrame = true;
    RunByTime({ A }, 1);
    EXPECT_EQ(player->state, ltmmPlay::Running);
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
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Cmds(3)")), Qt::LeftButton);
    QFile::remove(PicturePath(1));
    Open({ A });
    ASSERT_TRUE(Await([&] { return FilesWritten() == 1; }));
    EXPECT_TRUE(QFile::exists(PicturePath(1)));
}
