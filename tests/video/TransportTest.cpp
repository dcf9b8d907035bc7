#include "video/Transport.h"

#include "app/Hourglass.h"
#include "tests/testing/PaintCount.h"
#include "tests/video/VideoFixture.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/StripButton.h"
#include "video/TransportPane.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A player that cannot go to any place.
class FailingPlayer : public FakePlayer {
public:
    int refusals = 0;

    void NextFrame() override { Refuse(); }
    void PreviousFrame() override { Refuse(); }
    void SeekStart() override { Refuse(); }
    void SeekEnd() override { Refuse(); }
    void SetTrackingPosition(int) override { Refuse(); }

private:
    void Refuse()
    {
        ++refusals;
        throw ControlError(QStringLiteral("No such place."));
    }
};

class TransportTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    FakePlayer& player = frame.player;
    TransportPane pane;
    int opened = 0;
    Transport transport { pane, frame, [this] { ++opened; } };

    void SetUp() override
    {
        state.VideoPath = QStringLiteral("/films/a.avi");
        player.file = state.VideoPath;
        state.VideoExt = QStringLiteral(".avi");
        pane.show();
        transport.EnableVideoControls(true, player);
    }

    static void Click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }
    QString Status(StatusLabel label) const { return frame.status.value(label); }
};

} // namespace

TEST(TransportOfAPlayerThatFails, StepsAndSeeksArePassedOver)
{
    OneVideoFrame frame;
    FailingPlayer player;
    frame.own = &player;
    TransportPane pane;
    Transport transport(pane, frame, [] {});
    pane.show();
    for (const char* extension : { ".avi", ".wmv" }) {
        frame.state.VideoExt = QLatin1String(extension);
        transport.EnableVideoControls(true, player);
        for (StripButton* button : { pane.Cmd2[FrameBackButton], pane.Cmd2[FrameForwardButton],
                 pane.Cmd3[SeekStartButton], pane.Cmd3[SeekEndButton] }) {
            ASSERT_TRUE(button->isEnabled());
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_EQ(player.refusals, 8);
    transport.Scroll(5000);
    EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("50%"));
}

TEST_F(TransportTest, PlayResetsTheSelectionStartWithoutAMark)
{
    player.selectionStart = 3;
    Click(pane.Cmd2[PlayButton]);
    EXPECT_EQ(player.state, ltmmPlay::Running);
    EXPECT_EQ(player.selectionStart, 0);
    EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("Reset"));
}

