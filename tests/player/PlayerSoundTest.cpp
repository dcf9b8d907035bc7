#include "tests/player/PlayerFixture.h"
#include "tests/player/SoundServer.h"
#include "tests/player/WebServer.h"

#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <iostream>

namespace {

using Clock = SoundServer::Clock;
constexpr int PicturesASecond = 25;

/// When each flash was painted: pictures 0, 25, 50, …
class Flashes : public QObject {
public:
    explicit Flashes(PlayerControl& player)
        : player_(player)
    {
        player.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        const int frame = player_.CurrentFrame();
        if (frame != last_ && frame % PicturesASecond == 0 && player_.State() == ltmmPlay::Running)
            times.push_back(Clock::now());
        last_ = frame;
        return false;
    }

    std::vector<Clock::time_point> times;

private:
    PlayerControl& player_;
    int last_ = -1;
};

double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace

/// Flash and beep begin together at every full second of the clip.
class PlayerSoundTest : public PlayerFixture {
protected:
    static constexpr double Tolerance = 20; // milliseconds
    static constexpr double BeepLength = 80; // milliseconds

    void SetUp() override
    {
        if (!server_.Trouble().isEmpty())
            GTEST_SKIP() << server_.Trouble().toStdString();
        Load(QStringLiteral("avsync.mp4"));
    }
    /// Runs the event loop without the naps that QTest takes: pictures are painted when they come.
    template <typename Condition> static bool RunUntil(Condition condition, int patience = Patience)
    {
        QEventLoop loop;
        QTimer look;
        QElapsedTimer waited;
        waited.start();
        QObject::connect(&look, &QTimer::timeout, &loop, [&] {
            if (condition() || waited.elapsed() > patience)
                loop.quit();
        });
        look.start(5);
        loop.exec();
        return condition();
    }
    bool Play(double seconds)
    {
        const auto end = Clock::now() + std::chrono::duration<double>(seconds);
        player_->Run();
        return RunUntil([=] { return Clock::now() >= end; });
    }
    void PlayToTheEnd(int patience = Patience)
    {
        server_.Forget();
        flashes_.times.clear();
        player_->Run();
        ASSERT_TRUE(RunUntil([this] { return player_->State() != ltmmPlay::Running; }, patience));
    }
    /// Milliseconds by which each beep came after its flash. A changed tempo blurs the edges of a beep evenly
    /// to both sides, so that its middle tells its time.
    std::vector<double> Offsets() const
    {
        const double rate = player_->Rate();
        std::vector<double> offsets;
        for (const Clock::time_point beep : server_.Beeps(0.25 / rate))
            for (const Clock::time_point flash : flashes_.times)
                if (const double offset = Milliseconds(beep - flash) - BeepLength / 2 / rate;
                    std::abs(offset) < 300 / rate)
                    offsets.push_back(offset);
        return offsets;
    }
    void ExpectTogether(std::size_t atLeast)
    {
        const std::vector<double> offsets = Offsets();
        std::cout << "[ offsets  ] rate " << player_->Rate() << ", ms:";
        for (const double offset : offsets)
            std::cout << ' ' << std::lround(offset);
        std::cout << std::endl;
        ASSERT_GE(offsets.size(), atLeast);
        EXPECT_NEAR(MedianOf(offsets), 0, Tolerance);
    }
    static double MedianOf(std::vector<double> values)
    {
        std::ranges::sort(values);
        return values[values.size() / 2];
    }

    /// A tone of 440 Hz at an eighth of the scale; a cut anywhere but at its zero would be a jump.
    void LoadTone()
    {
        Load(QStringLiteral("audio_gap.mkv"));
        player_->SetCurrentFrame(55); // behind the hole, whose edges are hard
    }
    /// A machine that is busy may lose a block, which is a jump as well: then all is done once more.
    void ExpectNoJump(const std::function<void()>& cut)
    {
        int jumps = 1;
        for (int attempt = 0; attempt < 4 && jumps > 0; ++attempt) {
            server_.Forget();
            cut();
            jumps = server_.Jumps(0.03F);
        }
        EXPECT_GT(server_.Loudest(), 0.05F);
        EXPECT_EQ(jumps, 0);
    }

