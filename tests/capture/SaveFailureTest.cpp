#include "tests/capture/SaveFixture.h"

#include "app/Hourglass.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/SmallDisk.h"

#include <sys/stat.h>

namespace {

/// Every failed save tells one message, keeps the window and says nothing of success.
class SaveFailureTest : public SaveFixture {
protected:
    SaveFailureTest()
    {
        frame_.state.SpecialFolder = true;
        frame_.state.AutoSave = true;
        frame_.state.NoWin = true;
    }

    /// The path being written is told by CurrentFile; a save that failed before it had one tells none.
    void ExpectFailure(const QString& written = {})
    {
        frame_.state.CurrentFile.clear();
        ExpectMessage();
        SaveCapture(frame_);
        EXPECT_EQ(frame_.errors.lastOwner, &frame_.window);
        EXPECT_TRUE(IsFormOpen());
        EXPECT_FALSE(frame_.status.contains(StatusLabel::Operation));
        EXPECT_FALSE(frame_.statusShown[StatusLabel::AutoCapture]);
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
        EXPECT_EQ(frame_.state.CurrentFile, written);
    }
};

TEST_F(SaveFailureTest, AMissingFolder)
{
    frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("gone"));
    ExpectFailure(Chosen("auto1.bmp"));
    EXPECT_FALSE(QFileInfo::exists(frame_.state.OldFolder));
}

TEST_F(SaveFailureTest, ABlankFolder)
{
    frame_.state.OldFolder = QStringLiteral("  ");
    ExpectFailure();
}

TEST_F(SaveFailureTest, AMissingFolderToAskFrom)
{
    frame_.state.AutoSave = false;
    frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("gone"));
    ExpectFailure();
}

TEST_F(SaveFailureTest, ACurrentFolderThatWasRemoved)
{
    frame_.state.SpecialFolder = false;
    const QString gone = current_.filePath(QStringLiteral("gone"));
    Make(gone);
    QDir::setCurrent(gone);
    QDir().rmdir(gone);
    ExpectFailure();
}

TEST_F(SaveFailureTest, AFolderThatIsAFile)
{
    frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("file"));
    ASSERT_TRUE(MakeFile(frame_.state.OldFolder, "mine"));
    ExpectFailure(Chosen("auto1.bmp"));
    EXPECT_EQ(FileBytes(frame_.state.OldFolder), "mine");
}

TEST_F(SaveFailureTest, AReadOnlyFolder)
{
    ::chmod(frame_.folder.path().toUtf8().constData(), 0755);
    ::chmod(frame_.state.OldFolder.toUtf8().constData(), 0555);
    const OrdinaryUser ordinary;
    ExpectFailure(Chosen("auto1.bmp"));
    EXPECT_TRUE(FilesIn(frame_.state.OldFolder).isEmpty());
}

TEST_F(SaveFailureTest, AReadOnlyDisk)
{
    SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "this machine lets no test mount a file system";
    disk.MakeReadOnly();
    frame_.state.OldFolder = disk.Path();
    ExpectFailure(Chosen("auto1.bmp"));
}

TEST_F(SaveFailureTest, AFullDisk)
{
    SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "this machine lets no test mount a file system";
    disk.Fill();
    frame_.state.OldFolder = disk.Path();
    ExpectFailure(Chosen("auto1.bmp"));
    EXPECT_EQ(FilesIn(disk.Path()), QStringList(QStringLiteral("filler")));
}

TEST_F(SaveFailureTest, AFullDiskKeepsTheFileThatWasToBeReplaced)
{
    SmallDisk disk(64);
    if (!disk.IsThere())
        GTEST_SKIP() << "this machine lets no test mount a file system";
    const QString path = disk.Path() + QStringLiteral("/shot.bmp");
    ASSERT_TRUE(MakeFile(path, "mine"));
    disk.Fill();
    frame_.state.SpecialFolder = false;
    frame_.state.AutoSave = false;
    Answer(path);
    ExpectFailure(path);
    EXPECT_EQ(FileBytes(path), "mine");
}

TEST_F(SaveFailureTest, AFileSizeLimit)
{
    {
        const FileSizeLimit limit(100);
        ExpectFailure(Chosen("auto1.bmp"));
    }
    EXPECT_TRUE(FilesIn(frame_.state.OldFolder).isEmpty());
}

TEST_F(SaveFailureTest, AFolderOrPipeUnderTheChosenName)
{
    frame_.state.SpecialFolder = false;
    frame_.state.AutoSave = false;
    const QString pipe = Current("pipe.bmp");
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    Make(Current("folder.bmp"));
    Answer(pipe);
    ExpectFailure(pipe);
    Answer(Current("folder.bmp"));
    ExpectFailure(Current("folder.bmp"));
    struct stat status { };
    ASSERT_EQ(::stat(pipe.toUtf8().constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
    EXPECT_TRUE(QFileInfo(Current("folder.bmp")).isDir());
}

TEST_F(SaveFailureTest, AnActiveFormWithoutACapture)
{
    frame_.activeCapture = nullptr;
    ExpectFailure();
}

TEST_F(SaveFailureTest, AnEmptyCapture)
{
    lead_->SetBitmap({});
    ExpectFailure(Chosen("auto1.bmp"));
    EXPECT_TRUE(FilesIn(frame_.state.OldFolder).isEmpty());
}

TEST_F(SaveFailureTest, AStillThatIsRefused)
{
    StoreExt(".jpg");
    frame_.state.VidSave = true;
    frame_.player.failsStills = true;
    ExpectFailure();
    EXPECT_EQ(frame_.state.CurrentExt, QStringLiteral(".jpg"));
}

TEST_F(SaveFailureTest, TheNextSaveWorks)
{
    const QString there = frame_.state.OldFolder;
    frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("gone"));
    ExpectFailure(Chosen("auto1.bmp"));
    frame_.state.OldFolder = there;
    SaveCapture(frame_);
    ExpectSaved(Chosen("auto1.bmp"));
    EXPECT_FALSE(IsFormOpen());
}

} // namespace