TEST_F(TransportTest, PlayReleasesPauseAndBringsTheNormalPointer)
{
    player.state = ltmmPlay::Running;
    Click(pane.Cmd2[PauseButton]);
    ASSERT_EQ(pane.Cmd2[PauseButton]->Value(), 1);
    SetPointer(Pointer::Busy);
    Click(pane.Cmd2[PlayButton]);
    EXPECT_EQ(pane.Cmd2[PauseButton]->Value(), 0);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(TransportTest, PlayKeepsTheSelectionStartWithAMark)
{
    player.selectionStart = 3;
    state.MarksSet = true;
    Click(pane.Cmd2[PlayButton]);
    EXPECT_EQ(player.state, ltmmPlay::Running);
    EXPECT_EQ(player.selectionStart, 3);
    EXPECT_EQ(Status(StatusLabel::Operation), QString());
}

TEST_F(TransportTest, PauseTogglesAndTellsSo)
{
    player.state = ltmmPlay::Running;
    Click(pane.Cmd2[PauseButton]);
    EXPECT_EQ(player.state, ltmmPlay::Paused);
    EXPECT_EQ(pane.Cmd2[PauseButton]->Value(), 1);
    EXPECT_EQ(Status(StatusLabel::Flashing), QStringLiteral("Paused"));
    Click(pane.Cmd2[PauseButton]);
    EXPECT_EQ(player.state, ltmmPlay::Running);
    EXPECT_EQ(pane.Cmd2[PauseButton]->Value(), 0);
    EXPECT_EQ(Status(StatusLabel::Flashing), QStringLiteral("Auto"));
}

TEST_F(TransportTest, FrameButtonsStepOneFrame)
{
    player.frame = 10;
    Click(pane.Cmd2[FrameForwardButton]);
    EXPECT_EQ(player.frame, 11);
    Click(pane.Cmd2[FrameBackButton]);
    Click(pane.Cmd2[FrameBackButton]);
    EXPECT_EQ(player.frame, 9);
}

TEST_F(TransportTest, AWmvMovesByTenOnTheTrackingScale)
{
    state.VideoExt = QStringLiteral(".wmv");
    player.frameCount = 10001;
    player.frame = 100;
    Click(pane.Cmd2[FrameForwardButton]);
    EXPECT_EQ(player.frame, 110);
    Click(pane.Cmd2[FrameBackButton]);
    EXPECT_EQ(player.frame, 100);
}

TEST_F(TransportTest, SeekButtonsFollowWhatThePlayerCanDo)
{
    player.capabilities = ltmmPlay::ToEnd;
    transport.EnableVideoControls(true, player);
    EXPECT_FALSE(pane.Cmd3[SeekStartButton]->isEnabled());
    EXPECT_TRUE(pane.Cmd3[SeekEndButton]->isEnabled());
    EXPECT_FALSE(pane.Cmd3[MarkStartButton]->isEnabled());
    player.capabilities = ltmmPlay::MarkEnd;
    transport.EnableVideoControls(true, player);
    EXPECT_TRUE(pane.Cmd3[MarkStartButton]->isEnabled());
    EXPECT_TRUE(pane.Cmd3[MarkEndButton]->isEnabled());
}

TEST_F(TransportTest, WithoutAVideoNothingCanBePressedButWhatIsDown)
{
    player.file.clear();
    player.capabilities = 0;
    transport.SetSoundOn();
    for (const auto& [down, up] :
        { std::pair(LoopButton, AutoRewindButton), { AutoRewindButton, LoopButton } }) {
        for (const SeekButton button : { down, up })
            pane.Cmd3[button]->SetValue(0);
        transport.EnableVideoControls(true, player);
        pane.Cmd3[down]->SetValue(1);
        transport.EnableVideoControls(false, player);
        EXPECT_FALSE(pane.Cmd3[up]->isEnabled());
        EXPECT_TRUE(pane.Cmd3[down]->isEnabled()) << "down, so it keeps its state";
    }
    EXPECT_FALSE(pane.Cmd2[PlayButton]->isEnabled());
    EXPECT_FALSE(pane.Cmd3[SoundButton]->isEnabled());
    EXPECT_FALSE(frame.statusShown.value(StatusLabel::Operation, true));
}

TEST_F(TransportTest, AMarkIsSetAndClearedByItsButton)
{
    player.frame = 50;
    Click(pane.Cmd3[MarkStartButton]);
    EXPECT_EQ(player.selectionStart, 2.0);
    EXPECT_TRUE(state.MarksSet);
    EXPECT_EQ(pane.Cmd3[MarkStartButton]->Value(), 1);
    EXPECT_EQ(pane.Cmd3[MarkStartButton]->toolTip(), QStringLiteral(" Start Selection Marked "));
    player.frame = 75;
    Click(pane.Cmd3[MarkEndButton]);
    EXPECT_EQ(player.selectionEnd, 3.0);
    EXPECT_EQ(pane.Cmd3[MarkEndButton]->toolTip(), QStringLiteral(" End Selection Marked "));

    Click(pane.Cmd3[MarkEndButton]);
    EXPECT_EQ(player.selectionStart, 0.0);
    EXPECT_EQ(player.selectionEnd, player.Duration());
    EXPECT_FALSE(state.MarksSet);
    EXPECT_TRUE(state.MarksCleared);
    EXPECT_EQ(pane.Cmd3[MarkStartButton]->Value(), 0);
    EXPECT_EQ(pane.Cmd3[MarkEndButton]->Value(), 0);
    EXPECT_EQ(pane.Cmd3[MarkStartButton]->toolTip(), QStringLiteral(" Cleared Marked Selection "));
}

TEST_F(TransportTest, EitherMarkButtonClearsBothMarks)
{
    for (const auto& [clicked, other] :
        { std::pair(MarkStartButton, MarkEndButton), { MarkEndButton, MarkStartButton } }) {
        player.frame = 50;
        transport.Scroll(5000);
        Click(pane.Cmd3[clicked]);
        Click(pane.Cmd3[other]);
        ASSERT_TRUE(pane.Cmd3[clicked]->Value() == 1 && pane.Cmd3[other]->Value() == 1);
        Click(pane.Cmd3[clicked]);
        EXPECT_EQ(player.selectionStart, 0.0);
        EXPECT_EQ(player.selectionEnd, player.Duration());
        EXPECT_FALSE(state.MarksSet);
        EXPECT_TRUE(state.MarksCleared);
        for (const SeekButton button : { clicked, other }) {
            EXPECT_EQ(pane.Cmd3[button]->Value(), 0);
            EXPECT_EQ(pane.Cmd3[button]->toolTip(), QStringLiteral(" Cleared Marked Selection "));
            EXPECT_FALSE(pane.Cmd3[button]->isEnabled());
        }
    }
}

TEST_F(TransportTest, AMarkButtonWithoutAVideoDoesNothingAndKeepsItsValue)
{
    state.VideoPath.clear();
    player.selectionStart = player.selectionEnd = 3;
    for (const SeekButton button : { MarkStartButton, MarkEndButton })
        for (const int value : { 0, 1 }) {
            pane.Cmd3[button]->SetValue(value);
            Click(pane.Cmd3[button]);
            EXPECT_EQ(pane.Cmd3[button]->Value(), value);
        }
    EXPECT_FALSE(state.MarksSet);
    EXPECT_EQ(player.selectionStart, 3);
    EXPECT_EQ(player.selectionEnd, 3);
}

TEST_F(TransportTest, MarksWaitForTheSliderAfterAnOpenAndAfterAClear)
{
    const auto areUsable = [this] {
        return pane.Cmd3[MarkStartButton]->isEnabled() && pane.Cmd3[MarkEndButton]->isEnabled();
    };
    transport.ForgetMarks();
    transport.EnableVideoControls(true, player);
    EXPECT_FALSE(areUsable());
    transport.Scroll(5000);
    EXPECT_TRUE(areUsable());
    EXPECT_FALSE(state.MarksCleared);
    Click(pane.Cmd3[MarkStartButton]);
    EXPECT_TRUE(areUsable());
    Click(pane.Cmd3[MarkStartButton]);
    EXPECT_FALSE(areUsable());
}

TEST_F(TransportTest, EveryButtonStartsWithItsTip)
{
    state.ApplyToolTips(pane);
    const std::pair<StripButton*, const char*> expected[] { { pane.Cmd2[0], " Play " },
        { pane.Cmd2[1], " Pause " }, { pane.Cmd2[2], " Back 1 Frame " },
        { pane.Cmd2[3], " Forward 1 Frame " }, { pane.Cmd3[0], " Seek Start " },
        { pane.Cmd3[1], " Seek End " }, { pane.Cmd3[2], " Use SLIDER to set start mark. " },
        { pane.Cmd3[3], " Use SLIDER to set end mark. " }, { pane.Cmd3[4], " Auto Rewind " },
        { pane.Cmd3[5], " Loop " }, { pane.Cmd3[6], " Sound On " }, { pane.speedbtn[0], " Increase Rate " },
        { pane.speedbtn[1], " Decrease Rate " }, { pane.CmdList[0], " Back 1 video on list  " },
        { pane.CmdList[1], " Forward 1 video on list " } };
    for (const auto& [button, tip] : expected)
        EXPECT_EQ(button->toolTip(), QLatin1String(tip));
}

TEST_F(TransportTest, SeekButtonsSeekAndKeepTheirValue)
{
    player.frame = 50;
    Click(pane.Cmd3[SeekEndButton]);
    EXPECT_EQ(player.frame, 99);
    Click(pane.Cmd3[SeekStartButton]);
    EXPECT_EQ(player.frame, 0);
    EXPECT_EQ(pane.Cmd3[SeekStartButton]->Value(), 0);
    EXPECT_EQ(pane.Cmd3[SeekEndButton]->Value(), 0);
}

TEST_F(TransportTest, AnAcceptedRateIsToldInTheTip)
{
    Click(pane.speedbtn[IncreaseRateButton]);
    Click(pane.speedbtn[IncreaseRateButton]);
    EXPECT_EQ(player.rate, 2.0);
    EXPECT_EQ(pane.speedbtn[IncreaseRateButton]->toolTip(), QStringLiteral("2"));
}

TEST_F(TransportTest, TheTwoRateButtonsCountTheirClicksByThemselves)
{
    std::vector<double> rates;
    for (const RateButton button :
        { IncreaseRateButton, IncreaseRateButton, DecreaseRateButton, IncreaseRateButton }) {
        Click(pane.speedbtn[button]);
        rates.push_back(player.rate);
    }
    EXPECT_EQ(rates, (std::vector<double> { 1, 2, 1, 2 }));
}

TEST_F(TransportTest, ARefusedIncreaseIsToldInItsOwnTip)
{
    player.fastestRate = 1;
    Click(pane.speedbtn[IncreaseRateButton]);
    Click(pane.speedbtn[IncreaseRateButton]);
    EXPECT_EQ(pane.speedbtn[IncreaseRateButton]->toolTip(), QStringLiteral("2 Rate not supported  -"));
    EXPECT_EQ(player.rate, 1.0);
}

TEST_F(TransportTest, LatchingButtonsDoWhatTheirValueSays)
{
    Click(pane.Cmd3[AutoRewindButton]);
    EXPECT_TRUE(player.autoRewind);
    EXPECT_EQ(pane.Cmd3[AutoRewindButton]->toolTip(), QStringLiteral(" Auto Rewind ON "));
    Click(pane.Cmd3[AutoRewindButton]);
    EXPECT_FALSE(player.autoRewind);
    EXPECT_EQ(pane.Cmd3[AutoRewindButton]->toolTip(), QStringLiteral(" Auto Rewind OFF "));

    Click(pane.Cmd3[LoopButton]);
    EXPECT_EQ(player.playCount, 0);
    EXPECT_EQ(pane.Cmd3[LoopButton]->toolTip(), QStringLiteral(" Loop ON "));
    Click(pane.Cmd3[LoopButton]);
    EXPECT_EQ(player.playCount, 1);
    EXPECT_EQ(pane.Cmd3[LoopButton]->toolTip(), QStringLiteral(" Loop OFF "));

    transport.SetSoundOn();
    Click(pane.Cmd3[SoundButton]);
    EXPECT_TRUE(player.mute);
    EXPECT_EQ(pane.Cmd3[SoundButton]->toolTip(), QStringLiteral(" Sound OFF "));
    Click(pane.Cmd3[SoundButton]);
    EXPECT_FALSE(player.mute);
    EXPECT_EQ(pane.Cmd3[SoundButton]->toolTip(), QStringLiteral(" Sound ON "));
}

TEST_F(TransportTest, ARefusedRateIsToldInTheTipAndBecomesOne)
{
    player.rate = 0.05;
    pane.speedbtn[DecreaseRateButton]->setEnabled(true);
    Click(pane.speedbtn[DecreaseRateButton]);
    EXPECT_EQ(player.rate, 1.0);
    player.rate = 0.05;
    Click(pane.speedbtn[DecreaseRateButton]);
    EXPECT_EQ(player.rate, 1.0);
    EXPECT_EQ(pane.speedbtn[DecreaseRateButton]->toolTip(), QStringLiteral("-0.05 Rate not supported  -"));
}

TEST_F(TransportTest, TheSliderSeeksAndShowsItsOwnPercent)
{
    player.frameCount = 10001;
    transport.Scroll(10000);
    EXPECT_EQ(player.frame, 10000);
    EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("100%"));
    EXPECT_EQ(Status(StatusLabel::Position), QStringLiteral("00:06:40  -  00:06:40"));
    transport.Scroll(99);
    EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("0%"));
}

