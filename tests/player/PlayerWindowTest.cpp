#include "tests/player/PlayerFixture.h"

#include <QWindow>

class PlayerWindowTest : public PlayerFixture {
protected:
    void SetUp() override { Load(QStringLiteral("h264_closed.mp4")); }
    QColor PixelAt(int x, int y) const { return player_->grab().toImage().pixelColor(x, y); }
    static inline const QColor Ground { 0x1b, 0x1b, 0x1b };
};

TEST_F(PlayerWindowTest, FixedModesMakeTheControlAsLargeAsThePicture)
{
    EXPECT_EQ(player_->size(), QSize(320, 240));
    player_->SetDisplaySize(ltmmPlay::ThreeQuarters);
    EXPECT_EQ(player_->size(), QSize(240, 180));
    player_->SetDisplaySize(ltmmPlay::Half);
    EXPECT_EQ(player_->size(), QSize(160, 120));
    EXPECT_EQ(player_->sizeHint(), QSize(160, 120));
    player_->SetDisplaySize(ltmmPlay::Double);
    EXPECT_EQ(player_->size(), QSize(640, 480));
    EXPECT_EQ(player_->VideoWidth(), 4800);
}

TEST_F(PlayerWindowTest, FittingAndStretchingLeaveTheSizeAlone)
{
    player_->resize(500, 100);
    player_->SetDisplaySize(ltmmPlay::FitToWindow);
    EXPECT_EQ(player_->size(), QSize(500, 100));
    player_->SetDisplaySize(ltmmPlay::StretchToWindow);
    EXPECT_EQ(player_->size(), QSize(500, 100));
}

TEST_F(PlayerWindowTest, EveryModeAndSizeShowsTheFrame)
{
    player_->SetCurrentFrame(33);
    for (int mode = ltmmPlay::FitToWindow; mode <= ltmmPlay::Double; ++mode) {
        player_->SetDisplaySize(ltmmPlay::DisplayMode(mode));
        EXPECT_EQ(Seen(), 33) << mode; // roughly scaled
        player_->NextFrame();
        EXPECT_EQ(Seen(), 34) << mode; // as it was made
        player_->PreviousFrame();
    }
}

TEST_F(PlayerWindowTest, ThePictureStandsInTheMiddleOfALargerControl)
{
    player_->resize(520, 340);
    EXPECT_EQ(PixelAt(99, 170), Ground);
    EXPECT_NE(PixelAt(105, 170), Ground);
    EXPECT_EQ(PixelAt(421, 170), Ground);
    EXPECT_EQ(PixelAt(260, 49), Ground);
    EXPECT_EQ(PixelAt(260, 291), Ground);
    EXPECT_EQ(NumberIn(player_->grab(QRect(100, 50, 320, 240)).toImage()), 0);
}

TEST_F(PlayerWindowTest, ASmallerControlShowsTheMiddleOfThePicture)
{
    player_->SetCurrentFrame(10);
    const QImage whole = player_->grab().toImage();
    player_->resize(200, 100);
    EXPECT_EQ(player_->grab().toImage(), whole.copy(60, 70, 200, 100));
}

TEST_F(PlayerWindowTest, AfterAResizeThePictureBecomesAsSharpAsAFreshOne)
{
    player_->SetDisplaySize(ltmmPlay::FitToWindow);
    player_->resize(480, 360);
    player_->SetCurrentFrame(50);
    const QImage fresh = player_->grab().toImage();
    player_->resize(300, 200);
    player_->resize(480, 360);
    EXPECT_TRUE(Wait([&] { return player_->grab().toImage() == fresh; }));
}

TEST_F(PlayerWindowTest, ResizingWhilePlayingKeepsPlaying)
{
    player_->SetDisplaySize(ltmmPlay::FitToWindow);
    player_->SetPlayCount(0);
    player_->Run();
    for (int width = 200; width < 700; width += 25) {
        player_->resize(width, 600);
        const int frame = player_->CurrentFrame();
        ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != frame; }));
        ASSERT_EQ(SeenAt(QSize(width, width * 3 / 4)), player_->CurrentFrame()) << width;
    }
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerWindowTest, AHiddenControlThatIsShownAgainHasItsPicture)
{
    player_->SetPlayCount(0);
    player_->Run();
    player_->hide();
    const int frame = player_->CurrentFrame();
    ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() > frame + 5 || player_->CurrentFrame() < frame; }));
    player_->Pause();
    player_->show();
    EXPECT_TRUE(Wait([&] { return Seen() == player_->CurrentFrame(); }));
}

