// Automatic captures through the whole program on real media: what stands on the disk is told by the
// pictures' own bar codes.
#include "imaging/PictureFile.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/BarCode.h"
#include "tests/clips/Clips.h"
#include "tests/frame/PartsOf.h"
#include "tests/testing/Await.h"
#include "tests/testing/Files.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class AutomaticCapture : public testing::Test, protected FrameNeighbours {
protected:
    static constexpr std::chrono::seconds Patience { 60 };

    std::unique_ptr<Main> main;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    void SetUp() override
    {
        main =
            std::make_unique<Main>(PartsOf(*this, [](QWidget* parent) { return new PlayerControl(parent); }));
        main->show();
        QDir::setCurrent(folder.path());
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    void Store(const char* key, int value)
    {
        ASSERT_TRUE(state.Settings.SaveSetting(
            QStringLiteral("Options"), QLatin1String(key), QString::number(value)));
    }
    /// A clip under a name that the run accepts.
    QString Linked(const QString& clip, int place = 0, const char* extension = ".avi")
    {
        const QString name = QStringLiteral("video%1").arg(place) + QLatin1String(extension);
        QFile::remove(folder.filePath(name));
        EXPECT_TRUE(QFile::link(ClipPath(clip), folder.filePath(name)));
        return name;
    }
    void Open(const QStringList& names)
    {
        QString buffer = folder.path();
        for (const QString& name : names)
            buffer += QChar(u'\0') + name;
        dialogs.openNames.push(names.size() == 1 ? folder.filePath(names.first()) : buffer);
        main->OpenVideoNow_Click();
    }
    void RunByFrames(const QStringList& names, int step)
    {
        Store("AutoNumber", step);
        state.AutoCapture = true;
        state.AutoFrame = true;
        Open(names);
    }
    void RunByTime(const QStringList& names, int seconds)
    {
        Store("UsersCaptureTime", seconds);
        state.AutoCapture = true;
        state.CaptureTime = true;
        Open(names);
    }
    /// Three videos, one of them a .wmv, with a broken one and a text file between them.
    QStringList FiveMixedFiles()
    {
        state.ShowPlayerErrors = false;
        MakeFile(folder.filePath(QStringLiteral("broken.avi")), QByteArray(100'000, 'x'));
        MakeFile(folder.filePath(QStringLiteral("notes.txt")), "words");
        return { Linked(QStringLiteral("mpeg4_bf.avi"), 1), QStringLiteral("broken.avi"),
            Linked(QStringLiteral("wmv2.wmv"), 2, ".wmv"), QStringLiteral("notes.txt"),
            Linked(QStringLiteral("mpeg4_bf.avi"), 3) };
    }
    bool AwaitPictures(int count) const
    {
        return Await([&] { return int(NumbersWritten().size()) >= count; }, Patience);
    }
    bool AwaitOver()
    {
        return Await([this] { return main->IsCommandEnabled(Command::Capture); }, Patience);
    }
    QDir Pictures() const { return QDir(state.Beside(QStringLiteral("AutoFrame"))); }
    void ClearPictures()
    {
        QDir pictures = Pictures();
        pictures.removeRecursively();
        QDir().mkpath(pictures.path());
    }
    /// The numbers in the pictures, from auto1.bmp to the first name that is missing. degrees turns those
    /// whose code was drawn before they were rotated as tagged.
    std::vector<int> NumbersWritten(int degrees = 0) const
    {
        std::vector<int> numbers;
        QString path;
        for (int place = 1;
             QFile::exists(path = Pictures().filePath(QStringLiteral("auto%1.bmp").arg(place))); ++place)
            numbers.push_back(NumberIn(QImage(path).transformed(QTransform().rotate(degrees))));
        return numbers;
    }
};

/// The frames that a run takes of its first video: number 0 and every step-th behind it, but at most one less
/// than the video has; of a video shorter than the step its first and its last.
std::vector<int> FramesAsked(int frames, int step)
{
    if (frames < step)
        return { 0, frames - 1 };
    std::vector<int> asked;
    for (int frame = 0; frame < frames && int(asked.size()) < frames - 1; frame += step)
        asked.push_back(frame);
    return asked;
}

/// The numbers that their pictures show; -1 where the pixels of a clip tell nothing.
std::vector<int> Asked(const Clip& clip, int step)
{
    std::vector<int> numbers;
    for (const int frame : FramesAsked(clip.Pictures, step))
        numbers.push_back(clip.Numbers.empty() ? -1 : clip.Numbers.at(size_t(frame)));
    return numbers;
}

bool Agree(const std::vector<int>& written, const std::vector<int>& asked)
{
    return std::ranges::equal(
        written, asked, [](int found, int expected) { return expected < 0 || found == expected; });
}

} // namespace

TEST_F(AutomaticCapture, OfEveryClipExactlyTheFramesAskedForAreWritten)
{
    for (const Clip& clip : AllClips()) {
        // What is known by its name only is not to be had under the name that a run accepts.
        if (clip.Pictures < 2 || clip.Name.endsWith(QLatin1String(".m3u8")))
            continue;
        const int degrees = clip.Name == QLatin1String("rotate90.mp4") ? 90 : 0;
        for (const int step : { 1, 7, 10'000 }) {
            ClearPictures();
            RunByFrames({ Linked(clip.Name) }, step);
            ASSERT_TRUE(AwaitOver()) << clip.Name.toStdString() << " every " << step;
            const std::vector<int> written = NumbersWritten(degrees);
            EXPECT_TRUE(Agree(written, Asked(clip, step)))
                << clip.Name.toStdString() << " every " << step << ": " << testing::PrintToString(written);
        }
    }
}

TEST_F(AutomaticCapture, ATimedRunTakesThePicturesOfTheAskedTimes)
{
    RunByTime({ Linked(QStringLiteral("long_10fps.mp4")) }, 2);
    ASSERT_TRUE(AwaitOver());
    const std::vector<int> numbers = NumbersWritten();
    ASSERT_EQ(numbers.size(), 10U);
    for (size_t i = 0; i < numbers.size(); ++i)
        EXPECT_NEAR(numbers[i], int(i) * 2 * 10, 1) << "ten frames a second";
}

TEST_F(AutomaticCapture, OfFiveMixedFilesTheWmvPlaysToItsEndAndTheBrokenOneAndTheTextAreLeftOut)
{
    errors.Expect(QStringLiteral("Auto Frame Capture"),
        QStringLiteral(
            "The frame command is not supported by this video format.\nMulti capture not enabled.\n"
            "Turn off this feature for this video, reload it, and use the capture button."));
    RunByFrames(FiveMixedFiles(), 50);
    ASSERT_TRUE(Await(
        [this] {
            return state.VideoExt == QLatin1String(".wmv") && main->IsCommandEnabled(Command::Capture);
        },
        Patience));
    EXPECT_EQ(NumbersWritten(), (std::vector<int> { 0, 50 })) << "nothing of the one that plays";
    ASSERT_TRUE(Await([this] { return !main->IsCommandEnabled(Command::Capture); }, Patience));
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(NumbersWritten(), (std::vector<int> { 0, 50, 50 }));
}

TEST_F(AutomaticCapture, OfFiveMixedFilesATimedRunTakesTheWmvToo)
{
    RunByTime(FiveMixedFiles(), 2);
    ASSERT_TRUE(AwaitOver());
    const std::vector<int> numbers = NumbersWritten();
    // The times of the .wmv begin late: its picture of two seconds is number 48, and it lasts past four.
    const std::vector<int> asked { 0, 50, 0, 48, 98, 0, 50 };
    ASSERT_EQ(numbers.size(), asked.size()) << testing::PrintToString(numbers);
    for (size_t i = 0; i < asked.size(); ++i)
        EXPECT_NEAR(numbers[i], asked[i], 1) << "picture " << i;
}

TEST_F(AutomaticCapture, TheBrokenOneIsToldOfWhereThatIsWantedAndTheRunGoesOn)
{
    const QStringList files = FiveMixedFiles();
    state.ShowPlayerErrors = true;
    errors.Expect(QStringLiteral("Error Abort"),
        QStringLiteral("Abort, Error Playing.     Error Code: This is not a video of a known kind.  Or file "
                       "is not complete, or it is corrupt"));
    RunByFrames({ files[0], files[1], files[4] }, 50);
    ASSERT_TRUE(AwaitOver());
    EXPECT_EQ(NumbersWritten(), (std::vector<int> { 0, 50, 50 }));
}

TEST_F(AutomaticCapture, ACancelledOpenInTheMiddleLetsTheRunGoOn)
{
    RunByTime({ Linked(QStringLiteral("long_10fps.mp4")) }, 1);
    ASSERT_TRUE(AwaitPictures(2));
    dialogs.openNames.push(QString());
    main->OpenVideoNow_Click();
    ASSERT_TRUE(AwaitPictures(4));
    EXPECT_FALSE(main->IsCommandEnabled(Command::Capture));
}

TEST_F(AutomaticCapture, ACancelledOpenInTheMiddleOfARunByFramesLetsItGoOnToItsNextVideo)
{
    const QString clip = QStringLiteral("mpeg4_bf.avi");
    RunByFrames({ Linked(clip, 1), Linked(clip, 2) }, 2);
    ASSERT_TRUE(Await([this] { return FilesIn(Pictures().path()).size() > 3; }, Patience));
    dialogs.openNames.push(QString());
    main->OpenVideoNow_Click();
    EXPECT_FALSE(main->IsCommandEnabled(Command::Capture));
    ASSERT_TRUE(AwaitOver());
    std::vector<int> asked = FramesAsked(ClipNamed(clip).Pictures, 2);
    const std::vector<int> first = asked;
    asked.insert(asked.end(), first.begin() + 1, first.end()); // a later video begins one step in
    EXPECT_EQ(NumbersWritten(), asked);
}

TEST_F(AutomaticCapture, ASecondOpenInTheMiddleOfATimedRunBeginsItsOwn)
{
    RunByTime({ Linked(QStringLiteral("long_10fps.mp4")) }, 1);
    ASSERT_TRUE(AwaitPictures(2));
    state.CaptureTime = false;
    RunByFrames({ Linked(QStringLiteral("mpeg4_bf.avi"), 2) }, 50);
    ASSERT_TRUE(AwaitOver());
    const std::vector<int> numbers = NumbersWritten();
    EXPECT_EQ(std::vector<int>(numbers.end() - 2, numbers.end()), (std::vector<int> { 0, 50 }));
}

TEST_F(AutomaticCapture, TheFrameClosedInTheMiddleOfATimedRunLeavesWholePicturesOnly)
{
    RunByTime({ Linked(QStringLiteral("long_10fps.mp4")) }, 1);
    ASSERT_TRUE(AwaitPictures(3));
    main->close();
    main.reset();
    for (const QString& name : FilesIn(Pictures().path()))
        EXPECT_GE(NumberIn(QImage(Pictures().filePath(name))), 0) << name.toStdString();
}

TEST_F(AutomaticCapture, TheFrameClosedInTheMiddleLeavesWholePicturesOnly)
{
    RunByFrames({ Linked(QStringLiteral("mpeg4_bf.avi")) }, 1);
    ASSERT_TRUE(Await([this] { return Pictures().count() > 10; }, Patience));
    main->close();
    main.reset();
    for (const QString& name : FilesIn(Pictures().path()))
        EXPECT_GE(NumberIn(QImage(Pictures().filePath(name))), 0) << name.toStdString();
}

TEST_F(AutomaticCapture, TheFrameClosedWhileTextIsBurntLeavesWholePicturesOnly)
{
    ASSERT_TRUE(
        state.Settings.SaveSetting(QStringLiteral("Options"), QStringLiteral("Ext"), QStringLiteral(".png")));
    state.UseWatermark = true;
    RunByTime({ Linked(QStringLiteral("long_10fps.mp4")) }, 1);
    ASSERT_TRUE(Await([this] { return FilesIn(Pictures().path()).size() > 1; }, Patience));
    EXPECT_TRUE(FileBytes(Pictures().filePath(QStringLiteral("auto1.png"))).startsWith("\x89PNG"));
    main->close();
    main.reset();
    for (const QString& name : FilesIn(Pictures().path()))
        EXPECT_FALSE(QImage(Pictures().filePath(name)).isNull()) << name.toStdString();
}
