#include "app/ControlError.h"
#include "tests/player/PlayerFixture.h"

#include <set>

namespace {

/// Does something each time that the engine has posted mail and the player has not read it yet.
class BeforeMail : public QObject {
public:
    BeforeMail(PlayerControl& player, std::function<void()> deed)
        : deed_(std::move(deed))
    {
        player.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MetaCall)
            deed_();
        return false;
    }

private:
    std::function<void()> deed_;
};

} // namespace

class PlayerPlayTest : public PlayerFixture {
protected:
    void SetUp() override { Load(QStringLiteral("h264_closed.mp4")); }
    bool WaitForFrame(int frame) const
    {
        return Wait([=, this] { return player_->CurrentFrame() >= frame; });
    }
};

TEST_F(PlayerPlayTest, PicturesMoveAndAreThoseOfTheirNumbers)
{
    player_->Run();
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
    std::set<int> seen;
    ASSERT_TRUE(Wait([&] {
        const int frame = player_->CurrentFrame();
        EXPECT_EQ(Seen(), frame);
        seen.insert(frame);
        return seen.size() >= 10;
    }));
}

TEST_F(PlayerPlayTest, PausingFreezesThePicture)
{
    player_->Run();
    ASSERT_TRUE(WaitForFrame(5));
    player_->Pause();
    EXPECT_EQ(player_->State(), ltmmPlay::Paused);
    const int frame = player_->CurrentFrame();
    EXPECT_EQ(Seen(), frame);
    LetAnotherPlayTo(5);
    EXPECT_EQ(player_->CurrentFrame(), frame);
    EXPECT_EQ(Seen(), frame);
}

TEST_F(PlayerPlayTest, RunningOnGoesOnFromThePause)
{
    player_->SetCurrentFrame(60);
    player_->Run();
    ASSERT_TRUE(WaitForFrame(65));
    player_->Pause();
    const int frame = player_->CurrentFrame();
    EXPECT_LT(frame, 99);
    player_->Run();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != frame; }));
    EXPECT_GT(player_->CurrentFrame(), frame);
}

TEST_F(PlayerPlayTest, StoppingKeepsThePlace)
{
    player_->SetCurrentFrame(60);
    player_->Run();
    ASSERT_TRUE(WaitForFrame(65));
    player_->Stop();
    EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
    EXPECT_GE(player_->CurrentFrame(), 65);
    EXPECT_EQ(Seen(), player_->CurrentFrame());
}

TEST_F(PlayerPlayTest, AtTheEndTheTopOfTheScaleIsToldOnceAndTheLastFrameStands)
{
    player_->SetCurrentFrame(80);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    QCoreApplication::processEvents();
    const std::vector<int> places = Reported();
    EXPECT_EQ(std::count(places.begin(), places.end(), 10000), 1);
    EXPECT_EQ(places.back(), 10000);
    EXPECT_EQ(Seen(), 99);
    EXPECT_EQ(player_->CurrentFrame(), 99);
    EXPECT_EQ(player_->TrackingPosition(), 10000);
}

TEST_F(PlayerPlayTest, RunningAtTheEndStartsOver)
{
    player_->SeekEnd();
    player_->Run();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() < 50; }));
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerPlayTest, RunningAtTheEndStartsOverAtTheSelection)
{
    player_->SetSelectionStart(2);
    player_->SeekEnd();
    player_->Run();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != 99; }));
    EXPECT_GE(player_->CurrentFrame(), 50);
}

TEST_F(PlayerPlayTest, AutoRewindGoesToTheStartAfterTheEndWasTold)
{
    player_->SetAutoRewind(true);
    player_->SetCurrentFrame(85);
    player_->Run();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() == 0; }));
    EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
    EXPECT_EQ(Seen(), 0);
    ASSERT_TRUE(Wait([&] { return Reported().back() == 0; }));
    const std::vector<int> places = Reported();
    EXPECT_EQ(places[places.size() - 2], 10000);
}

TEST_F(PlayerPlayTest, AutoRewindGoesToTheStartOfTheSelection)
{
    player_->SetAutoRewind(true);
    player_->SetSelectionStart(1);
    player_->SetCurrentFrame(90);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Wait([&] { return Seen() == 25; }));
}

TEST_F(PlayerPlayTest, ALoopGoesRoundTheSelectionForEver)
{
    player_->SetPlayCount(0);
    player_->SetSelectionStart(1);
    player_->SetSelectionEnd(1.2);
    player_->Run();
    int laps = 0;
    int before = -1;
    ASSERT_TRUE(Wait([&] {
        const int frame = player_->CurrentFrame();
        EXPECT_TRUE(before < 0 || (frame >= 25 && frame <= 30)) << frame;
        laps += frame < before;
        before = frame >= 25 ? frame : before;
        return laps >= 3;
    }));
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerPlayTest, PlayingEndsBehindTheSelection)
{
    player_->SetSelectionEnd(1);
    player_->SetCurrentFrame(20);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(player_->CurrentFrame(), 25);
    EXPECT_EQ(Seen(), 25);
}