TEST_F(PlayerWindowTest, FullScreenFillsTheScreenAndComesBackToItsPlace)
{
    QWidget window;
    window.resize(600, 500);
    player_->setParent(&window);
    player_->setGeometry(30, 40, 320, 240);
    window.show();
    player_->show();

    player_->ToggleFullScreen();
    EXPECT_TRUE(player_->FullScreen());
    EXPECT_TRUE(player_->isWindow());
    EXPECT_TRUE(Wait([&] { return player_->size() == player_->screen()->size(); }));
    EXPECT_EQ(SeenAt(QSize(320, 240).scaled(player_->size(), Qt::KeepAspectRatio)), 0);

    player_->ToggleFullScreen();
    EXPECT_FALSE(player_->FullScreen());
    EXPECT_FALSE(player_->isWindow());
    EXPECT_EQ(player_->parentWidget(), &window);
    EXPECT_EQ(player_->geometry(), QRect(30, 40, 320, 240));
    EXPECT_TRUE(player_->isVisible());
    EXPECT_EQ(Seen(), 0);
    player_.reset();
}

TEST_F(PlayerWindowTest, ClosingTheFullScreenLeavesItAndNotThePlayer)
{
    QWidget window;
    window.resize(600, 500);
    player_->setParent(&window);
    player_->setGeometry(30, 40, 320, 240);
    window.show();
    player_->ToggleFullScreen();
    ASSERT_TRUE(player_->windowHandle());
    player_->windowHandle()->close(); // as the window manager does
    EXPECT_TRUE(Wait([&] { return !player_->FullScreen(); }));
    EXPECT_FALSE(player_->isWindow());
    EXPECT_TRUE(player_->isVisible());
    EXPECT_EQ(player_->geometry(), QRect(30, 40, 320, 240));
    EXPECT_EQ(Seen(), 0);
    player_.reset();
}

TEST_F(PlayerWindowTest, PlayingGoesOnThroughFullScreen)
{
    player_->SetPlayCount(0);
    player_->Run();
    for (int i = 0; i < 3; ++i) {
        player_->ToggleFullScreen();
        const int frame = player_->CurrentFrame();
        ASSERT_TRUE(Wait([&] { return player_->CurrentFrame() != frame; }));
    }
    EXPECT_EQ(player_->State(), ltmmPlay::Running);
}

TEST_F(PlayerWindowTest, KeysAndPressesOfTheLeftButtonAreTold)
{
    QSignalSpy keys(player_.get(), &ltmmPlay::KeyUp);
    QSignalSpy presses(player_.get(), &ltmmPlay::MousePressed);
    QTest::keyClick(player_.get(), Qt::Key_Escape);
    for (const Qt::MouseButton button : { Qt::LeftButton, Qt::RightButton, Qt::MiddleButton })
        QTest::mouseClick(player_.get(), button, {}, QPoint(5, 5));
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys[0][0].toInt(), Qt::Key_Escape);
    EXPECT_EQ(presses.size(), 1);
}

TEST_F(PlayerWindowTest, AReleaseWithoutAPressTellsNothing)
{
    QSignalSpy keys(player_.get(), &ltmmPlay::KeyUp);
    QTest::keyRelease(player_.get(), Qt::Key_Escape); // of a dialog that the press has closed
    QTest::keyClick(player_.get(), Qt::Key_Escape);
    QTest::keyRelease(player_.get(), Qt::Key_Escape);
    EXPECT_EQ(keys.size(), 1);
}

TEST_F(PlayerWindowTest, APressIsForgottenWhenTheFocusGoes)
{
    QSignalSpy keys(player_.get(), &ltmmPlay::KeyUp);
    QTest::keyPress(player_.get(), Qt::Key_Escape);
    QFocusEvent leaving(QEvent::FocusOut);
    QCoreApplication::sendEvent(player_.get(), &leaving);
    QTest::keyRelease(player_.get(), Qt::Key_Escape);
    EXPECT_TRUE(keys.isEmpty());
}

TEST_F(PlayerWindowTest, ClosedCaptionsAreSwitched)
{
    EXPECT_FALSE(player_->ClosedCaption());
    player_->ToggleClosedCaption();
    EXPECT_TRUE(player_->ClosedCaption());
}

TEST_F(PlayerWindowTest, ARotatedVideoStandsUpright)
{
    Load(QStringLiteral("rotate90.mp4"));
    EXPECT_LT(player_->VideoWidth(), player_->VideoHeight());
    EXPECT_EQ(player_->size(), QSize(int(player_->VideoWidth()) / 15, int(player_->VideoHeight()) / 15));
    EXPECT_EQ(player_->GetStillPicture(5000).size(), player_->size());
}
