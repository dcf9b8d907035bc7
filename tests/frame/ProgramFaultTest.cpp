// What the user of the whole program meets when a file is not what it should be: one message or none, and a
// program that opens the next video as if nothing had been.
#include "desktop/FileName.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/Clips.h"
#include "tests/frame/PartsOf.h"

#include <QDir>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int Patience = 20'000; // milliseconds

class ProgramFaultTest : public testing::Test, protected FrameNeighbours {
protected:
    std::unique_ptr<Main> main =
        std::make_unique<Main>(PartsOf(*this, [](QWidget* parent) { return new PlayerControl(parent); }));

    void SetUp() override
    {
        main->show();
        QDir::setCurrent(folder.path());
        QFile::copy(ClipPath(QStringLiteral("mpeg4_bf.avi")), Path("good.avi"));
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    void Write(const char* name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    void ClickOpen(const QString& result)
    {
        dialogs.openNames.push(result);
        QTest::mouseClick(main->findChild<QWidget*>(QStringLiteral("Cmds(0)")), Qt::LeftButton);
    }
    QString Label(int index) const
    {
        return main->findChild<QLabel*>(QStringLiteral("LblMsg1(%1)").arg(index))->text();
    }

    void ExpectError(const char* reason)
    {
        errors.Expect(QStringLiteral("Error Abort"),
            QStringLiteral("Abort, Error Playing.     Error Code: ") + QLatin1String(reason)
                + QStringLiteral("  Or file is not complete, or it is corrupt"));
    }
    /// Opens a file that cannot be played: one message with its reason, and nothing is left of the video.
    void OpenBad(const char* name, const char* reason)
    {
        ExpectError(reason);
        ClickOpen(Path(name));
        EXPECT_TRUE(QTest::qWaitFor([this] { return Label(0) == QStringLiteral("Abort"); }, Patience))
            << name;
        EXPECT_EQ(main->CurrentPlayer().TrackingMax(), 0);
        OpenGood();
    }
    void OpenGood()
    {
        ClickOpen(Path("good.avi"));
        EXPECT_EQ(main->CurrentPlayer().FrameCount(), 100);
        main->CurrentPlayer().SetCurrentFrame(42);
        EXPECT_TRUE(QTest::qWaitFor([this] { return Label(2) == QStringLiteral("Frame: 42"); }, Patience));
    }
};

} // namespace

TEST_F(ProgramFaultTest, ASelectionWithNoVideoIsSilent)
{
    Write("notes.txt", "text");
    ClickOpen(Path("notes.txt"));
    EXPECT_FALSE(main->findChild<QWidget*>(QStringLiteral("Cmd2(0)"))->isEnabled());
    OpenGood();
}

TEST_F(ProgramFaultTest, AnEmptyFile)
{
    Write("empty.avi", {});
    OpenBad("empty.avi", "The file is empty.");
}

TEST_F(ProgramFaultTest, AFolder)
{
    QDir(folder.path()).mkdir(QStringLiteral("folder.avi"));
    OpenBad("folder.avi", "This is not a regular file.");
}

TEST_F(ProgramFaultTest, APipeThatNobodyWrites)
{
    ASSERT_EQ(::mkfifo(Path("pipe.avi").toLocal8Bit().constData(), 0600), 0);
    OpenBad("pipe.avi", "This is not a regular file.");
}

TEST_F(ProgramFaultTest, AFileThatIsNotWhatItsNameSays)
{
    Write("text.mpg", QByteArray("Not a video, but many lines of text.\n").repeated(1000));
    OpenBad("text.mpg", "This is not a video of a known kind.");
}

TEST_F(ProgramFaultTest, AFileThatWentBetweenTheDialogAndTheOpen)
{
    OpenBad("gone.avi", "The file or address was not found.");
}

TEST_F(ProgramFaultTest, ATruncatedFilePlaysWhatIsThere)
{
    QFile::copy(ClipPath(QStringLiteral("cut_tail.avi")), Path("cut.avi"));
    ClickOpen(Path("cut.avi"));
    EXPECT_EQ(main->CurrentPlayer().FrameCount(), ClipNamed(QStringLiteral("cut_tail.avi")).Pictures);
    OpenGood();
}

TEST_F(ProgramFaultTest, NamesWithBlanksAndLineBreaksOpenAndAreShownOnOneLine)
{
    for (const char* name : { " two  blanks .avi", "line\nbreak.avi", "100%d #1?.avi", "-dash.avi" }) {
        QFile::copy(Path("good.avi"), Path(name));
        ClickOpen(Path(name));
        EXPECT_EQ(main->CurrentPlayer().FrameCount(), 100) << name;
        const QString title = main->findChild<QLabel*>(QStringLiteral("LblTitle"))->text();
        EXPECT_FALSE(title.contains(u'\n')) << name;
    }
}

TEST_F(ProgramFaultTest, ANameThatIsNoTextOpensByItsBytes)
{
    const QByteArray name = folder.path().toLocal8Bit() + "/caf\xE9.avi";
    ASSERT_EQ(::link(Path("good.avi").toLocal8Bit().constData(), name.constData()), 0);
    ClickOpen(FileName::FromBytes(name));
    EXPECT_EQ(main->CurrentPlayer().FrameCount(), 100);
    ::unlink(name.constData()); // the temporary folder cannot name it
}

TEST_F(ProgramFaultTest, AFileThatVanishesWhileOpenCanStillBeStepped)
{
    QFile::copy(Path("good.avi"), Path("passing.avi"));
    ClickOpen(Path("passing.avi"));
    QFile::remove(Path("passing.avi"));
    main->CurrentPlayer().SetCurrentFrame(99);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Label(2) == QStringLiteral("Frame: 99"); }, Patience));
    OpenGood();
}

TEST_F(ProgramFaultTest, AnUnreadableFile)
{
    // A link into itself cannot be read by anyone, not even by root.
    ASSERT_EQ(::symlink("loop.avi", Path("loop.avi").toLocal8Bit().constData()), 0);
    OpenBad("loop.avi", "The file or address was not found.");
}

TEST_F(ProgramFaultTest, ACaptureWithoutAPictureIsToldAndOpensNoWindow)
{
    errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
    state.VidWinOnly = true;
    QTest::mouseClick(main->findChild<QWidget*>(QStringLiteral("Opens")), Qt::LeftButton);
    QTest::mouseClick(main->findChild<QWidget*>(QStringLiteral("Cmds(8)")), Qt::LeftButton);
    EXPECT_EQ(state.KidCount, 0);
}
