#include "app/Hourglass.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/Files.h"
#include "tests/testing/SmallMemory.h"
#include "tests/video/VideoWindowFixture.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"

#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <chrono>

using namespace std::chrono_literals;

namespace {

class VideoWindowTest : public VideoWindowFixture {
protected:
    void Press(const char* button)
    {
        QTest::mouseClick(window->findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
    /// What the player is asked for from now on, one call after the other.
    void NoteCalls(QStringList& calls)
    {
        Player().whenAsked = [&calls](const char* call) { calls << QLatin1String(call); };
    }
};

/// The window's timers of one kind, as they are seen to tick.
class TimerWatch : public QObject {
public:
    TimerWatch(std::chrono::milliseconds interval, bool isSingleShot)
        : interval_(interval)
        , isSingleShot_(isSingleShot)
    {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        auto* timer = event->type() == QEvent::Timer ? qobject_cast<QTimer*>(receiver) : nullptr;
        if (timer && timer->isSingleShot() == isSingleShot_ && timer->intervalAsDuration() == interval_)
            seen_ = timer;
        return false;
    }
    /// Waits for a tick to come.
    bool AwaitTick()
    {
        seen_ = nullptr;
        return QTest::qWaitFor([this] { return !seen_.isNull(); }, 10'000);
    }
    bool Runs() const { return seen_ && seen_->isActive(); }

private:
    std::chrono::milliseconds interval_;
    bool isSingleShot_;
    QPointer<QTimer> seen_;
};

/// The check of the window's size.
struct SizeCheck : TimerWatch {
    SizeCheck()
        : TimerWatch(2000ms, true)
    {
    }
};

} // namespace

TEST_F(VideoWindowTest, TheWindowTakesTheSizeOfTheVideo)
{
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(Player().file, frame.folder.filePath(QStringLiteral("a.avi")));
    EXPECT_EQ(window->size(), QSize(640 + 10, 360 + 33));
    EXPECT_EQ(Player().QWidget::size(), QSize(640, 360));
}

TEST_F(VideoWindowTest, OpeningResetsThePlayerAndNeverPlays)
{
    Player().state = ltmmPlay::Running;
    Player().displaySize = ltmmPlay::StretchToWindow;
    pane.Cmd2[PauseButton]->SetValue(1);
    pane.Cmd3[MarkStartButton]->SetValue(1);
    state.MarksSet = true;
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(Player().state, ltmmPlay::Stopped);
    EXPECT_EQ(Player().displaySize, ltmmPlay::Normal);
    EXPECT_EQ(pane.Cmd2[PauseButton]->Value(), 0);
    EXPECT_EQ(pane.Cmd3[MarkStartButton]->Value(), 0);
    EXPECT_EQ(pane.Cmd3[MarkEndButton]->toolTip(), QStringLiteral(" Cleared Marked Selection "));
    EXPECT_FALSE(state.MarksSet);
    EXPECT_TRUE(state.MarksCleared);
    EXPECT_EQ(pane.trkPosition->Max(), 10000);
    EXPECT_EQ(pane.trkPosition->Value(), 0);
    EXPECT_TRUE(pane.Cmd2[PlayButton]->isEnabled());
}

TEST_F(VideoWindowTest, ThePlayerIsStoppedSetToFullSizeAndEmptiedBeforeItIsGivenTheVideo)
{
    QStringList calls;
    NoteCalls(calls);
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(calls, QStringList({ "Stop", "SetDisplaySize", "ResetSource", "SetSourceFile" }));
}

TEST_F(VideoWindowTest, AnOpenStandsAtTheStartAndShowsItsTwoLabels)
{
    Player().frame = 50;
    for (const StatusLabel label : { StatusLabel::Operation, StatusLabel::Position })
        frame.ShowStatus(label, false);
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(Player().frame, 0);
    EXPECT_TRUE(frame.statusShown.value(StatusLabel::Operation));
    EXPECT_TRUE(frame.statusShown.value(StatusLabel::Position));
}

TEST_F(VideoWindowTest, ThePointerIsBusyWhileAFileOpens)
{
    QStringList busy;
    Player().whenAsked = [&](const char* call) {
        if (CurrentPointer() == Pointer::Busy)
            busy << QLatin1String(call);
    };
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(busy, QStringList { "SetSourceFile" });
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(VideoWindowTest, TheNormalPointerReturnsWhenAWindowIsMade)
{
    SetPointer(Pointer::Busy);
    const VideoWindow another(
        frame, *transport, [this](QWidget* parent) { return frame.own = MakePlayer(parent); });
    frame.own = &spare;
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(VideoWindowTest, ASelectionOfOnlyTextFilesLeavesTheTransportDisabledAndStopsWhatPlays)
{
    Open({ QStringLiteral("a.avi") });
    Player().state = ltmmPlay::Running;
    Open({ QStringLiteral("a.txt"), QStringLiteral("b.doc") });
    EXPECT_EQ(state.VideoPath, QString());
    EXPECT_EQ(Player().file, QString());
    EXPECT_EQ(Player().state, ltmmPlay::Stopped);
    EXPECT_FALSE(pane.Cmd2[PlayButton]->isEnabled());
    EXPECT_FALSE(pane.CmdList[NextVideoButton]->isEnabled());
    EXPECT_EQ(window->size().expandedTo(window->minimumSizeHint()), window->size());
    EXPECT_LT(window->height(), 100) << "the window stays at its minimum size";
}

TEST_F(VideoWindowTest, AVideoThatCannotBeLoadedKeepsItsWindowInReach)
{
    Open({ QStringLiteral("a.avi") });
    const QSize before = window->size();
    state.LoadVid = true; // ends with an empty player
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(window->size(), before);
}

TEST_F(VideoWindowTest, AnOpenInProgressLetsOneResizePassWithoutTheCheckOfTheSize)
{
    SizeCheck check;
    ASSERT_TRUE(check.AwaitTick());
    ASSERT_FALSE(check.Runs());
    state.OpeningNow = true;
    window->resize(300, 300);
    EXPECT_FALSE(state.OpeningNow);
    EXPECT_FALSE(check.Runs());
    window->resize(310, 300);
    EXPECT_TRUE(check.Runs());
}

TEST_F(VideoWindowTest, AMinimizedWindowIsNotGrown)
{
    frame.AddChild(window);
    Press("Cmds(2)");
    ASSERT_EQ(window->CurrentShape(), ChildForm::Shape::Minimized);
    const QSize before = window->size();
    ASSERT_LT(before.height(), 53) << "it would be grown";
    SizeCheck check;
    ASSERT_TRUE(check.AwaitTick());
    EXPECT_EQ(window->CurrentShape(), ChildForm::Shape::Minimized);
    EXPECT_EQ(window->size(), before);
    Press("Cmds(2)");
    EXPECT_EQ(window->CurrentShape(), ChildForm::Shape::Normal);
}

TEST_F(VideoWindowTest, TheMaximizeButtonShowsWhatItWillDo)
{
    auto* button = window->findChild<StripButton*>(QStringLiteral("Cmds(1)"));
    EXPECT_EQ(button->Value(), 1);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(button->Value(), 3);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(button->Value(), 1);
}

TEST_F(VideoWindowTest, ALeftPressOnTheWindowOrTheVideoMovesItButNotInFullScreen)
{
    QSignalSpy moves(&window->Head(), &TitleStrip::MoveRequested);
    const QPoint ground(window->width() / 2, window->height() - 3);
    QTest::mouseClick(window, Qt::RightButton, {}, ground);
    EXPECT_EQ(moves.size(), 0);
    QTest::mouseClick(window, Qt::LeftButton, {}, ground);
    EXPECT_EQ(moves.size(), 1);
    Q_EMIT Player().MousePressed();
    EXPECT_EQ(moves.size(), 2);
    Player().fullScreen = true;
    Q_EMIT Player().MousePressed();
    EXPECT_EQ(moves.size(), 2);
}

TEST_F(VideoWindowTest, TheFlashingLabelIsHiddenAfterASecond)
{
    EXPECT_TRUE(QTest::qWaitFor([this] { return frame.statusShown.contains(StatusLabel::Flashing); }, 10000));
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Flashing));
}

TEST_F(VideoWindowTest, AnMpegFileAskedIntoMemoryEndsWithAnEmptyPlayer)
{
    state.LoadVid = true;
    for (const QString& name : { QStringLiteral("a.mpg"), QStringLiteral("a.mpeg") }) {
        Open({ name });
        EXPECT_EQ(Player().SourceKind(), ltmmPlay::NoSource) << name.toStdString();
    }
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(Player().SourceKind(), ltmmPlay::FileSource);
}

TEST_F(VideoWindowTest, AFileNamedForTheMemoryIsHeldThereAsAWhole)
{
    state.LoadVid = true;
    MakeFile(frame.folder.filePath(QStringLiteral("whole.mpg")), "every byte");
    window->MemoryLoadPath = frame.folder.filePath(QStringLiteral("whole.mpg"));
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceMemory(), "every byte");
    EXPECT_EQ(Player().SourceFile(), QString());
}

TEST_F(VideoWindowTest, AFileThatCannotBeReadIntoMemoryIsToldByItsNumber)
{
    state.LoadVid = true;
    window->MemoryLoadPath = QDir::rootPath(); // can be opened, but not read
    frame.errors.Expect(QStringLiteral("Error!"), QString::number(EISDIR));
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceKind(), ltmmPlay::NoSource);
}

TEST_F(VideoWindowTest, AFileThatIsShorterThanItSaysIsNotHeldInMemory)
{
    const QString file = QStringLiteral("/sys/kernel/uevent_seqnum"); // says a page, is a number
    if (QFileInfo(file).size() <= FileBytes(file).size())
        GTEST_SKIP() << "the system has no such file";
    state.LoadVid = true;
    window->MemoryLoadPath = file;
    frame.errors.Expect(QStringLiteral("Error!"), QString::number(EIO));
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceKind(), ltmmPlay::NoSource);
}

