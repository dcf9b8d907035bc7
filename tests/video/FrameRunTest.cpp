#include "app/Hourglass.h"
#include "tests/testing/PaintCount.h"
#include "tests/testing/SmallDisk.h"
#include "tests/video/AutoRunFixture.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/TitleStrip.h"

namespace {

using FrameRunTest = AutoRunFixture;
using Frames = std::vector<int>;

const QString A = QStringLiteral("a.avi");
const QString B = QStringLiteral("b.avi");
const QString C = QStringLiteral("c.mpg");
const QString Wmv = QStringLiteral("b.WMV");

} // namespace

TEST_F(FrameRunTest, TheFramesAskedForAreWrittenInTheirOrder)
{
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20 }));
    EXPECT_EQ(FilesWritten(), 3);
    EXPECT_EQ(player->lastTimeout, 5000);
}

TEST_F(FrameRunTest, AVideoOfFewerFramesThanTheStepGivesAFirstFileAndOneLast)
{
    RunByFrames({ A }, 100);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 29 }));
}

TEST_F(FrameRunTest, NumbersRunOnAcrossTheListAndLaterVideosBeginOneStepIn)
{
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20, 10, 20 }));
    EXPECT_EQ(player->opened, (QStringList { A, B }));
    EXPECT_EQ(Status(StatusLabel::Operation), "Video #:2");
}

TEST_F(FrameRunTest, TheLabelTellsTheTimedIntervalAsFrameNumber)
{
    Store("UsersCaptureTime", QStringLiteral("7"));
    RunByFrames({ A }, 10);
    for (const StatusLabel label :
        { StatusLabel::AutoCapture, StatusLabel::Operation, StatusLabel::Position })
        EXPECT_TRUE(frame.statusShown.value(label));
    ASSERT_TRUE(AwaitLabel(QStringLiteral("Captured first frame.     Total Captures = 1")));
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured frame at Frame #: 14    Total Captures = 3");
    EXPECT_EQ(frame.errors.lastOwner, nullptr) << "no summary is shown besides";
}

TEST_F(FrameRunTest, TheLabelsOfTheVideoComeBackAfterEachVideo)
{
    player->whenStillIsTaken = [this] {
        for (const StatusLabel label : { StatusLabel::Operation, StatusLabel::Position })
            frame.ShowStatus(label, false);
    };
    ExpectRefusal();
    frame.errors.whileShown = [this] { // the first video is done, and no other one loaded
        EXPECT_TRUE(frame.statusShown.value(StatusLabel::Operation));
        EXPECT_TRUE(frame.statusShown.value(StatusLabel::Position));
    };
    RunByFrames({ A, Wmv }, 10);
    ASSERT_TRUE(AwaitOver());
}

TEST_F(FrameRunTest, EachVideoBeginsAtItsStartAndSoDoesTheSlider)
{
    Open({ C });
    pane.trkPosition->SetMax(8000);
    Progress(7000);
    ASSERT_EQ(pane.trkPosition->Value(), 7000);
    double position = -1;
    player->whenStillIsTaken = [&] {
        if (player->stillsGiven == 1)
            position = player->CurrentPosition();
    };
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(position, 0);
    EXPECT_EQ(pane.trkPosition->Max(), player->TrackingMax());
    EXPECT_EQ(pane.trkPosition->Value(), 0);
}

TEST_F(FrameRunTest, ARunOverSeveralVideosCountsOneMore)
{
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured frame at Frame #: 50    Total Captures = 6");
    EXPECT_EQ(window->UserCaptures(), 5);
}

TEST_F(FrameRunTest, FilesInTheFolderAreSkipped)
{
    MakeFile(PicturePath(1), "mine");
    MakeFile(PicturePath(3), "mine too");
    MakeFile(PicturePath(4), ""); // counts as free
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FileBytes(PicturePath(1)), "mine");
    EXPECT_EQ(FileBytes(PicturePath(3)), "mine too");
    EXPECT_EQ(qRed(QImage(PicturePath(2)).pixel(0, 0)), 0);
    EXPECT_EQ(qRed(QImage(PicturePath(4)).pixel(0, 0)), 10);
    EXPECT_EQ(qRed(QImage(PicturePath(5)).pixel(0, 0)), 20);
}

TEST_F(FrameRunTest, EveryRunByFramesBeginsWithTheLowestFreeNumber)
{
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    QFile::remove(PicturePath(1));
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20, 10, 20 }));
}