TEST_F(TransportTest, ASliderThatIsHiddenFollowsWithoutBeingPainted)
{
    pane.trkPosition->SetMax(player.TrackingMax());
    PaintCount paints(*pane.trkPosition);
    const auto follow = [&](int from) {
        for (int position = from; position < from + 1000; position += 100) {
            transport.FollowProgress(position);
            QCoreApplication::processEvents();
        }
        return paints.count;
    };
    EXPECT_GT(follow(0), 0);
    pane.hide();
    paints.count = 0;
    EXPECT_EQ(follow(5000), 0);
    EXPECT_EQ(pane.trkPosition->Value(), 5900);
}

TEST_F(TransportTest, AMoveOfTheSlidersHandleMovesTheVideo)
{
    transport.StartVideo();
    QTest::keyClick(pane.trkPosition, Qt::Key_End);
    EXPECT_EQ(player.frame, player.frameCount - 1);
    EXPECT_EQ(Status(StatusLabel::Operation), QStringLiteral("100%"));
    QTest::keyClick(pane.trkPosition, Qt::Key_Home);
    EXPECT_EQ(player.frame, 0);
}

TEST_F(TransportTest, TheTipTellsTheRateAsTheLocaleWritesItAlsoWhenItGoesBackToOne)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    QStringList tips;
    for (int i = 0; i < 11; ++i) {
        Click(pane.speedbtn[DecreaseRateButton]);
        tips << pane.speedbtn[DecreaseRateButton]->toolTip();
    }
    QLocale::setDefault(before);
    EXPECT_EQ(tips, QStringList({ "1", "0,9", "0,8", "0,7", "0,6", "0,5", "0,4", "0,3", "0,2", "1", "0,9" }));
}

