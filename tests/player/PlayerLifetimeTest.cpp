#include "tests/player/PlayerFixture.h"
#include "tests/testing/Files.h"
#include "tests/testing/SilentServer.h"

#include <QDir>

namespace {

qsizetype Entries(const char* folder)
{
    return QDir(QString::fromLatin1(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

qsizetype Threads()
{
    return Entries("/proc/self/task");
}
qsizetype Descriptors()
{
    return Entries("/proc/self/fd");
}

} // namespace

class PlayerLifetimeTest : public PlayerFixture {
protected:
    PlayerLifetimeTest()
    {
        // What the libraries start once and keep is there before the count.
        player_->SetSourceFile(ClipPath(QStringLiteral("h264_closed.mp4")));
        player_->ResetSource();
        threads_ = Threads();
        descriptors_ = Descriptors();
    }
    void ExpectNothingLeft() const
    {
        EXPECT_TRUE(Wait([this] { return Threads() <= threads_; }))
            << Threads() << " threads, not " << threads_;
        EXPECT_LE(Descriptors(), descriptors_);
    }

    qsizetype threads_ = 0;
    qsizetype descriptors_ = 0;
};

TEST_F(PlayerLifetimeTest, TwoHundredQuickOpeningsLeaveNothing)
{
    for (int i = 0; i < 200; ++i) {
        Load(i % 2 ? QStringLiteral("h264_closed.mp4") : QStringLiteral("h264_opengop.mp4"));
        if (i % 3 == 0)
            player_->Run();
    }
    EXPECT_EQ(SeenTag(), 1);
    player_->ResetSource();
    ExpectNothingLeft();
    QCoreApplication::processEvents();
    EXPECT_EQ(errors_.size(), 0);
}

TEST_F(PlayerLifetimeTest, DyingWhilePlayingLeavesNothing)
{
    Load(QStringLiteral("hd1080.mp4"));
    player_->Run();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() > 3; }));
    player_.reset();
    ExpectNothingLeft();
}

TEST_F(PlayerLifetimeTest, DyingRightAfterALoadASeekOrAStepLeavesNothing)
{
    for (const char* clip : { "h264_longgop.mp4", "hd1080.mp4" }) {
        const auto deeds = std::to_array<std::function<void(PlayerControl&)>>({
            [](PlayerControl&) {},
            [](PlayerControl& player) { player.SetCurrentFrame(20); },
            [](PlayerControl& player) { player.PreviousFrame(); },
            [](PlayerControl& player) { player.SeekEnd(); },
            [](PlayerControl& player) { player.Run(); },
            [](PlayerControl& player) { player.resize(500, 400); },
        });
        for (const auto& deed : deeds) {
            PlayerControl player;
            player.show();
            player.SetSourceFile(ClipPath(QString::fromLatin1(clip)));
            deed(player);
        }
    }
    player_.reset();
    ExpectNothingLeft();
}

TEST_F(PlayerLifetimeTest, DyingInTheMiddleOfAWalkLeavesNothing)
{
    for (const int walked : { 3, 4, 5, 9 }) {
        PlayerControl player;
        player.SetSourceFile(ClipPath(QStringLiteral("h264_longgop.mp4")));
        for (int frame = 0; frame < walked; ++frame) {
            player.SetCurrentFrame(frame * 10);
            player.GetStillPicture(5000);
        }
    }
    ExpectNothingLeft();
}

TEST_F(PlayerLifetimeTest, AnotherSourceGivenByAnAnswerToAnEventIsSafe)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetCurrentFrame(90);
    bool isDone = false;
    QObject::connect(player_.get(), &ltmmPlay::PlaybackProgress, player_.get(), [&](int place) {
        if (place < 10000 || isDone)
            return;
        isDone = true;
        Load(QStringLiteral("h264_opengop.mp4"));
    });
    player_->Run();
    ASSERT_TRUE(Wait([&] { return isDone; }));
    EXPECT_EQ(SeenTag(), 2);
    player_->ResetSource();
    ExpectNothingLeft();
}

class PlayerOnASilentLineTest : public PlayerLifetimeTest {
protected:
    void SetUp() override
    {
        const QByteArray film = FileBytes(ClipPath(QStringLiteral("frag.mp4")));
        server_ = std::make_unique<SilentServer>(film, film.size() * 3 / 4);
        player_->SetSourceFile(server_->Address());
        ASSERT_EQ(player_->SourceKind(), ltmmPlay::FileSource);
        EXPECT_EQ(Seen(), 0);
    }
    void TearDown() override
    {
        player_.reset();
        server_.reset();
        ExpectNothingLeft();
    }
    void PlayIntoTheSilence()
    {
        player_->SetRate(5);
        player_->Run();
        ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() > 40; }));
    }

    std::unique_ptr<SilentServer> server_;
};

TEST_F(PlayerOnASilentLineTest, WhatCameCanBePausedSoughtAndLeft)
{
    PlayIntoTheSilence();
    player_->Pause();
    EXPECT_EQ(player_->State(), ltmmPlay::Paused);
    player_->SetCurrentFrame(10);
    EXPECT_EQ(Seen(), 10);
    player_->Run();
}

TEST_F(PlayerOnASilentLineTest, PlayingIntoTheSilenceEndsAndKeepsThePlace)
{
    PlayIntoTheSilence();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_LE(errors_.size(), 1);
    EXPECT_GT(player_->CurrentFrame(), 40);
    EXPECT_EQ(Seen(), player_->CurrentFrame());
}