TEST_F(FrameRunTest, ThePicturesAreBitmapsWhateverTheFormatOfCaptures)
{
    Store("Ext", QStringLiteral(".png"));
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(state.CurrentExt, ".bmp");
    EXPECT_TRUE(FileBytes(PicturePath(1)).startsWith("BM"));
}

TEST_F(FrameRunTest, AWmvIsRefusedAndPlaysAndTheRunWaitsForIt)
{
    ExpectRefusal();
    RunByFrames({ A, Wmv, C }, 10);
    pane.trkPosition->SetMax(8000);
    pane.trkPosition->SetValue(7000);
    ASSERT_TRUE(Await([&] { return player->opened.size() == 2 && player->state == ltmmPlay::Running; }));
    EXPECT_EQ(pane.trkPosition->Max(), player->TrackingMax());
    EXPECT_EQ(pane.trkPosition->Value(), 0);
    EXPECT_EQ(player->CurrentPosition(), 0);
    EXPECT_TRUE(pane.Cmd2[PauseButton]->isEnabled());
    Progress(9000);
    QCoreApplication::processEvents();
    EXPECT_EQ(player->opened, (QStringList { A, Wmv }));
    Progress(10000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->opened, (QStringList { A, Wmv, C }));
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20, 10, 20 }));
}

TEST_F(FrameRunTest, TheCaptureButtonThatTheRefusalAdvisesWorksWhileTheWmvPlays)
{
    ExpectRefusal();
    player->frameCounts[C] = 30'000;
    RunByFrames({ Wmv, C }, 10);
    ASSERT_TRUE(Await([&] { return player->state == ltmmPlay::Running; }));
    EXPECT_TRUE(frame.enabled.value(Command::Capture));
    Progress(10000);
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    ASSERT_TRUE(Await([&] { return FilesWritten() > 2; }));
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
}

TEST_F(FrameRunTest, WhereCapturesAreSavedAtOnceItIsTheSaveButton)
{
    ExpectRefusal();
    state.NoCap = true;
    RunByFrames({ Wmv, C }, 10);
    ASSERT_TRUE(Await([&] { return player->state == ltmmPlay::Running; }));
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    EXPECT_TRUE(frame.enabled.value(Command::Save));
    Progress(10000);
    EXPECT_FALSE(frame.enabled.value(Command::Save));
    EXPECT_TRUE(Await([&] { return frame.enabled.value(Command::Save); })) << "the run is over";
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
}

TEST_F(FrameRunTest, AWmvAtTheEndIsLeftPlaying)
{
    ExpectRefusal();
    RunByFrames({ A, Wmv }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->state, ltmmPlay::Running);
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20 }));
}

TEST_F(FrameRunTest, ASingleFrameIsToldAndNothingIsWritten)
{
    ExpectSingleFrame();
    player->frameCounts[A] = 1;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FilesWritten(), 0);
    ExpectTheVideosButtonsToWork();
}

TEST_F(FrameRunTest, AFileOfAnyOtherTypeIsLeftOutWithoutAWord)
{
    RunByFrames({ QStringLiteral("notes.txt"), A, QStringLiteral("  "), QStringLiteral("photo.mp4") }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->opened, QStringList { A });
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured frame at Frame #: 20    Total Captures = 3");
}

TEST_F(FrameRunTest, AnEmptyListDoesNothingAndSaysNothing)
{
    RunByFrames({ QStringLiteral("notes.txt") }, 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(player->opened, QStringList());
    EXPECT_EQ(FilesWritten(), 0);
    EXPECT_FALSE(pane.Cmd2[PlayButton]->isEnabled());
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
}

TEST_F(FrameRunTest, FiveVideosWithAWmvABrokenOneAndATextFileGiveThePicturesOfTheOthers)
{
    ExpectRefusal();
    player->refused = frame.folder.filePath(B);
    RunByFrames({ A, Wmv, B, QStringLiteral("notes.txt"), C }, 10);
    ASSERT_TRUE(Await([&] { return player->state == ltmmPlay::Running; }));
    Progress(10000);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->opened, (QStringList { A, Wmv, B, C }));
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20, 10, 20 }));
    ExpectTheVideosButtonsToWork();
}

TEST_F(FrameRunTest, AFrameThatIsRefusedEndsItsVideoAndTheRunGoesOn)
{
    player->frameCounts[A] = 100;
    player->refusedFrames = { 50 };
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20, 30, 40 }));
    EXPECT_FALSE(QFile::exists(PicturePath(6))) << "its number was tried for the frame that was refused";
    EXPECT_EQ(FrameIn(7), 10);
    EXPECT_EQ(FrameIn(8), 20);
    EXPECT_EQ(FilesWritten(), 7);
    ExpectTheVideosButtonsToWork();
}