TEST_F(TransportTest, ASelectionWithAnEndBelowItsStartShowsNoLength)
{
    transport.ShowSelection(500, 200);
    EXPECT_EQ(pane.trkPosition->SelStart(), 500);
    EXPECT_EQ(pane.trkPosition->SelLength(), 0);
}

TEST_F(TransportTest, PreviousAndNextWrapOverAllSelectedFiles)
{
    state.Videos = { QString(), QStringLiteral("/f/1.avi"), QStringLiteral("/f/2.avi"), QString() };
    state.VideoCount = 2;
    state.FileCount = 3;
    state.ListIndex = 1;
    state.FirstOfList = false;
    transport.StartVideo();
    Click(pane.CmdList[NextVideoButton]);
    EXPECT_EQ(state.VideoPath, QStringLiteral("/f/2.avi"));
    EXPECT_TRUE(state.FromList);
    EXPECT_EQ(state.CaptureName, state.VideoPath);
    Click(pane.CmdList[NextVideoButton]);
    EXPECT_EQ(state.VideoPath, QString()) << "the third file was no video";
    Click(pane.CmdList[NextVideoButton]);
    EXPECT_EQ(state.ListIndex, 1);
    Click(pane.CmdList[PreviousVideoButton]);
    EXPECT_EQ(state.ListIndex, 3);
    EXPECT_EQ(opened, 4);
}

TEST_F(TransportTest, TheFirstStepInAFreshListPlaysEntryOne)
{
    state.Videos = { QString(), QStringLiteral("/f/1.avi"), QStringLiteral("/f/2.avi") };
    state.VideoCount = state.FileCount = 2;
    state.FirstOfList = true;
    transport.WalkList(+1);
    EXPECT_EQ(state.VideoPath, QStringLiteral("/f/1.avi"));
    EXPECT_FALSE(state.FirstOfList);
}

TEST_F(TransportTest, OneVideoCannotBeWalked)
{
    state.VideoCount = 1;
    transport.StartVideo();
    EXPECT_FALSE(pane.CmdList[PreviousVideoButton]->isEnabled());
    EXPECT_FALSE(pane.CmdList[NextVideoButton]->isEnabled());
    state.VideoCount = 2;
    transport.StartVideo();
    EXPECT_TRUE(pane.CmdList[NextVideoButton]->isEnabled());
}
