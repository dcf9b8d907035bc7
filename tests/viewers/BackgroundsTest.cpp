// The two wallpapers as the buttons of capture window and thumbnails make them.
#include "imaging/PictureFile.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/Files.h"
#include "viewers/QuickShots.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

QImage Filled(QColor colour)
{
    QImage picture(40, 30, QImage::Format_BGR888);
    picture.fill(colour);
    return picture;
}

class BackgroundsTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    const QString systemFile = state.Folders().Backgrounds() + QStringLiteral("/TAQ Wallpaper.Bmp");

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    std::unique_ptr<Viewer> OpenViewer(QColor colour)
    {
        frame.clipboard.picture = Filled(colour);
        auto viewer = std::make_unique<Viewer>(frame);
        viewer->setAttribute(Qt::WA_DeleteOnClose, false);
        frame.activeForm = viewer.get();
        frame.activeCapture = &viewer->Picture();
        return viewer;
    }
    std::unique_ptr<QuickShots> OpenStrip(std::initializer_list<QColor> colours)
    {
        state.OpThumb = 0;
        auto strip = std::make_unique<QuickShots>(frame);
        strip->setAttribute(Qt::WA_DeleteOnClose, false);
        for (const QColor& colour : colours) {
            frame.hold.SetBitmap(Filled(colour));
            strip->mnuControlsAdd2();
        }
        strip->show();
        return strip;
    }
    static void Pick(QuickShots& strip, int index)
    {
        auto* panel = strip.findChild<ThumbPanel*>();
        QTest::mouseClick(panel, Qt::LeftButton, {}, panel->CellRect(index).center());
    }
    static void Click(QWidget& form, const char* button)
    {
        QTest::mouseClick(form.findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
    QString Wallpaper(int number)
    {
        return state.Beside(QStringLiteral("WallPaper/wpaper%1.jpg").arg(number));
    }
    QString StoredPicFolder()
    {
        return state.Settings.GetSetting(QStringLiteral("Options"), QStringLiteral("PicFolder"), {});
    }
    void ExpectError(const QString& reason)
    {
        frame.errors.Expect(
            QStringLiteral("Error!"), QStringLiteral("The wallpaper was not changed. ") + reason);
    }
    void ExpectRefusal(const QString& reason)
    {
        frame.errors.Expect(
            QStringLiteral("Error!"), QStringLiteral("The desktop did not take the wallpaper. ") + reason);
    }
    /// Near enough for a picture of one colour that went through the lossy format.
    static bool IsNear(const QImage& picture, QColor colour)
    {
        const QColor seen = picture.pixelColor(20, 15);
        return std::abs(seen.red() - colour.red()) < 8 && std::abs(seen.green() - colour.green()) < 8
            && std::abs(seen.blue() - colour.blue()) < 8;
    }
};

} // namespace

TEST_F(BackgroundsTest, TheSystemWallpaperIsABitmapInTheUsersFolderHandedToTheDesktop)
{
    const auto viewer = OpenViewer(Qt::red);
    Click(*viewer, "Cmds(5)");
    EXPECT_EQ(frame.wallpaper.given, QStringList { systemFile });
    const QImage written(systemFile, "BMP");
    EXPECT_EQ(written.convertToFormat(QImage::Format_BGR888), Filled(Qt::red));
    EXPECT_EQ(int(FileBytes(systemFile).at(28)), 24) << "bits per pixel";
    EXPECT_TRUE(frame.told.value(StatusLabel::Operation).isEmpty()) << "no status text is shown";
}