TEST_F(FrameRunTest, AfterAFrameThatIsRefusedTheTitleNamesThePictureWrittenLast)
{
    player->refusedFrames = { 20 };
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(window->Head().Title(), PicturePath(2));
    EXPECT_EQ(state.VideoPath, PicturePath(2));
}

TEST_F(FrameRunTest, AFolderRemovedInTheMiddleEndsTheVideoAndTheNextGoesOnWhereItIsBack)
{
    player->frameCounts[A] = 200;
    bool isRemoved = false;
    player->whenStillIsTaken = [&] {
        if (!isRemoved && player->frame >= 100)
            isRemoved = QDir(PictureFolder()).removeRecursively();
        if (player->opened.size() == 2)
            QDir().mkpath(PictureFolder());
    };
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_TRUE(isRemoved);
    EXPECT_LT(player->stillsGiven, 20) << "the first video was left";
    EXPECT_EQ(FilesWritten(), 2) << "of the second";
}

TEST_F(FrameRunTest, AFullDiskLeavesWholeFilesOnlyAndTheRightCount)
{
    SmallDisk disk(24);
    if (!disk.IsThere())
        GTEST_SKIP() << "no file system can be mounted here";
    WriteTo(disk);
    player->size = QSize(40, 30);
    player->frameCounts[A] = 200;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_GT(FilesWritten(), 0);
    EXPECT_LT(FilesWritten(), 20);
    EXPECT_TRUE(AreAllWhole());
    EXPECT_TRUE(
        Status(StatusLabel::AutoCapture).endsWith(QStringLiteral("Total Captures = %1").arg(FilesWritten())));
    QFile::remove(PictureFolder());
}

TEST_F(FrameRunTest, TheWindowsCloseButtonLeavesTheRun)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 5; }));
    ExpectTheCloseButtonToLeaveTheRun();
}

TEST_F(FrameRunTest, ClosingTheWindowLeavesTheRun)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 5; }));
    int more = 0;
    player->whenStillIsTaken = [&] { ++more; };
    frame.own = &spare;
    window->close();
    ASSERT_TRUE(Await([&] { return window.isNull(); }));
    EXPECT_EQ(more, 0);
    EXPECT_TRUE(AreAllWhole());
}

TEST_F(FrameRunTest, TheWindowRepaintsWhileTheRunGoesOn)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 2; }));
    PaintCount paints(*window);
    window->update();
    EXPECT_TRUE(Await([&] { return paints.count > 0; }));
    EXPECT_FALSE(frame.enabled.value(Command::Capture)) << "it goes on";
}

TEST_F(FrameRunTest, TheWindowsOpenButtonLeavesTheRunAndGivesTheVideoToTheUser)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 5; }));
    Press("Cmds(3)");
    const int given = player->stillsGiven;
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::AutoCapture));
    EXPECT_TRUE(frame.enabled.value(Command::Capture));
    EXPECT_TRUE(pane.Cmd2[PlayButton]->isEnabled());
    QCoreApplication::processEvents();
    EXPECT_EQ(player->stillsGiven, given);
}

TEST_F(FrameRunTest, ASecondOpenLeavesTheRunAndBeginsItsOwn)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A, C }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 5; }));
    QDir(PictureFolder()).removeRecursively();
    QDir().mkpath(PictureFolder());
    RunByFrames({ B }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(player->opened, (QStringList { A, B }));
    EXPECT_EQ(Status(StatusLabel::AutoCapture), "Captured frame at Frame #: 20    Total Captures = 3");
}

TEST_F(FrameRunTest, AVideoChosenFromTheListLeavesTheRunAndOpensAsUsual)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A, B }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 2; }));
    state.VideoPath = state.Videos.value(2);
    state.FromList = true;
    window->OpenVideo();
    const int given = player->stillsGiven;
    QCoreApplication::processEvents();
    EXPECT_EQ(player->stillsGiven, given);
    EXPECT_EQ(player->opened.last(), B);
}

TEST_F(FrameRunTest, TheFramesStepsAreTheUsersOnlyWhenTheVideoIsDone)
{
    player->frameCounts[A] = 30'000;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 2; }));
    EXPECT_FALSE(pane.Cmd2[FrameForwardButton]->isEnabled());
    EXPECT_FALSE(frame.enabled.value(Command::Capture));
    EXPECT_TRUE(frame.alerts.contains(StatusLabel::AutoCapture));
    window->StopCapture();
    EXPECT_TRUE(pane.Cmd2[FrameForwardButton]->isEnabled());
    EXPECT_FALSE(frame.alerts.contains(StatusLabel::AutoCapture));
}

