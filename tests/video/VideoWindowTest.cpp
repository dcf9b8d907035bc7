#include "tests/testing/AccessFaults.h"
#include "tests/testing/Files.h"
#include "tests/video/VideoWindowFixture.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"

#include <QSignalSpy>
#include <QTest>

using VideoWindowTest = VideoWindowFixture;

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

TEST_F(VideoWindowTest, ASelectionOfOnlyTextFilesLeavesTheTransportDisabled)
{
    Open({ QStringLiteral("a.txt"), QStringLiteral("b.doc") });
    EXPECT_EQ(state.VideoPath, QString());
    EXPECT_EQ(Player().file, QString());
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

TEST_F(VideoWindowTest, AnOpenInProgressSuppressesTheNextResizeOnce)
{
    state.OpeningNow = true;
    window->resize(300, 300);
    EXPECT_FALSE(state.OpeningNow);
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
    window->MemoryLoadPath = QStringLiteral("/proc/self/mem"); // nothing lies at its beginning
    frame.errors.Expect(QStringLiteral("Error!"), QString::number(QFileDevice::ReadError));
    Open({ QStringLiteral("a.mpg") });
    EXPECT_EQ(Player().SourceMemory(), QByteArray());
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
    Q_EMIT Player().PlaybackProgress(10000);
    EXPECT_TRUE(window->EndReached);
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Flashing));
    EXPECT_FALSE(frame.enabled.value(Command::Cancel));
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
    const QString before = Status(StatusLabel::Percent);
    Player().file.clear();
    Q_EMIT Player().PlaybackProgress(200);
    EXPECT_EQ(Status(StatusLabel::Percent), before);
}

TEST_F(VideoWindowTest, APlayerErrorIsToldWithItsCodeAndThenTheHint)
{
    for (const int code : { 5, 77 }) {
        frame.errors.Expect(QStringLiteral("Error Abort"),
            QStringLiteral(
                "Abort, Error Playing.     Error Code: Reason %1.  Or file is not complete, or it is "
                "corrupt")
                .arg(code));
        Q_EMIT Player().PlayerError(code);
        EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("Abort"));
    }
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
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Image1")), Qt::LeftButton);
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
        QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Image1")), Qt::LeftButton);
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
    bool wasClosingWhenPumped = false;
    frame.whenPumped = [&] { wasClosingWhenPumped = window->Closing; };
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Cmds(0)")), Qt::LeftButton);
    EXPECT_TRUE(wasClosingWhenPumped) << "a running capture can see it";
    EXPECT_FALSE(state.VideoOpen);
    EXPECT_EQ(state.VideoCount, 0);
    EXPECT_TRUE(state.ExitRequested);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(pane.Cmd3[LoopButton]->Value(), 0);
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::AutoCapture));
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
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Cmds(3)")), Qt::LeftButton);
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
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Cmds(0)")), Qt::LeftButton);
    EXPECT_EQ(state.CurrentVideo, &other);
    ASSERT_FALSE(window.isNull()) << "it lives on until the event loop deletes it";
    window->close();
    EXPECT_EQ(state.CurrentVideo, &other);
    EXPECT_TRUE(state.VideoOpen);
}

TEST_F(VideoWindowTest, AChoiceInThePopupOfAWindowThatIsGoneDoesNothing)
{
    QTest::mouseClick(window->findChild<QWidget*>(QStringLiteral("Image1")), Qt::LeftButton);
    ASSERT_TRUE(frame.chosenInMenus);
    delete window;
    frame.own = &spare;
    for (const int item : { 0, 4 })
        frame.chosenInMenus(item);
    EXPECT_EQ(spare.displaySize, ltmmPlay::FitToWindow);
}
