#include "tests/player/PlayerFixture.h"

/// The text of the clips: shown from picture 25 to 49, in the row at the bottom.
class PlayerCaptionTest : public PlayerFixture {
protected:
    void SetUp() override { Load(QStringLiteral("cc608.mp4")); }
    QImage Screen() const { return player_->grab().toImage(); }
    QImage ScreenAt(int frame)
    {
        player_->SetCurrentFrame(frame);
        return Screen();
    }
    /// What the picture looks like with the captions off and on.
    bool HasText(int frame)
    {
        const QImage before = ScreenAt(frame);
        player_->ToggleClosedCaption();
        const QImage after = Screen();
        player_->ToggleClosedCaption();
        return before != after;
    }
};

TEST_F(PlayerCaptionTest, CaptionsAreOffAtFirst)
{
    EXPECT_FALSE(player_->ClosedCaption());
    const QImage first = ScreenAt(30);
    player_->ToggleClosedCaption();
    player_->ToggleClosedCaption();
    EXPECT_EQ(Screen(), first);
}

TEST_F(PlayerCaptionTest, TheTextStandsOverExactlyItsPictures)
{
    for (const int frame : { 0, 24, 50, 65 })
        EXPECT_FALSE(HasText(frame)) << frame;
    for (const int frame : { 25, 26, 49, 66, 119 })
        EXPECT_TRUE(HasText(frame)) << frame;
}

TEST_F(PlayerCaptionTest, DigitalTextStandsOverExactlyItsPicturesAndInNoCapture)
{
    Load(QStringLiteral("cc708.mpg"));
    for (const int frame : { 0, 24, 50, 119 })
        EXPECT_FALSE(HasText(frame)) << frame;
    for (const int frame : { 25, 26, 49 })
        EXPECT_TRUE(HasText(frame)) << frame;
    player_->SetCurrentFrame(30);
    const QImage still = player_->GetStillPicture(Patience);
    player_->ToggleClosedCaption();
    EXPECT_EQ(player_->GetStillPicture(Patience), still);
}

TEST_F(PlayerCaptionTest, TheTextOfATrackOfItsOwnStandsOverExactlyItsPictures)
{
    Load(QStringLiteral("cc_track.mov"));
    for (const int frame : { 0, 19, 75, 119 })
        EXPECT_FALSE(HasText(frame)) << frame;
    for (const int frame : { 20, 74 })
        EXPECT_TRUE(HasText(frame)) << frame;
}

TEST_F(PlayerCaptionTest, SwitchingThemShowsAndHidesTheTextAtOnce)
{
    const QImage plain = ScreenAt(30);
    player_->ToggleClosedCaption();
    EXPECT_TRUE(player_->ClosedCaption());
    const QImage written = Screen();
    EXPECT_NE(written, plain);
    player_->ToggleClosedCaption();
    EXPECT_EQ(Screen(), plain);
}

TEST_F(PlayerCaptionTest, TheTextStandsInItsRowAtTheBottomOnly)
{
    const QImage plain = ScreenAt(30);
    player_->ToggleClosedCaption();
    const QImage written = Screen();
    const int rowTop = 240 * 84 / 100;
    EXPECT_EQ(written.copy(0, 0, 320, rowTop), plain.copy(0, 0, 320, rowTop));
    EXPECT_NE(written.copy(0, rowTop, 160, 20), plain.copy(0, rowTop, 160, 20));
    EXPECT_EQ(written.copy(0, 220, 320, 20), plain.copy(0, 220, 320, 20));
}

TEST_F(PlayerCaptionTest, APictureSaysTheSameFromWhereverOneComesToIt)
{
    player_->ToggleClosedCaption();
    const QImage jumped = ScreenAt(30);
    ScreenAt(119);
    player_->SetCurrentFrame(31);
    player_->PreviousFrame();
    EXPECT_EQ(Screen(), jumped);
    player_->SetCurrentFrame(29);
    player_->NextFrame();
    EXPECT_EQ(Screen(), jumped);
}

TEST_F(PlayerCaptionTest, ACaptureNeverHasTheText)
{
    player_->SetCurrentFrame(30);
    const QImage still = player_->GetStillPicture(Patience);
    player_->ToggleClosedCaption();
    EXPECT_EQ(player_->GetStillPicture(Patience), still);
    player_->NextFrame();
    player_->PreviousFrame();
    EXPECT_EQ(player_->GetStillPicture(Patience), still);
}

TEST_F(PlayerCaptionTest, TheTextFollowsThePlaying)
{
    player_->ToggleClosedCaption();
    player_->SetPlayCount(0);
    player_->Run();
    const auto isWritten = [&] {
        const QColor box = Screen().pixelColor(30, 208);
        return box.lightness() < 40;
    };
    EXPECT_TRUE(Wait(isWritten));
    EXPECT_TRUE(Wait([&] { return !isWritten(); }));
}

TEST_F(PlayerCaptionTest, TheTextGrowsWithThePictureAndStaysSharp)
{
    player_->ToggleClosedCaption();
    ScreenAt(30);
    const QImage small = Screen();
    player_->SetDisplaySize(ltmmPlay::Double);
    player_->SetCurrentFrame(31);
    const QImage large = Screen();
    ASSERT_EQ(large.size(), QSize(640, 480));
    const QRect row(64, 411, 512, 20);
    EXPECT_NE(large.copy(row), small.scaled(640, 480).copy(row));
    player_->ToggleClosedCaption();
    EXPECT_NE(Screen().copy(row), large.copy(row));
}

TEST_F(PlayerCaptionTest, AnotherVideoHasNothingOfTheTextOfBefore)
{
    player_->ToggleClosedCaption();
    ScreenAt(30);
    Load(QStringLiteral("h264_closed.mp4"));
    EXPECT_TRUE(player_->ClosedCaption());
    EXPECT_FALSE(HasText(30));
}