TEST_F(FrameRunTest, AStepChangedInTheMiddleCountsFromTheNextRun)
{
    player->whenStillIsTaken = [this] {
        Store("AutoNumber", QStringLiteral("1"));
        state.AutoNumber = 1;
    };
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20 }));
}

TEST_F(FrameRunTest, TheTitleNamesThePictureWrittenLast)
{
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(window->Head().Title(), PicturePath(3));
    EXPECT_EQ(state.CurrentFile, PicturePath(3));
}

TEST_F(FrameRunTest, TheUsersTextIsBurntIntoEveryPicture)
{
    Store("UseWatermark", QStringLiteral("True"));
    state.Reload(Key::UseWatermark);
    player->size = QSize(400, 100);
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    ASSERT_EQ(FramesWritten(), (Frames { 0, 10, 20 }));
    EXPECT_EQ(Status(StatusLabel::Watermark), "Watermark Applied");
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark)) << "with the run its label goes";
    for (int number = 1; number <= 3; ++number)
        EXPECT_NE(QImage(PicturePath(number)).convertToFormat(QImage::Format_RGB32),
            player->StillNumber((number - 1) * 10).convertToFormat(QImage::Format_RGB32));
}

TEST_F(FrameRunTest, ATextThatCannotBeBurntEndsItsVideoAndTheFileStaysAsWritten)
{
    SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "no file system can be mounted here";
    WriteTo(disk);
    player->size = QSize(120, 100); // room for one file, and not for the other that is to take its place
    Store("UseWatermark", QStringLiteral("True"));
    state.Reload(Key::UseWatermark);
    RunByFrames({ A }, 10);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FilesWritten(), 1);
    EXPECT_EQ(QImage(PicturePath(1)).convertToFormat(QImage::Format_RGB32),
        player->StillNumber(0).convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(Status(StatusLabel::AutoCapture), QString());
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Watermark));
    QFile::remove(PictureFolder());
}

TEST_F(FrameRunTest, TheWindowsOpenButtonLeavesARunThatBurnsText)
{
    Store("UseWatermark", QStringLiteral("True"));
    state.Reload(Key::UseWatermark);
    player->size = QSize(400, 300);
    player->frameCounts[A] = 30'000;
    RunByFrames({ A }, 10);
    ASSERT_TRUE(Await([&] { return FilesWritten() > 3; }));
    Press("Cmds(3)");
    const int given = player->stillsGiven;
    QCoreApplication::processEvents();
    EXPECT_EQ(player->stillsGiven, given);
    EXPECT_TRUE(AreAllWhole());
}

TEST_F(FrameRunTest, AFrameThatIsNotReadyIsWaitedForWithoutHoldingTheWindow)
{
    player->isCounted = false;
    player->readyUpTo = 10;
    RunByFrames({ A }, 10);
    EXPECT_EQ(player->stillsGiven, 0) << "the frames of a large file are counted first";
    player->isCounted = true;
    ASSERT_TRUE(Await([&] { return FilesWritten() == 2; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(player->stillsGiven, 2);
    player->readyUpTo = 30;
    Q_EMIT player->FramesReady();
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(FramesWritten(), (Frames { 0, 10, 20 }));
}

TEST_F(FrameRunTest, AVideoOpenedAfterARunWhoseLastOneIsBrokenHasItsCommands)
{
    player->frameCounts[A] = 11;
    player->refused = frame.folder.filePath(C);
    RunByFrames({ A, C }, 10);
    ASSERT_TRUE(Await([&] { return player->opened.size() == 2 && !pane.Cmd2[PlayButton]->isEnabled(); }));
    QCoreApplication::processEvents();
    frame.SetEnabled(true); // as every open begins, from the list too
    state.VideoPath = state.Videos.value(1);
    state.FromList = true;
    window->OpenVideo();
    EXPECT_TRUE(frame.enabled.value(Command::Stretch));
}

TEST_F(FrameRunTest, ARunLeftWhileAVideoOpensLeavesNoVideo)
{
    RunByFrames({ A }, 10);
    EXPECT_EQ(CurrentPointer(), Pointer::Busy);
    window->StopCapture();
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    EXPECT_FALSE(pane.Cmd2[PlayButton]->isEnabled());
    QCoreApplication::processEvents();
    EXPECT_EQ(player->opened, QStringList());
    EXPECT_EQ(player->SourceKind(), ltmmPlay::NoSource);
    EXPECT_EQ(FilesWritten(), 0);
}
