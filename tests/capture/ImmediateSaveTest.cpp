#include "tests/capture/SaveFixture.h"

#include "capture/CaptureCurrentFrame.h"

namespace {

class ImmediateSaveTest : public SaveFixture { };

TEST_F(ImmediateSaveTest, WritesBitmapDataUnderTheExtensionLastRead)
{
    frame_.state.CurrentExt = QStringLiteral(".jpg");
    frame_.player.frame = 5;
    ImmediateSave(frame_);
    EXPECT_EQ(frame_.player.lastTimeout, 5000);
    EXPECT_EQ(frame_.state.CurrentFile, AutoSave("auto1.jpg"));
    EXPECT_EQ(
        QImage::fromData(FileBytes(AutoSave("auto1.jpg")), "BMP").convertToFormat(QImage::Format_BGR888),
        frame_.player.StillNumber(5));
}

TEST_F(ImmediateSaveTest, IgnoresTheFoldersOfTheSettings)
{
    frame_.state.SpecialFolder = true;
    frame_.state.AutoDir = false;
    ImmediateSave(frame_);
    EXPECT_EQ(FilesIn(frame_.folder.filePath(QStringLiteral("AutoSave"))),
        QStringList(QStringLiteral("auto1.bmp")));
    EXPECT_TRUE(FilesIn(frame_.state.OldFolder).isEmpty());
    EXPECT_TRUE(FilesIn(current_.path()).isEmpty());
}

TEST_F(ImmediateSaveTest, ReplacesNothing)
{
    ASSERT_TRUE(MakeFile(AutoSave("auto1.bmp"), "mine"));
    ImmediateSave(frame_);
    EXPECT_EQ(FileBytes(AutoSave("auto1.bmp")), "mine");
    EXPECT_EQ(frame_.state.CurrentFile, AutoSave("auto2.bmp"));
}

TEST_F(ImmediateSaveTest, AFailureIsTheWindows)
{
    frame_.player.failsStills = true;
    EXPECT_THROW(ImmediateSave(frame_), ControlError);
    frame_.player.failsStills = false;
    QDir(frame_.folder.filePath(QStringLiteral("AutoSave"))).removeRecursively();
    EXPECT_THROW(ImmediateSave(frame_), ControlError);
    EXPECT_EQ(frame_.state.CurrentFile, AutoSave("auto1.bmp"));
}

TEST_F(ImmediateSaveTest, FileAndWindowOfARunningVideoHoldTwoStills)
{
    frame_.player.state = ltmmPlay::Running;
    frame_.whenViewerOpens = [this] {
        ImmediateSave(frame_);
        lead_->Paste(frame_.clipboard, Lead::PasteTake);
    };
    CaptureCurrentFrame(frame_);
    EXPECT_EQ(frame_.player.stillsGiven, 2);
    EXPECT_EQ(lead_->Bitmap(), frame_.player.StillNumber(1));
    EXPECT_EQ(
        QImage(AutoSave("auto1.bmp")).convertToFormat(QImage::Format_BGR888), frame_.player.StillNumber(2));
}

} // namespace
