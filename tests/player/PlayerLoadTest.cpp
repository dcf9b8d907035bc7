#include "tests/player/PlayerFixture.h"
#include "tests/testing/Files.h"

class PlayerLoadTest : public PlayerFixture { };

TEST_F(PlayerLoadTest, AnEmptyControlTellsOfNothing)
{
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
    EXPECT_EQ(player_->SourceFile(), QString());
    EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
    EXPECT_EQ(player_->TrackingMax(), 0);
    EXPECT_EQ(player_->TrackingPosition(), 0);
    EXPECT_EQ(player_->FrameCount(), 0);
    EXPECT_EQ(player_->CurrentFrame(), 0);
    EXPECT_EQ(player_->CurrentPosition(), 0);
    EXPECT_EQ(player_->Duration(), 0);
    EXPECT_EQ(player_->VideoWidth(), 0);
    EXPECT_EQ(player_->CheckSeeking(15), 0);
}

TEST_F(PlayerLoadTest, TheFirstFrameStandsOnTheScreenWhenTheLoadReturns)
{
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(Seen(), 0);
    EXPECT_EQ(SeenTag(), 1);
    EXPECT_EQ(player_->CurrentFrame(), 0);
    EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
    EXPECT_EQ(player_->SourceFile(), ClipPath(QStringLiteral("h264_closed.mp4")));
}

TEST_F(PlayerLoadTest, AVideoThatIsBegunStandsOnTheScreenWhenItIsToldOf)
{
    const QSignalSpy opened(player_.get(), &ltmmPlay::SourceOpened);
    Load(QStringLiteral("h264_opengop.mp4"));
    player_->BeginSourceFile(ClipPath(QStringLiteral("h264_closed.mp4")));
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
    EXPECT_EQ(player_->SourceFile(), QString());
    EXPECT_EQ(opened.size(), 0);
    ASSERT_TRUE(Wait([&] { return opened.size() == 1; }));
    EXPECT_EQ(player_->SourceFile(), ClipPath(QStringLiteral("h264_closed.mp4")));
    EXPECT_EQ(Seen(), 0);
    EXPECT_EQ(SeenTag(), 1);
    EXPECT_EQ(player_->TrackingMax(), 10000);
}

TEST_F(PlayerLoadTest, AVideoIsShownAtTheSizeThatTheWindowTookWhileItWasBegun)
{
    player_->SetDisplaySize(ltmmPlay::StretchToWindow);
    const QSignalSpy opened(player_.get(), &ltmmPlay::SourceOpened);
    player_->BeginSourceFile(ClipPath(QStringLiteral("h264_closed.mp4")));
    player_->resize(640, 480);
    ASSERT_TRUE(Wait([&] { return opened.size() == 1; }));
    EXPECT_TRUE(Wait([&] { return Seen() == 0; }));
}

TEST_F(PlayerLoadTest, AVideoThatCannotBeBegunIsToldOfAndLeavesNoSource)
{
    const QSignalSpy opened(player_.get(), &ltmmPlay::SourceOpened);
    player_->BeginSourceFile(QStringLiteral("/nowhere/video.mp4"));
    ASSERT_TRUE(Wait([&] { return opened.size() == 1 && errors_.size() == 1; }));
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
}

TEST_F(PlayerLoadTest, OneThatIsDroppedWhileItIsBegunIsToldOfNoMore)
{
    const QSignalSpy opened(player_.get(), &ltmmPlay::SourceOpened);
    player_->BeginSourceFile(ClipPath(QStringLiteral("h264_closed.mp4")));
    player_->ResetSource();
    player_->BeginSourceFile(ClipPath(QStringLiteral("h264_opengop.mp4")));
    ASSERT_TRUE(Wait([&] { return opened.size() == 1; }));
    EXPECT_EQ(SeenTag(), 2);
}

TEST_F(PlayerLoadTest, AVideoHasItsFactsAtOnce)
{
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(player_->FrameCount(), 100);
    EXPECT_NEAR(player_->Duration(), 4, 0.1);
    EXPECT_EQ(player_->VideoWidth(), 320 * 15);
    EXPECT_EQ(player_->VideoHeight(), 240 * 15);
    EXPECT_EQ(player_->TrackingMax(), 10000);
    EXPECT_EQ(player_->CheckSeeking(15), 15);
    EXPECT_EQ(player_->CheckSeeking(4), 4);
}

