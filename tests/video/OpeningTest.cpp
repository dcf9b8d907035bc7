#include "video/Opening.h"

#include "tests/testing/FakeFrame.h"

#include <QDir>

#include <gtest/gtest.h>

namespace {

const QChar Nul;

class OpeningTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    const QString here = frame.folder.path();
    int listClosed = 0;

    void SetUp() override { QDir::setCurrent(here); }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    void Choose(const QString& result)
    {
        frame.dialogs.openNames.push(result);
        ShowOpenDialog(frame, [this] { ++listClosed; });
    }
};

} // namespace

TEST_F(OpeningTest, OneFileIsOneNameOfItsFolder)
{
    Choose(here + QStringLiteral("/a.avi"));
    KeepVideos(state);
    EXPECT_EQ(state.FileCount, 1);
    EXPECT_EQ(state.VideoCount, 1);
    EXPECT_EQ(state.VideoPath, here + QStringLiteral("/a.avi"));
    EXPECT_FALSE(state.OpenCancelled);
}

TEST_F(OpeningTest, ThreeFilesOfWhichOneIsATextFileGiveTwoVideos)
{
    Choose(here + Nul + QStringLiteral("a.avi") + Nul + QStringLiteral("b.txt") + Nul
        + QStringLiteral("c.mpg") + Nul + Nul);
    KeepVideos(state);
    EXPECT_EQ(state.FileCount, 3);
    EXPECT_EQ(state.VideoCount, 2);
    EXPECT_EQ(state.Videos.value(1), here + QStringLiteral("/a.avi"));
    EXPECT_EQ(state.Videos.value(2), here + QStringLiteral("/c.mpg"));
    EXPECT_EQ(state.Videos.value(3), QString());
    EXPECT_FALSE(state.NotVideo);
}

TEST_F(OpeningTest, NoVideoAmongTheFilesLeavesNoPath)
{
    Choose(here + QStringLiteral("/notes.txt"));
    KeepVideos(state);
    EXPECT_EQ(state.VideoCount, 0);
    EXPECT_EQ(state.VideoPath, QString());
}

TEST_F(OpeningTest, CancelHasAlreadyForgottenTheLastSelection)
{
    state.VideoPath = QStringLiteral("/films/old.avi");
    state.VideoCount = 2;
    state.ListIndex = 2;
    Choose(QString());
    EXPECT_TRUE(state.OpenCancelled);
    EXPECT_EQ(state.VideoPath, QString());
    EXPECT_EQ(state.VideoCount, 0);
    EXPECT_EQ(state.FileCount, 0);
    EXPECT_EQ(state.ListIndex, 1);
    EXPECT_EQ(listClosed, 1);
}

TEST_F(OpeningTest, TheDialogOpensInTheLastFolderAndTheOneItLeavesIsKept)
{
    state.OldDir = QStringLiteral("/tmp");
    state.Store(Key::OldDir);
    Choose(QString());
    EXPECT_EQ(frame.dialogs.folder, QStringLiteral("/tmp"));
    EXPECT_EQ(state.Settings.GetSetting(QStringLiteral("Options"), QStringLiteral("OldDir"), QString()),
        QDir::currentPath());
}

TEST_F(OpeningTest, WithoutALastFolderTheCurrentOneIsTaken)
{
    Choose(QString());
    EXPECT_EQ(frame.dialogs.folder, QDir::currentPath());
    EXPECT_EQ(frame.dialogs.title, QStringLiteral("Open Videos To Capture"));
    EXPECT_EQ(frame.dialogs.filter,
        QStringLiteral("Video Files (*.avi;*.mpeg;*.mpg;*.mpa;*.wmv)|*.avi;*.mpeg;*.mpg;*.mpa;*.wmv|"
                       "AVI, DivX Files (*.avi)|*.avi|MPEG Files (*.mpeg)|*.mpeg|MPG Files (*.mpg)|*.mpg|"
                       "MPA Files (*.mpa)|*.mpa|WMV Files (*.wmv)|*.wmv|All Files (*.*)|*.*"));
}

TEST_F(OpeningTest, PathsAreBuiltFromTheCurrentFolderAndNotFromTheDialogs)
{
    Choose(QStringLiteral("/elsewhere/a.avi"));
    KeepVideos(state);
    EXPECT_EQ(state.FileFolder, QStringLiteral("/elsewhere/"));
    EXPECT_EQ(state.VideoPath, here + QStringLiteral("/a.avi"));
}