TEST_F(VideoWindowTest, AFileThatIsNotThereOrTooLargeForTheMemoryLeavesNoVideoAndNoMessage)
{
    state.LoadVid = true;
    window->MemoryLoadPath = frame.folder.filePath(QStringLiteral("missing.mpg"));
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceKind(), ltmmPlay::NoSource);
    QFile large(frame.folder.filePath(QStringLiteral("large.mpg")));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64(1) << 30));
    window->MemoryLoadPath = large.fileName();
    const SmallMemory memory(64);
    if (!memory.IsThere())
        GTEST_SKIP() << "the memory cannot be made small here";
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceKind(), ltmmPlay::NoSource);
}

TEST_F(VideoWindowTest, OneSideBelowTheSmallestMakesBothSmall)
{
    Player().size = QSize(640, 4);
    Open({ QStringLiteral("a.avi") });
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->height() >= 53 && window->width() < 640; }, 10'000));
}

TEST_F(VideoWindowTest, ASmallVideoGrowsAlsoWhenItsOpenLetsOneResizePass)
{
    state.OpeningNow = true;
    Player().size = QSize(4, 4);
    Open({ QStringLiteral("a.avi") });
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->height() >= 53; }, 10'000));
}

TEST_F(VideoWindowTest, AWmvSaysThatItStreams)
{
    Open({ QStringLiteral("a.WMV") });
    EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("Streaming video"));
    EXPECT_EQ(Status(StatusLabel::Position), QStringLiteral(", please wait for video to play"));
}