TEST_F(PlayerLoadTest, ALoadTellsThePlaceAndTheWholeSelection)
{
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(Reported(), std::vector<int> { 0 });
    ASSERT_EQ(selections_.size(), 1);
    EXPECT_EQ(selections_[0], QList<QVariant>({ 0, 10000 }));
    EXPECT_EQ(errors_.size(), 0);
}

TEST_F(PlayerLoadTest, TheNextVideoReplacesTheOneBefore)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetCurrentFrame(50);
    Load(QStringLiteral("h264_opengop.mp4"));
    EXPECT_EQ(SeenTag(), 2);
    EXPECT_EQ(Seen(), 0);
    EXPECT_EQ(player_->CurrentFrame(), 0);
}

TEST_F(PlayerLoadTest, ABlockOfMemoryIsPlayedLikeAFile)
{
    const QByteArray block = FileBytes(ClipPath(QStringLiteral("h264_closed.mp4")));
    player_->SetSourceMemory(block);
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::MemorySource);
    EXPECT_EQ(player_->SourceMemory(), block);
    EXPECT_EQ(player_->SourceFile(), QString());
    player_->SetCurrentFrame(77);
    EXPECT_EQ(Seen(), 77);
    EXPECT_EQ(player_->FrameCount(), 100);
}

TEST_F(PlayerLoadTest, ResettingEmptiesTheControl)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->ResetSource();
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
    EXPECT_EQ(player_->SourceFile(), QString());
    EXPECT_EQ(player_->TrackingMax(), 0);
    EXPECT_EQ(Seen(), -1);
    EXPECT_EQ(player_->grab().toImage().pixelColor(5, 5), QColor(0x1b, 0x1b, 0x1b));
}

TEST_F(PlayerLoadTest, AnEmptyNameDropsTheSourceWithoutAnError)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetSourceFile({});
    QCoreApplication::processEvents();
    EXPECT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
    EXPECT_EQ(errors_.size(), 0);
}

TEST_F(PlayerLoadTest, WhatIsDroppedLeavesNoSelection)
{
    for (const QString& next : { QString(), ClipPath(QStringLiteral("garbage.mp4")) }) {
        Load(QStringLiteral("h264_closed.mp4"));
        player_->SetCurrentFrame(50);
        player_->MarkSelectionStart();
        ASSERT_GT(selections_.last().at(0).toInt(), 0);
        player_->SetSourceFile(next);
        ASSERT_EQ(player_->SourceKind(), ltmmPlay::NoSource);
        EXPECT_EQ(selections_.last(), QList<QVariant>({ 0, 0 })) << next.toStdString();
    }
}

TEST_F(PlayerLoadTest, RateAndSizeModeOutliveALoad)
{
    player_->SetRate(2);
    player_->SetDisplaySize(ltmmPlay::Half);
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(player_->Rate(), 2);
    EXPECT_EQ(player_->DisplaySize(), ltmmPlay::Half);
}

TEST_F(PlayerLoadTest, TheLoopOutlivesALoad)
{
    player_->SetPlayCount(0);
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetCurrentFrame(90);
    player_->Run();
    EXPECT_TRUE(Wait([this] { return player_->CurrentFrame() < 90; }));
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerLoadTest, TheRewindAtTheEndOutlivesALoad)
{
    player_->SetAutoRewind(true);
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetCurrentFrame(90);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Wait([this] { return player_->CurrentFrame() == 0; }));
}

TEST_F(PlayerLoadTest, OpeningFiveCodecsShowsTheFirstFrameOfEach)
{
    for (const char* name : { "mpeg1.mpg", "wmv2.wmv", "mpeg4_bf.avi", "vp9.webm", "hevc_short.mp4" }) {
        Load(QString::fromLatin1(name));
        EXPECT_EQ(Seen(), 0) << name;
    }
}