TEST_F(PlayerPlayTest, LeavingTheLoopWhilePlayingEndsAtTheEnd)
{
    player_->SetPlayCount(0);
    player_->SetCurrentFrame(80);
    player_->Run();
    ASSERT_TRUE(WaitForFrame(85));
    player_->SetPlayCount(1);
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(player_->CurrentFrame(), 99);
}

TEST_F(PlayerPlayTest, AnOptionChangedWhileTheEndIsUnderWayLosesNothingOfIt)
{
    bool isMuted = false;
    const BeforeMail switching(*player_, [&] { player_->SetMute(isMuted = !isMuted); });
    player_->SetCurrentFrame(90);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(Reported().back(), 10000);
    EXPECT_EQ(player_->CurrentFrame(), 99);
    EXPECT_EQ(Seen(), 99);
}

TEST_F(PlayerPlayTest, TheEndOfAnEarlierRunDoesNotStopTheNext)
{
    bool runsAgain = false;
    const BeforeMail again(*player_, [&] {
        if (player_->CurrentFrame() < 99)
            return;
        player_->Stop();
        player_->SetCurrentFrame(0);
        player_->Run();
        runsAgain = true;
    });
    player_->SetRate(0.1); // the last frame stands long, and its mail does not melt with that of the end
    player_->SetCurrentFrame(98);
    player_->Run();
    ASSERT_TRUE(Wait([&] { return runsAgain; }));
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerPlayTest, AStepWhilePlayingPauses)
{
    player_->Run();
    ASSERT_TRUE(WaitForFrame(5));
    player_->NextFrame();
    EXPECT_EQ(player_->State(), ltmmPlay::Paused);
    const int frame = player_->CurrentFrame();
    LetAnotherPlayTo(5);
    EXPECT_EQ(player_->CurrentFrame(), frame);
    EXPECT_EQ(Seen(), frame);
}

TEST_F(PlayerPlayTest, ASeekWhilePlayingPlaysOnFromThere)
{
    player_->Run();
    ASSERT_TRUE(WaitForFrame(5));
    player_->SetCurrentFrame(60);
    EXPECT_EQ(player_->CurrentFrame(), 60);
    EXPECT_EQ(Seen(), 60);
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != 60; }));
    EXPECT_GT(player_->CurrentFrame(), 60);
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerPlayTest, FiveTimesTheRateComesToTheLastFrameToo)
{
    player_->SetRate(5);
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(Seen(), 99);
}

TEST_F(PlayerPlayTest, ATenthOfTheRateCreeps)
{
    player_->SetRate(0.1);
    player_->Run();
    ASSERT_TRUE(WaitForFrame(1));
    EXPECT_EQ(player_->CurrentFrame(), 1);
}

TEST_F(PlayerPlayTest, ARateThatCannotBePlayedIsRefusedAndTheOldOneStays)
{
    EXPECT_FALSE(player_->IsRateSupported(6));
    EXPECT_TRUE(player_->IsRateSupported(5));
    player_->SetRate(2);
    EXPECT_THROW(player_->SetRate(6), ControlError);
    EXPECT_THROW(player_->SetRate(0), ControlError);
    EXPECT_EQ(player_->Rate(), 2);
}

TEST_F(PlayerPlayTest, AnotherVideoWhilePlayingShowsNothingOfTheOneBefore)
{
    player_->SetPlayCount(0);
    for (const char* name :
        { "h264_opengop.mp4", "h264_closed.mp4", "h264_opengop.mp4", "h264_longgop.mp4" }) {
        player_->Run();
        ASSERT_TRUE(WaitForFrame(3));
        Load(QString::fromLatin1(name));
        const int tag = ClipNamed(QString::fromLatin1(name)).Tags.at(0);
        EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
        LetAnotherPlayTo(3);
        EXPECT_EQ(SeenTag(), tag);
        EXPECT_EQ(player_->CurrentFrame(), 0);
    }
}

TEST_F(PlayerPlayTest, ProgressComesAtMostTenTimesASecond)
{
    player_->SetPlayCount(0);
    QElapsedTimer timer;
    timer.start();
    player_->Run();
    const qsizetype before = progress_.size();
    ASSERT_TRUE(Wait([&] { return timer.elapsed() > 1000; }));
    EXPECT_GT(progress_.size(), before);
    EXPECT_LE(progress_.size() - before, timer.elapsed() / 100 + 1);
}

TEST_F(PlayerPlayTest, AVideoOfOneFrameEnds)
{
    Load(QStringLiteral("one_frame.mp4"));
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(player_->CurrentFrame(), 0);
    EXPECT_EQ(Reported().back(), 10000);
}