TEST_F(VideoWindowTest, SavingWithoutCaptureSwapsTheTwoButtons)
{
    Open({ QStringLiteral("a.avi") });
    EXPECT_TRUE(frame.enabled.value(Command::Capture));
    EXPECT_FALSE(frame.enabled.value(Command::Save));
    state.NoCap = true;
    Open({ QStringLiteral("a.avi") });
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    EXPECT_TRUE(frame.enabled.value(Command::Save));
}

TEST_F(VideoWindowTest, TheListIsWantedWhenSeveralVideosWereSelectedAndItMayOpen)
{
    QSignalSpy wanted(window, &VideoWindow::ListWanted);
    state.OpenVidList = true;
    Open({ QStringLiteral("a.avi"), QStringLiteral("b.avi") });
    state.OpenVidList = false;
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(wanted.size(), 0);
    Open({ QStringLiteral("a.avi"), QStringLiteral("b.avi") });
    EXPECT_EQ(wanted.size(), 1);
}

TEST_F(VideoWindowTest, TheTitleIsThePathOrTheNameAlone)
{
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(window->Head().Title(), frame.folder.filePath(QStringLiteral("a.avi")));
    state.NameFull = true;
    state.Store(Key::NameFull);
    window->UpdateVideoTitle();
    EXPECT_EQ(window->Head().Title(), QStringLiteral("a.avi"));
    EXPECT_EQ(state.VideoFolder, frame.folder.path());
}

