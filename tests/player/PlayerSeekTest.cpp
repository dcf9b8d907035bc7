#include "app/ControlError.h"
#include "tests/player/PlayerFixture.h"

#include <random>

class PlayerSeekTest : public PlayerFixture {
protected:
    void SetUp() override { Load(QStringLiteral("h264_closed.mp4")); }
};

TEST_F(PlayerSeekTest, AFramePutIsTheFrameShownAndGot)
{
    std::mt19937 random(7);
    std::uniform_int_distribution<int> frames(0, 99);
    for (int i = 0; i < 60; ++i) {
        const int frame = frames(random);
        player_->SetCurrentFrame(frame);
        ASSERT_EQ(player_->CurrentFrame(), frame);
        ASSERT_EQ(Seen(), frame);
        ASSERT_NEAR(player_->CurrentPosition(), frame * 0.04, 0.001);
    }
}

TEST_F(PlayerSeekTest, FramesBehindTheLastAndBeforeTheFirstStayInTheVideo)
{
    player_->SetCurrentFrame(100);
    EXPECT_EQ(player_->CurrentFrame(), 99);
    EXPECT_EQ(Seen(), 99);
    player_->SetCurrentFrame(-5);
    EXPECT_EQ(player_->CurrentFrame(), 0);
    EXPECT_EQ(Seen(), 0);
}

TEST_F(PlayerSeekTest, StepsLeadToTheNeighbours)
{
    player_->SetCurrentFrame(30);
    for (int frame = 31; frame < 60; ++frame) {
        player_->NextFrame();
        ASSERT_EQ(player_->CurrentFrame(), frame);
        ASSERT_EQ(Seen(), frame);
    }
    for (int frame = 58; frame >= 0; --frame) {
        player_->PreviousFrame();
        ASSERT_EQ(player_->CurrentFrame(), frame);
        ASSERT_EQ(Seen(), frame);
    }
}

TEST_F(PlayerSeekTest, StepsEndAtTheEnds)
{
    player_->PreviousFrame();
    EXPECT_EQ(player_->CurrentFrame(), 0);
    player_->SeekEnd();
    player_->NextFrame();
    EXPECT_EQ(player_->CurrentFrame(), 99);
    EXPECT_EQ(Seen(), 99);
}

TEST_F(PlayerSeekTest, StepsAreExactWhereTimesAreIrregular)
{
    for (const char* name : { "vfr.mp4", "dup_pts.mkv", "mpeg4_bf.avi", "h264_opengop.ts" }) {
        Load(QString::fromLatin1(name));
        player_->SetCurrentFrame(40);
        for (int frame = 41; frame < 56; ++frame) {
            player_->NextFrame();
            ASSERT_EQ(Seen(), frame) << name;
        }
        for (int frame = 54; frame > 20; --frame) {
            player_->PreviousFrame();
            ASSERT_EQ(Seen(), frame) << name;
        }
    }
}

TEST_F(PlayerSeekTest, APositionShowsTheFrameThatStandsThere)
{
    player_->SetCurrentPosition(2.0);
    EXPECT_EQ(Seen(), 50);
    player_->SetCurrentPosition(2.03);
    EXPECT_EQ(Seen(), 50);
    EXPECT_NEAR(player_->CurrentPosition(), 2.0, 0.001);
    player_->SetCurrentPosition(-1);
    EXPECT_EQ(Seen(), 0);
    player_->SetCurrentPosition(1000);
    EXPECT_EQ(Seen(), 99);
}

TEST_F(PlayerSeekTest, StartAndEndAreTheFirstAndTheLastFrame)
{
    player_->SeekEnd();
    EXPECT_EQ(Seen(), 99);
    EXPECT_EQ(player_->TrackingPosition(), 10000);
    EXPECT_EQ(Reported().back(), 10000);
    player_->SeekStart();
    EXPECT_EQ(Seen(), 0);
    EXPECT_EQ(player_->TrackingPosition(), 0);
    EXPECT_EQ(Reported().back(), 0);
}

TEST_F(PlayerSeekTest, ArrivingTellsThePlaceThatWasAskedForAndNoOther)
{
    progress_.clear();
    player_->SeekEnd();
    player_->SetTrackingPosition(5017);
    EXPECT_EQ(Reported(), std::vector({ 10000, 5017 }));
}

TEST_F(PlayerSeekTest, ThePlaceOnTheScaleIsWhatWasPutThere)
{
    player_->SetTrackingPosition(5000);
    EXPECT_EQ(player_->TrackingPosition(), 5000);
    EXPECT_NEAR(Seen(), 50, 1);
    player_->SetTrackingPosition(99999);
    EXPECT_EQ(player_->TrackingPosition(), 10000);
    EXPECT_EQ(Seen(), 99);
}

TEST_F(PlayerSeekTest, SmallStepsOnTheScaleGetOnEvenWhereAFrameIsLonger)
{
    for (int i = 0; i < 50; ++i)
        player_->SetTrackingPosition(player_->TrackingPosition() + 10);
    EXPECT_EQ(player_->TrackingPosition(), 500);
    EXPECT_NEAR(player_->CurrentPosition(), 0.2, 0.041);
}

TEST_F(PlayerSeekTest, EverySeekAndStepIsReported)
{
    const auto seeks = std::to_array<std::function<void()>>({
        [this] { player_->SetCurrentFrame(20); },
        [this] { player_->NextFrame(); },
        [this] { player_->PreviousFrame(); },
        [this] { player_->SetCurrentPosition(1); },
        [this] { player_->SetTrackingPosition(7000); },
        [this] { player_->SeekStart(); },
    });
    for (const auto& seek : seeks) {
        const qsizetype moves = moves_.size();
        const qsizetype reports = progress_.size();
        seek();
        EXPECT_EQ(moves_.size(), moves + 1);
        EXPECT_EQ(progress_.size(), reports + 1);
    }
}

TEST_F(PlayerSeekTest, WithoutASourceSeeksDoNothingAndFramesAreRefused)
{
    player_->ResetSource();
    player_->SetCurrentPosition(1);
    player_->SetTrackingPosition(100);
    player_->SeekStart();
    player_->SeekEnd();
    player_->Run();
    player_->Stop();
    player_->MarkSelectionEnd();
    EXPECT_EQ(player_->State(), ltmmPlay::Stopped);
    EXPECT_THROW(player_->SetCurrentFrame(0), ControlError);
    EXPECT_THROW(player_->NextFrame(), ControlError);
    EXPECT_THROW(player_->PreviousFrame(), ControlError);
    EXPECT_THROW(player_->GetStillPicture(5000), ControlError);
}

TEST_F(PlayerSeekTest, MarksAndBoundsAreToldOnTheScale)
{
    player_->SetCurrentPosition(1);
    player_->MarkSelectionStart();
    player_->SetCurrentPosition(3);
    player_->MarkSelectionEnd();
    const int duration = int(player_->Duration() * 1000);
    ASSERT_EQ(selections_.size(), 3); // with that of the load
    EXPECT_NEAR(selections_[1][0].toInt(), 1000 * 10000 / duration, 1);
    EXPECT_EQ(selections_[1][1].toInt(), 10000);
    EXPECT_NEAR(selections_[2][1].toInt(), 3000 * 10000 / duration, 1);
    player_->SetSelectionStart(0);
    player_->SetSelectionEnd(player_->Duration());
    EXPECT_EQ(selections_.back(), QList<QVariant>({ 0, 10000 }));
}
