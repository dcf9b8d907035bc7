#pragma once

#include "imaging/PictureFile.h"
#include "tests/testing/Await.h"
#include "tests/testing/Files.h"
#include "tests/testing/SmallDisk.h"
#include "tests/video/VideoWindowFixture.h"
#include "toolkit/StripButton.h"

#include <QFileInfo>
#include <QMap>
#include <QTest>

#include <algorithm>
#include <climits>
#include <set>
#include <vector>

/// A player whose videos have lengths of their own and which refuses what a test names.
class RunPlayer : public FakePlayer {
public:
    using FakePlayer::FakePlayer;

    QMap<QString, int> frameCounts; ///< by file name; 30 for any other
    QMap<QString, QSize> sizes; ///< by file name; as it was for any other
    std::set<int> refusedFrames;
    QStringList opened; ///< the files' names, in their order
    std::function<void()> whenStillIsTaken;
    bool isCounted = true;
    int readyUpTo = INT_MAX;

    bool HasFrameCount() const override { return isCounted; }
    bool IsFrameReady(int number) const override { return number <= readyUpTo; }
    void SetSourceFile(const QString& path) override
    {
        FakePlayer::SetSourceFile(path);
        state = Stopped;
        frame = 0;
        const QString name = QFileInfo(path).fileName();
        frameCount = file.isEmpty() ? 0 : frameCounts.value(name, 30);
        size = sizes.value(name, size);
        opened << name;
    }
    void SetCurrentFrame(int number) override
    {
        if (refusedFrames.contains(number))
            throw ControlError(QStringLiteral("No such picture."));
        frame = qMin(number, frameCount - 1);
    }
    QImage GetStillPicture(int timeoutMs) override
    {
        const QImage still = FakePlayer::GetStillPicture(timeoutMs);
        if (whenStillIsTaken)
            whenStillIsTaken();
        return still;
    }
};

/// Automatic captures of the video window over a faked player.
class AutoRunFixture : public VideoWindowFixture {
protected:
    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }

    RunPlayer* player = nullptr;

    void SetUp() override
    {
        VideoWindowFixture::SetUp();
        player->size = QSize(64, 36);
    }
    FakePlayer* MakePlayer(QWidget* parent) override { return player = new RunPlayer(parent); }
    void Store(const char* key, const QString& value)
    {
        ASSERT_TRUE(state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), value));
    }
    void RunByFrames(const QStringList& names, int step)
    {
        Store("AutoNumber", QString::number(step));
        state.AutoCapture = true;
        state.AutoFrame = true;
        Open(names);
    }
    void RunByTime(const QStringList& names, int seconds)
    {
        Store("UsersCaptureTime", QString::number(seconds));
        state.AutoCapture = true;
        state.CaptureTime = true;
        Open(names);
    }
    /// The commands come back when a run is over.
    bool AwaitOver() const
    {
        return Await([this] { return frame.enabled.value(Command::Capture); });
    }
    template <typename Condition> static bool Await(Condition condition)
    {
        return ::Await(condition, std::chrono::seconds(20));
    }
    bool AwaitStills(int more) const
    {
        return Await([this, wanted = player->stillsGiven + more] { return player->stillsGiven >= wanted; });
    }
    /// Waits until the label of the run has said this; by then it may say something else.
    bool AwaitLabel(const QString& text) const
    {
        return Await([&] { return frame.told.value(StatusLabel::AutoCapture).contains(text); });
    }
    QString PictureFolder() const { return state.Beside(QStringLiteral("AutoFrame")); }
    QString PicturePath(int number, const char* extension = ".bmp") const
    {
        return PictureFolder() + QStringLiteral("/auto%1").arg(number) + QLatin1String(extension);
    }
    /// The run's pictures go to this disk from now on.
    void WriteTo(const SmallDisk& disk) const
    {
        QDir(PictureFolder()).removeRecursively();
        ASSERT_TRUE(QFile::link(disk.Path(), PictureFolder()));
    }
    /// Which frame each picture shows, from auto1.bmp to the first name that is missing.
    std::vector<int> FramesWritten() const
    {
        std::vector<int> frames;
        for (int number = 1; QFile::exists(PicturePath(number)); ++number)
            frames.push_back(FrameIn(number));
        return frames;
    }
    int FrameIn(int number) const { return qRed(QImage(PicturePath(number)).pixel(0, 0)); }
    bool AreAllWhole() const
    {
        return std::ranges::none_of(FilesIn(PictureFolder()),
            [this](const QString& file) { return QImage(PictureFolder() + u'/' + file).isNull(); });
    }
    /// The message of a .wmv that frames are asked of.
    void ExpectRefusal()
    {
        frame.errors.Expect(QStringLiteral("Auto Frame Capture"),
            QStringLiteral("The frame command is not supported by this video format.\n"
                           "Multi capture not enabled.\n"
                           "Turn off this feature for this video, reload it, and use the capture button."));
    }
    /// The message of a video of one frame.
    void ExpectSingleFrame()
    {
        frame.errors.Expect(QStringLiteral("Capture Not Supported"),
            QStringLiteral("The frame command is not supported by this video format. Turn off this feature "
                           "for this video and use the capture button."));
    }
    void ExpectTheVideosButtonsToWork() const
    {
        for (const StripButton* button : pane.Cmd2)
            EXPECT_TRUE(button->isEnabled()) << button->objectName().toStdString();
    }
    void Press(const char* button)
    {
        QTest::mouseClick(window->findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
    void ExpectTheCloseButtonToLeaveTheRun()
    {
        Press("Cmds(0)");
        EXPECT_EQ(state.VideoCount, 0);
        EXPECT_FALSE(frame.statusShown.value(StatusLabel::AutoCapture));
        EXPECT_FALSE(frame.enabled.value(Command::Capture)) << "there is no video";
        frame.own = &spare;
        ASSERT_TRUE(Await([&] { return window.isNull(); }));
        EXPECT_TRUE(AreAllWhole());
    }
    int FilesWritten() const { return int(FilesIn(PictureFolder()).size()); }
    void Progress(int position) { Q_EMIT player->PlaybackProgress(position); }
};