TEST_F(VideoWindowTest, AnEntryOfTheListIsOpenedWithoutBuildingTheListAgain)
{
    Open({ QStringLiteral("a.avi"), QStringLiteral("b.avi") });
    state.VideoPath = state.Videos.value(2);
    state.FromList = true;
    window->OpenVideo();
    EXPECT_EQ(Player().file, frame.folder.filePath(QStringLiteral("b.avi")));
    EXPECT_EQ(state.VideoCount, 2);
    EXPECT_FALSE(state.FromList);
}

TEST_F(VideoWindowTest, ProgressIsToldInTheLabels)
{
    Open({ QStringLiteral("a.avi") });
    Player().frame = 50;
    Q_EMIT Player().PlaybackProgress(5049);
    EXPECT_EQ(pane.trkPosition->Value(), 5049);
    EXPECT_EQ(Status(StatusLabel::Percent), QStringLiteral("50%"));
    EXPECT_EQ(Status(StatusLabel::Position), QStringLiteral("00:00:02  -  00:00:04  Time"));
    EXPECT_EQ(Status(StatusLabel::FrameNumber), QStringLiteral("Frame: 50"));
    Q_EMIT Player().PositionChanged();
    EXPECT_EQ(Status(StatusLabel::Position), QStringLiteral("00:00:02  -  00:00:04"));
}

TEST_F(VideoWindowTest, ATimedCaptureEndsAtExactlyHundredPercent)
{
    Open({ QStringLiteral("a.avi") });
    state.CaptureTime = true;
    Q_EMIT Player().PlaybackProgress(9900);
    EXPECT_FALSE(window->EndReached);
    EXPECT_TRUE(frame.statusShown.value(StatusLabel::AutoCapture));
    TimerWatch flashing(1000ms, false);
    ASSERT_TRUE(flashing.AwaitTick());
    frame.ShowStatus(StatusLabel::Flashing, true);
    frame.ShowStatus(StatusLabel::Watermark, true);
    Q_EMIT Player().PlaybackProgress(10000);
    EXPECT_TRUE(window->EndReached);
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Flashing));
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
    EXPECT_FALSE(flashing.Runs());
}

