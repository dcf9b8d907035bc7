#include "app/ControlError.h"
#include "tests/player/PlayerFixture.h"

class PlayerStillTest : public PlayerFixture { };

TEST_F(PlayerStillTest, IsTheFrameShownAtTheSizeOfTheSource)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetDisplaySize(ltmmPlay::Half);
    player_->SetCurrentFrame(42);
    const QImage still = player_->GetStillPicture(5000);
    EXPECT_EQ(still.size(), QSize(320, 240));
    EXPECT_EQ(still.format(), QImage::Format_BGR888);
    EXPECT_EQ(NumberIn(still), 42);
}

TEST_F(PlayerStillTest, WhilePlayingItIsTheFrameOnTheScreenAndPlayingGoesOn)
{
    Load(QStringLiteral("h264_longgop.mp4"));
    player_->Run();
    for (int i = 0; i < 10; ++i) {
        const int before = player_->CurrentFrame();
        ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != before; }));
        ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), Seen());
        ASSERT_EQ(player_->State(), ltmmPlay::Running);
    }
}

TEST_F(PlayerStillTest, AStoppedVideoGivesNoneUntilItMovesAgain)
{
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_EQ(NumberIn(player_->GetStillPicture(5000)), 0) << "just loaded";
    player_->Stop();
    EXPECT_THROW(player_->GetStillPicture(5000), ControlError);
    player_->NextFrame();
    EXPECT_EQ(NumberIn(player_->GetStillPicture(5000)), 1);
    player_->Stop();
    player_->Run();
    EXPECT_FALSE(player_->GetStillPicture(5000).isNull());
}

TEST_F(PlayerStillTest, AVideoAtItsEndGivesItsLastFrame)
{
    Load(QStringLiteral("two_frames.avi"));
    player_->Run();
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(NumberIn(player_->GetStillPicture(5000)), 1);
}

TEST_F(PlayerStillTest, ADibHoldsTheSamePicture)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->SetCurrentFrame(9);
    EXPECT_EQ(player_->GetStillDIB(5000).ToImage(), player_->GetStillPicture(5000));
}

TEST_F(PlayerStillTest, AWalkInEqualStridesGetsEveryPictureOnce)
{
    for (const char* name :
        { "h264_closed.mp4", "h264_opengop.mp4", "h264_longgop.mp4", "mpeg2_interlaced.mpg" }) {
        for (const int stride : { 1, 3, 10, 24 }) {
            Load(QString::fromLatin1(name));
            for (int frame = 0; frame < player_->FrameCount(); frame += stride) {
                player_->SetCurrentFrame(frame);
                ASSERT_EQ(player_->CurrentFrame(), frame) << name;
                ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), frame) << name << " by " << stride;
                ASSERT_EQ(Seen(), frame) << name << " by " << stride;
            }
        }
    }
}

TEST_F(PlayerStillTest, AStillMadeAheadEqualsOneMadeWhenAsked)
{
    Load(QStringLiteral("h264_closed.mp4"));
    std::vector<QImage> walked;
    for (int frame = 0; frame < 100; frame += 9) {
        player_->SetCurrentFrame(frame);
        walked.push_back(player_->GetStillPicture(5000));
    }
    for (int i = int(walked.size()) - 1; i >= 0; --i) {
        player_->SetCurrentFrame(i * 9);
        EXPECT_EQ(player_->GetStillPicture(5000), walked[std::size_t(i)]) << i;
    }
}

TEST_F(PlayerStillTest, LeavingTheWalkIsServedAtOnceAndExactly)
{
    Load(QStringLiteral("h264_longgop.mp4"));
    for (int round = 0; round < 5; ++round) {
        for (const int frame : { 0, 10, 20, 30, 40, 3, 250 }) {
            player_->SetCurrentFrame(frame);
            ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), frame);
        }
        player_->PreviousFrame();
        ASSERT_EQ(Seen(), 249);
        player_->Run();
        ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() > 251; }));
        player_->Pause();
    }
}

TEST_F(PlayerStillTest, AWalkThatLeapsInsideItsPlanIsServed)
{
    Load(QStringLiteral("h264_longgop.mp4"));
    for (const int frame : { 0, 5, 10, 15, 20, 120, 125, 290 }) {
        player_->SetCurrentFrame(frame);
        ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), frame);
    }
}

TEST_F(PlayerStillTest, FramesThatAreExpectedAreToldOfWhenTheyAreReady)
{
    Load(QStringLiteral("h264_longgop.mp4"));
    ASSERT_TRUE(Wait([this] { return player_->HasFrameCount(); }));
    const QSignalSpy ready(player_.get(), &ltmmPlay::FramesReady);
    for (int number = 0; number < player_->FrameCount(); number += 10) {
        player_->ExpectFrames(number, 10);
        ASSERT_TRUE(Wait([&] { return player_->IsFrameReady(number); }));
        player_->SetCurrentFrame(number);
        ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), number);
    }
    EXPECT_GT(ready.size(), 0);
}

TEST_F(PlayerStillTest, AWindowThatChangesItsSizeEndsNoExpectation)
{
    player_->SetDisplaySize(ltmmPlay::StretchToWindow);
    Load(QStringLiteral("h264_longgop.mp4"));
    ASSERT_TRUE(Wait([this] { return player_->HasFrameCount(); }));
    const int last = (player_->FrameCount() - 1) / 10 * 10;
    for (int number = 0; number <= last; number += 10) {
        player_->ExpectFrames(number, 10);
        player_->resize(320 + number, 240);
        EXPECT_EQ(player_->IsFrameReady(last), number == last && player_->IsFrameReady(number)) << number;
        ASSERT_TRUE(Wait([&] { return player_->IsFrameReady(number); }));
        player_->SetCurrentFrame(number);
        ASSERT_EQ(NumberIn(player_->GetStillPicture(5000)), number);
    }
}

TEST_F(PlayerStillTest, AWindowThatChangesItsSizeDuringAWalkIsDrawnAnew)
{
    player_->SetDisplaySize(ltmmPlay::StretchToWindow);
    Load(QStringLiteral("h264_longgop.mp4"));
    ASSERT_TRUE(Wait([this] { return player_->HasFrameCount(); }));
    PlayerControl still;
    still.SetDisplaySize(ltmmPlay::StretchToWindow);
    still.show();
    still.SetSourceFile(ClipPath(QStringLiteral("h264_longgop.mp4")));
    for (int width = 320; width < 640; width += 40) {
        player_->ExpectFrames(0, 10);
        player_->resize(width, 240);
        player_->resize(width + 20, 240);
        still.resize(width + 20, 240);
        EXPECT_TRUE(Wait([&] { return player_->grab().toImage() == still.grab().toImage(); })) << width;
    }
}

TEST_F(PlayerStillTest, ASeekOfTheUserEndsTheExpectationAndTheNextFrameIsStillTheOneAskedFor)
{
    Load(QStringLiteral("h264_closed.mp4"));
    player_->ExpectFrames(0, 7);
    player_->SetCurrentFrame(0);
    player_->SetTrackingPosition(9000);
    EXPECT_TRUE(player_->IsFrameReady(7));
    player_->SetCurrentFrame(7);
    EXPECT_EQ(NumberIn(player_->GetStillPicture(5000)), 7);
}