    /// The same as the clip's, for as long as wanted.
    static void MakeFlashesAndBeeps(const QString& file, double seconds)
    {
        const QString length = QStringLiteral(":d=%1").arg(seconds);
        const QString flashes = QStringLiteral("color=black:s=160x120:r=25") + length
            + QStringLiteral(",drawbox=t=fill:c=white:enable='lt(mod(n,25),2)'");
        const QString beeps =
            QStringLiteral("aevalsrc='0.8*sin(2*PI*1000*t)*lt(mod(t,1),0.08)':s=48000") + length;
        QProcess ffmpeg;
        ffmpeg.start(QStringLiteral("ffmpeg"),
            { QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
                QStringLiteral("-i"), flashes, QStringLiteral("-f"), QStringLiteral("lavfi"),
                QStringLiteral("-i"), beeps, QStringLiteral("-preset"), QStringLiteral("ultrafast"),
                QStringLiteral("-g"), QString::number(PicturesASecond), file });
        ASSERT_TRUE(ffmpeg.waitForFinished(600'000));
        ASSERT_EQ(ffmpeg.exitCode(), 0) << ffmpeg.readAllStandardError().toStdString();
    }

    SoundServer server_;
    Flashes flashes_ { *player_ };
};

TEST_F(PlayerSoundTest, FlashAndBeepComeTogetherAtHalfTheOrdinaryAndTheDoubleRate)
{
    for (const double rate : { 1.0, 2.0, 0.5 }) {
        player_->SetRate(rate);
        PlayToTheEnd();
        ExpectTogether(4);
    }
}

TEST_F(PlayerSoundTest, TheyComeTogetherInALoop)
{
    player_->SetPlayCount(0);
    player_->SetSelectionStart(0.5);
    player_->SetSelectionEnd(1.5);
    Play(6);
    ExpectTogether(4);
}

TEST_F(PlayerSoundTest, TheyComeTogetherAfterManyPauses)
{
    for (int pause = 0; pause < 20; ++pause) {
        Play(0.06);
        player_->Pause();
    }
    PlayToTheEnd();
    ExpectTogether(2);
}

TEST_F(PlayerSoundTest, TheyComeTogetherAfterManySeeksAndRates)
{
    QRandomGenerator random(20);
    player_->Run();
    for (int change = 0; change < 20; ++change) {
        player_->SetCurrentFrame(random.bounded(100));
        player_->SetRate(random.bounded(1, 50) / 10.0);
        Play(0.06);
    }
    player_->SetRate(1);
    player_->SetCurrentFrame(20);
    PlayToTheEnd();
    ExpectTogether(4);
}

/// TAQ_SOUND_MINUTES makes the play as long as a user's evening.
TEST_F(PlayerSoundTest, TheyDoNotDriftApartOverALongPlay)
{
    const double minutes = qEnvironmentVariable("TAQ_SOUND_MINUTES", QStringLiteral("0.3")).toDouble();
    const QTemporaryDir folder;
    const QString clip = folder.filePath(QStringLiteral("long.mp4"));
    MakeFlashesAndBeeps(clip, 60 * minutes);
    player_->SetSourceFile(clip);
    PlayToTheEnd(int(60'000 * minutes) + Patience);
    const std::vector<double> offsets = Offsets();
    ASSERT_GE(double(offsets.size()), 60 * minutes * 0.9);
    const auto part = std::ptrdiff_t(offsets.size() / 3);
    const double early = MedianOf({ offsets.begin(), offsets.begin() + part });
    const double late = MedianOf({ offsets.end() - part, offsets.end() });
    std::cout << "[ drift    ] over " << minutes << " min from " << early << " to " << late << " ms\n";
    EXPECT_NEAR(early, 0, Tolerance);
    EXPECT_NEAR(late, 0, Tolerance);
}

TEST_F(PlayerSoundTest, PausesSeeksRatesAndMuteDoNotClick)
{
    LoadTone();
    for (int round = 0; round < 6; ++round)
        ExpectNoJump([=, this] {
            player_->SetMute(false);
            Play(0.2);
            player_->SetCurrentFrame(60 + round);
            Play(0.2);
            player_->SetRate(round % 2 == 0 ? 1.5 : 1);
            Play(0.2);
            player_->SetMute(true);
            Play(0.1);
            player_->Pause();
        });
}

TEST_F(PlayerSoundTest, ALoopDoesNotClick)
{
    LoadTone();
    player_->SetPlayCount(0);
    player_->SetSelectionStart(2.21);
    player_->SetSelectionEnd(2.61);
    ExpectNoJump([this] {
        Play(1.5);
        player_->Pause();
    });
}

TEST_F(PlayerSoundTest, MuteIsSilentAndTheVideoGoesOn)
{
    player_->SetMute(true);
    PlayToTheEnd();
    EXPECT_EQ(server_.Loudest(), 0);
    EXPECT_EQ(player_->CurrentFrame(), 124);
    EXPECT_GE(flashes_.times.size(), 4U);
}

TEST_F(PlayerSoundTest, MuteOutlivesALoad)
{
    player_->SetMute(true);
    Load(QStringLiteral("avsync.mp4"));
    PlayToTheEnd();
    EXPECT_EQ(server_.Loudest(), 0);
}

TEST_F(PlayerSoundTest, FlashAndBeepComeTogetherOverTheWeb)
{
    const WebServer web;
    player_->SetSourceFile(web.Plain() + QStringLiteral("/good/avsync.mp4"));
    PlayToTheEnd();
    ExpectTogether(4);
}

TEST_F(PlayerSoundTest, TheyComeTogetherInWhatIsSentAsItHappens)
{
    const QTemporaryDir folder;
    MakeFlashesAndBeeps(folder.filePath(QStringLiteral("flashes.ts")), 20);
    const WebServer web(folder.path());
    player_->SetSourceFile(web.Plain() + QStringLiteral("/onair/flashes.ts?20"));
    ASSERT_EQ(player_->CheckSeeking(ltmmPlay::EveryCapability), 0) << "it has no end";
    LetAnotherPlayTo(35); // the sound is asked for when the sending has gone on
    Play(1);
    server_.Forget();
    flashes_.times.clear();
    Play(8);
    ExpectTogether(3);
}

TEST_F(PlayerSoundTest, ClosingAtAnyTimeEndsItsThreads)
{
    const auto threads = [] { return QDir(QStringLiteral("/proc/self/task")).count(); };
    player_.reset();
    const uint before = threads();
    for (int round = 0; round < 20; ++round) {
        PlayerControl player;
        player.show();
        player.SetSourceFile(ClipPath(QStringLiteral("avsync.mp4")));
        player.Run();
        const auto end = Clock::now() + std::chrono::milliseconds(5 * round);
        RunUntil([=] { return Clock::now() >= end; });
        if (round % 3 == 0)
            player.SetCurrentFrame(60);
        if (round % 4 == 0)
            player.Pause();
    }
    EXPECT_TRUE(RunUntil([=] { return threads() <= before; }));
}

TEST_F(PlayerSoundTest, StepsAreSilent)
{
    for (int step = 0; step < 60; ++step)
        player_->NextFrame();
    EXPECT_EQ(server_.Loudest(), 0);
}

TEST_F(PlayerSoundTest, AServerThatDiesLeavesThePicturesPlaying)
{
    Play(0.5);
    server_.Kill();
    ASSERT_TRUE(RunUntil([this] { return player_->State() != ltmmPlay::Running; }));
    EXPECT_EQ(player_->CurrentFrame(), 124);
    EXPECT_EQ(errors_.size(), 0);
    player_->SeekStart();
    player_->Run();
    EXPECT_TRUE(RunUntil([this] { return player_->CurrentFrame() > 20; }));
}