TEST_F(VideoWindowTest, ATimedCaptureThatWasAtItsEndIsNotAnyMoreAtAnyOtherPercent)
{
    Open({ QStringLiteral("a.avi") });
    state.CaptureTime = true;
    Q_EMIT Player().PlaybackProgress(10000);
    ASSERT_TRUE(window->EndReached);
    Q_EMIT Player().PlaybackProgress(9949);
    EXPECT_EQ(Status(StatusLabel::Percent), QStringLiteral("99%"));
    EXPECT_FALSE(window->EndReached);
}

TEST_F(VideoWindowTest, WhatIsRoundedToHundredPercentIsTheEndOfATimedCapture)
{
    Open({ QStringLiteral("a.avi") });
    state.CaptureTime = true;
    frame.EnableCommand(Command::Cancel, true);
    Q_EMIT Player().PlaybackProgress(9950);
    EXPECT_EQ(Status(StatusLabel::Percent), QStringLiteral("100%"));
    EXPECT_TRUE(window->EndReached);
    EXPECT_FALSE(frame.enabled.value(Command::Cancel));
}

TEST_F(VideoWindowTest, WithoutATimedCaptureTheEndIsLeftAsItIsUntilNoVideoStandsAtTheStart)
{
    Open({ QStringLiteral("a.avi") });
    window->EndReached = true;
    Q_EMIT Player().PlaybackProgress(0);
    EXPECT_TRUE(window->EndReached);
    state.VideoPath.clear();
    Q_EMIT Player().PlaybackProgress(1);
    EXPECT_TRUE(window->EndReached);
    Q_EMIT Player().PlaybackProgress(0);
    EXPECT_FALSE(window->EndReached);
}

TEST_F(VideoWindowTest, AtItsEndADownloadCannotBeCancelledAnyMore)
{
    Open({ QStringLiteral("a.avi") });
    frame.EnableCommand(Command::Cancel, true);
    Q_EMIT Player().PlaybackProgress(9900);
    EXPECT_TRUE(frame.enabled.value(Command::Cancel));
    Q_EMIT Player().PlaybackProgress(10000);
    EXPECT_FALSE(frame.enabled.value(Command::Cancel));
}

TEST_F(VideoWindowTest, WithoutATrackingScaleTheLabelsStay)
{
    Open({ QStringLiteral("a.avi") });
    Q_EMIT Player().PlaybackProgress(100);
    const QMap<StatusLabel, QString> before = frame.status;
    Player().file.clear();
    Player().frame = 50;
    Q_EMIT Player().PlaybackProgress(200);
    for (const StatusLabel label : { StatusLabel::Percent, StatusLabel::Position, StatusLabel::FrameNumber })
        EXPECT_EQ(Status(label), before.value(label));
}

TEST_F(VideoWindowTest, WithoutAVideoTheStartIsNotTheEndThoughThereIsNoTrackingScale)
{
    window->EndReached = true;
    ASSERT_EQ(Player().TrackingMax(), 0);
    Q_EMIT Player().PlaybackProgress(0);
    EXPECT_FALSE(window->EndReached);
}

TEST_F(VideoWindowTest, TheSelectionOfThePlayerStandsOnTheSlider)
{
    Open({ QStringLiteral("a.avi") });
    Q_EMIT Player().SelectionChanged(2000, 5000);
    EXPECT_EQ(pane.trkPosition->SelStart(), 2000);
    EXPECT_EQ(pane.trkPosition->SelLength(), 3000);
}

TEST_F(VideoWindowTest, APlayerErrorIsToldWithItsCodeAndThenTheHint)
{
    for (const int code : { 5, 77 }) {
        const QString body = QStringLiteral("Abort, Error Playing.     Error Code: Reason %1.  Or file is "
                                            "not complete, or it is corrupt")
                                 .arg(code);
        frame.errors.Expect(QStringLiteral("Error Abort"), body);
        Q_EMIT Player().PlayerError(code);
        EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("Abort"));
        EXPECT_EQ(state.MessageText, body);
        EXPECT_EQ(frame.errors.lastOwner, window);
    }
}