TEST_F(BackgroundsTest, TheSystemWallpaperTwiceInARowIsTheSameFileReplaced)
{
    const auto viewer = OpenViewer(Qt::red);
    Click(*viewer, "Cmds(5)");
    viewer->ShowPicture(Filled(Qt::blue));
    Click(*viewer, "Cmds(5)");
    EXPECT_EQ(frame.wallpaper.given, QStringList({ systemFile, systemFile }));
    EXPECT_EQ(FilesIn(state.Folders().Backgrounds()), QStringList { QStringLiteral("TAQ Wallpaper.Bmp") });
    EXPECT_EQ(QImage(systemFile).pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(BackgroundsTest, WhatTheDesktopSaysAgainstIsTold)
{
    const auto viewer = OpenViewer(Qt::red);
    frame.wallpaper.outcome = { Wallpaper::Result::NotHere, QStringLiteral("There is no desktop.") };
    ExpectRefusal(QStringLiteral("There is no desktop."));
    Click(*viewer, "Cmds(5)");
}

TEST_F(BackgroundsTest, WhatTheUserDeclinedIsNotToldHim)
{
    const auto viewer = OpenViewer(Qt::red);
    frame.wallpaper.outcome = { Wallpaper::Result::Declined, QStringLiteral("Declined.") };
    Click(*viewer, "Cmds(5)");
    EXPECT_EQ(frame.wallpaper.given.size(), 1);
}

TEST_F(BackgroundsTest, TheWindowMayCloseBeforeTheDesktopAnswers)
{
    auto viewer = OpenViewer(Qt::red);
    frame.wallpaper.answersLater = true;
    Click(*viewer, "Cmds(5)");
    viewer.reset();
    frame.wallpaper.outcome = { Wallpaper::Result::NotSet, QStringLiteral("Too late.") };
    ExpectRefusal(QStringLiteral("Too late."));
    frame.wallpaper.Answer();
}

TEST_F(BackgroundsTest, AFileThatCannotBeWrittenIsToldAndNotHandedOver)
{
    MakeFile(frame.folder.filePath(QStringLiteral("data")), "a file where the folder should be");
    const auto viewer = OpenViewer(Qt::red);
    ExpectError(QStringLiteral("%1 could not be saved: a part of its path is not a folder.").arg(systemFile));
    Click(*viewer, "Cmds(5)");
    EXPECT_TRUE(frame.wallpaper.given.isEmpty());
}

TEST_F(BackgroundsTest, ProgramWallpapersPileUpUnderTheLowestFreeNumber)
{
    MakeFile(Wallpaper(1), "taken");
    MakeFile(Wallpaper(3), "taken");
    MakeFile(Wallpaper(4), {});
    const auto viewer = OpenViewer(QColor(200, 40, 40));
    for (const int number : { 2, 4 }) {
        Click(*viewer, "Cmds(4)");
        EXPECT_TRUE(IsNear(QImage(Wallpaper(number), "JPG"), QColor(200, 40, 40))) << number;
        EXPECT_EQ(state.CurrentFile, Wallpaper(number));
        EXPECT_EQ(state.BackgroundFile, Wallpaper(number));
        EXPECT_EQ(StoredPicFolder(), Wallpaper(number));
        EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("Wallpaper Saved"));
    }
    EXPECT_EQ(FileBytes(Wallpaper(1)), QByteArray("taken"));
    EXPECT_TRUE(frame.wallpaper.given.isEmpty());
}

TEST_F(BackgroundsTest, TheProgramWallpaperIsTheActiveFormsCaptureAndNotTheButtonsOwn)
{
    const auto viewer = OpenViewer(QColor(200, 40, 40));
    const auto active = OpenViewer(QColor(40, 40, 200));
    Click(*viewer, "Cmds(4)");
    EXPECT_TRUE(IsNear(QImage(Wallpaper(1)), QColor(40, 40, 200)));
    Click(*viewer, "Cmds(5)");
    EXPECT_EQ(QImage(systemFile).pixelColor(0, 0), QColor(200, 40, 40))
        << "but the desktop's is the button's";
}

TEST_F(BackgroundsTest, WithoutAnActiveCaptureTheProgramWallpaperIsRefused)
{
    const auto viewer = OpenViewer(Qt::red);
    frame.activeCapture = nullptr;
    ExpectError(QStringLiteral("The active window holds no capture."));
    Click(*viewer, "Cmds(4)");
    EXPECT_FALSE(QFile::exists(Wallpaper(1)));
    EXPECT_EQ(StoredPicFolder(), QString());
}

TEST_F(BackgroundsTest, AFailedProgramWallpaperLeavesTheOneBefore)
{
    QDir(state.Beside(QStringLiteral("WallPaper"))).removeRecursively();
    const QString before = state.BackgroundFile;
    const auto viewer = OpenViewer(Qt::red);
    ExpectError(QStringLiteral("%1 could not be saved: the folder is missing.").arg(Wallpaper(1)));
    Click(*viewer, "Cmds(4)");
    EXPECT_EQ(state.BackgroundFile, before);
    EXPECT_NE(frame.status.value(StatusLabel::Operation), QStringLiteral("Wallpaper Saved"));
}

TEST_F(BackgroundsTest, AProgramWallpaperThatCannotBeKeptIsNotUsedInThisRunEither)
{
    state.BackgroundFile = QStringLiteral("/pictures/before.jpg");
    ASSERT_TRUE(QDir().mkpath(state.Settings.FilePath())) << "a folder in the file's place";
    const auto viewer = OpenViewer(Qt::red);
    ExpectError(QStringLiteral("The settings could not be saved."));
    Click(*viewer, "Cmds(4)");
    EXPECT_EQ(state.BackgroundFile, QStringLiteral("/pictures/before.jpg"));
    EXPECT_NE(frame.status.value(StatusLabel::Operation), QStringLiteral("Wallpaper Saved"));
}

TEST_F(BackgroundsTest, TheStripTakesTheHighlightedThumbnail)
{
    const auto strip = OpenStrip({ QColor(200, 40, 40), QColor(40, 200, 40) });
    Pick(*strip, 1);
    Click(*strip, "Cmds(3)");
    EXPECT_TRUE(IsNear(QImage(Wallpaper(1)), QColor(40, 200, 40)));
    EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("Wallpaper Saved"));
    Click(*strip, "Cmds(4)");
    EXPECT_EQ(QImage(systemFile).pixelColor(0, 0), QColor(40, 200, 40));
}

TEST_F(BackgroundsTest, WithNoneHighlightedTheStripDoesNothing)
{
    const auto strip = OpenStrip({ QColor(Qt::red) });
    for (const char* button : { "Cmds(3)", "Cmds(4)" })
        Click(*strip, button);
    EXPECT_TRUE(frame.wallpaper.given.isEmpty());
    EXPECT_FALSE(QFile::exists(Wallpaper(1)));
    EXPECT_TRUE(frame.told.value(StatusLabel::Operation).isEmpty());
}

TEST_F(BackgroundsTest, TheTipsOfTheButtons)
{
    const auto viewer = OpenViewer(Qt::red);
    const auto strip = OpenStrip({ QColor(Qt::red) });
    const auto tip = [](QWidget& form, const char* button) {
        return form.findChild<QWidget*>(QLatin1String(button))->toolTip();
    };
    EXPECT_EQ(tip(*viewer, "Cmds(5)"), QStringLiteral(" Save as System Wallpaper "));
    EXPECT_EQ(tip(*strip, "Cmds(3)"), QStringLiteral("Make highlighted picture the programs wallpaper"));
    EXPECT_EQ(tip(*strip, "Cmds(4)"), QStringLiteral(" Save as System Wallpaper "));
}