TEST_F(VideoWindowTest, APlayerErrorLeavesTheVideoToTheUser)
{
    Open({ QStringLiteral("a.avi") });
    state.ShowPlayerErrors = false;
    Q_EMIT Player().PlayerError(5);
    const QString video = frame.folder.filePath(QStringLiteral("a.avi"));
    EXPECT_EQ(Player().file, video);
    EXPECT_EQ(window->Head().Title(), video);
    for (const StripButton* button : pane.Cmd2)
        EXPECT_TRUE(button->isEnabled());
}

TEST_F(VideoWindowTest, SilencedErrorsPassWithoutAWord)
{
    state.ShowPlayerErrors = false;
    Q_EMIT Player().PlayerError(5);
    EXPECT_EQ(Status(StatusLabel::Operation), QString());
}

TEST_F(VideoWindowTest, EscapeTogglesFullScreenAndNoOtherKeyDoes)
{
    Q_EMIT Player().KeyUp(Qt::Key_Space);
    EXPECT_FALSE(Player().fullScreen);
    Q_EMIT Player().KeyUp(Qt::Key_Escape);
    EXPECT_TRUE(Player().fullScreen);
    Q_EMIT Player().KeyUp(Qt::Key_Escape);
    EXPECT_FALSE(Player().fullScreen);
}

TEST_F(VideoWindowTest, TheSizePopupSetsTheDisplaySizeAndTheCaptions)
{
    Press("Image1");
    EXPECT_EQ(state.PopupKind, 1);
    EXPECT_EQ(frame.log.last(5),
        (QStringList { QStringLiteral("  Normal Video Size"), QStringLiteral("  Three Quarter"),
            QStringLiteral("  Half Size"), QStringLiteral("  Double Size"),
            QStringLiteral("  Close Captioning") }));
    for (const auto& [item, mode] : { std::pair(0, ltmmPlay::Normal), { 1, ltmmPlay::ThreeQuarters },
             { 2, ltmmPlay::Half }, { 3, ltmmPlay::Double } }) {
        frame.chosenInMenus(item);
        EXPECT_EQ(Player().displaySize, mode);
    }
    frame.chosenInMenus(4);
    EXPECT_TRUE(Player().closedCaption);
}

TEST_F(VideoWindowTest, TheSizePopupChecksTheSizeThatIsSetAndTheCaptionsWhenTheyAreOn)
{
    const auto checked = [this] {
        Press("Image1");
        return frame.checkedInMenus;
    };
    Player().displaySize = ltmmPlay::Half;
    EXPECT_EQ(checked(), 1 << 2);
    Player().closedCaption = true;
    EXPECT_EQ(checked(), 1 << 2 | 1 << 4);
    Player().displaySize = ltmmPlay::FitToWindow; // is none of the four
    EXPECT_EQ(checked(), 1 << 4);
}

TEST_F(VideoWindowTest, SoundLoopAndAutoRewindKeepTheirStateWhenAnotherVideoOpens)
{
    Open({ QStringLiteral("a.avi") });
    for (const SeekButton button : { AutoRewindButton, LoopButton, SoundButton })
        QTest::mouseClick(pane.Cmd3[button], Qt::LeftButton);
    Open({ QStringLiteral("b.avi") });
    EXPECT_TRUE(Player().autoRewind);
    EXPECT_EQ(Player().playCount, 0);
    EXPECT_TRUE(Player().mute);
    EXPECT_EQ(pane.Cmd3[AutoRewindButton]->Value(), 1);
    EXPECT_EQ(pane.Cmd3[LoopButton]->Value(), 1);
    EXPECT_EQ(pane.Cmd3[SoundButton]->Value(), 0);
}

TEST_F(VideoWindowTest, TheCloseButtonStopsThePlayerAndLeavesNoVideo)
{
    Open({ QStringLiteral("a.avi") });
    pane.Cmd3[LoopButton]->SetValue(1);
    Player().state = ltmmPlay::Running;
    state.FromList = true;
    state.VideoOpen = true;
    frame.ShowStatus(StatusLabel::AutoCapture, true);
    bool wasClosingWhenPumped = false;
    frame.whenPumped = [&] { wasClosingWhenPumped = window->Closing; };
    Press("Cmds(0)");
    EXPECT_TRUE(wasClosingWhenPumped) << "a running capture can see it";
    EXPECT_EQ(Player().state, ltmmPlay::Stopped);
    EXPECT_FALSE(state.FromList);
    EXPECT_FALSE(state.VideoOpen);
    EXPECT_EQ(state.VideoCount, 0);
    EXPECT_TRUE(state.ExitRequested);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(pane.Cmd3[LoopButton]->Value(), 0);
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::AutoCapture));
}

TEST_F(VideoWindowTest, AWindowThatIsClosedLeavesNoDownloadToCancel)
{
    Open({ QStringLiteral("a.avi") });
    frame.EnableCommand(Command::Cancel, true);
    window->close();
    EXPECT_FALSE(frame.enabled.value(Command::Cancel));
}

TEST_F(VideoWindowTest, TheOpenButtonStopsThePlayerAndTheListGoesBeforeVideosAreAskedFor)
{
    Open({ QStringLiteral("a.avi") });
    Player().state = ltmmPlay::Running;
    window->Closing = true;
    state.FromList = true;
    frame.ShowStatus(StatusLabel::AutoCapture, true);
    QStringList told;
    QObject::connect(window, &VideoWindow::ListUnwanted, window, [&] { told << QStringLiteral("no list"); });
    QObject::connect(window, &VideoWindow::OpenWanted, window, [&] {
        told << QStringLiteral("open");
        EXPECT_EQ(Player().state, ltmmPlay::Stopped);
        EXPECT_FALSE(window->Closing);
        EXPECT_TRUE(state.OpeningNow);
        EXPECT_FALSE(state.FromList);
        EXPECT_FALSE(frame.statusShown.value(StatusLabel::AutoCapture));
    });
    Press("Cmds(3)");
    EXPECT_EQ(told, QStringList({ "no list", "open" }));
}

TEST_F(VideoWindowTest, ATinyVideoGrowsToEightHundredTwipsAfterAResize)
{
    Player().size = QSize(4, 4);
    Open({ QStringLiteral("a.avi") });
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->width() >= 54 && window->height() >= 53; }, 10000));
    EXPECT_EQ(Player().width(), window->width() - 10) << "the player keeps the width less 150 twips";
}

TEST_F(VideoWindowTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*window), "");
    Open({ QStringLiteral("a.avi") });
    EXPECT_EQ(AccessFaults(*window), "");
    EXPECT_EQ(AccessFaults(pane), "");
}

TEST_F(VideoWindowTest, ClosedMoreThanOnceItLeavesTheNextWindowAlone)
{
    QWidget other;
    Open({ QStringLiteral("a.avi") });
    frame.whenPumped = [&] {
        frame.whenPumped = nullptr;
        window->close();
        state.CurrentVideo = &other; // what a fresh open leaves
        state.VideoOpen = true;
    };
    Press("Cmds(0)");
    EXPECT_EQ(state.CurrentVideo, &other);
    ASSERT_FALSE(window.isNull()) << "it lives on until the event loop deletes it";
    window->close();
    EXPECT_EQ(state.CurrentVideo, &other);
    EXPECT_TRUE(state.VideoOpen);
}

TEST_F(VideoWindowTest, AChoiceInThePopupOfAWindowThatIsGoneDoesNothing)
{
    Press("Image1");
    ASSERT_TRUE(frame.chosenInMenus);
    delete window;
    frame.own = &spare;
    for (const int item : { 0, 4 })
        frame.chosenInMenus(item);
    EXPECT_EQ(spare.displaySize, ltmmPlay::FitToWindow);
}
