// The child windows of the frame: how they come, stand in front or behind, and go.
#include "app/Lead.h"
#include "capture/CaptureCurrentFrame.h"
#include "tests/frame/FrameFixture.h"
#include "toolkit/ChildForm.h"
#include "viewers/QuickShots.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QSignalSpy>
#include <QTimer>

namespace {

using MainFormsTest = FrameFixture;

} // namespace

TEST_F(MainFormsTest, TwoCapturesOpenTwoWindowsAndTheLastIsActive)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 2);
    EXPECT_EQ(state.KidCount, 2);
    EXPECT_TRUE(IsEnabled(Command::Save));
    ASSERT_NE(main->ActiveCapture(), nullptr);
    EXPECT_EQ(main->ActiveCapture(), &main->findChildren<Viewer*>().last()->Picture());
}

TEST_F(MainFormsTest, ACaptureWithThumbnailsKeepsItsWindowInFront)
{
    OpenOne();
    Click("Cmds(8)");
    ASSERT_EQ(main->findChildren<QuickShots*>().size(), 1);
    EXPECT_EQ(main->findChild<QuickShots*>()->Count(), 1);
    EXPECT_NE(main->ActiveCapture(), nullptr);
    EXPECT_TRUE(Find("front1")->isVisible());
}

TEST_F(MainFormsTest, ThumbnailsAloneOpenNoCaptureWindow)
{
    Store("OpThumb", "0");
    state.Reload(Key::OpThumb);
    OpenOne();
    Click("Cmds(8)");
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 0);
    EXPECT_EQ(main->findChild<QuickShots*>()->Count(), 1);
}

TEST_F(MainFormsTest, ThePickedThumbnailStandsInTheCaptureWindowThatItsButtonOpens)
{
    Store("OpThumb", "0");
    OpenOne();
    for (const int shot : { 20, 70 }) {
        player->frame = shot;
        Click("Cmds(8)");
    }
    auto* panel = Find<ThumbPanel>("PicInner");
    QTest::mouseClick(panel, Qt::LeftButton, {}, panel->CellRect(0).center());
    ClickOn("QuickShots", "Cmds(2)");
    ASSERT_EQ(main->findChildren<Viewer*>().size(), 1);
    EXPECT_EQ(main->findChild<Viewer*>()->Picture().Bitmap(), player->StillNumber(20));
}

TEST_F(MainFormsTest, MakeKidActiveBringsAWindowUp)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    QWidget* const first = main->ActiveForm();
    Click("Cmds(8)");
    main->MakeKidActive(0);
    EXPECT_EQ(main->ActiveForm(), first);
}

TEST_F(MainFormsTest, ClosingTheFrameClosesEveryWindowWhateverTheirOrder)
{
    for (const char* last : { "VideoWindow", "QuickShots", "Viewer" }) {
        OpenOne();
        Click("Cmds(8)");
        Click("Cmds(8)");
        main->AddChild(Find(last));
        main->close();
        DeleteClosed();
        EXPECT_FALSE(main->isVisible());
        for (const char* form : { "VideoWindow", "QuickShots", "Viewer" })
            EXPECT_EQ(Find(form), nullptr) << form << " after " << last;
        EXPECT_EQ(state.KidCount, 0);
        EXPECT_TRUE(state.ExitRequested);
        main->show();
    }
}

TEST_F(MainFormsTest, ACaptureWithoutAnyVideoIsToldAndMakesAVideoWindowOnDemand)
{
    playersFailStills = true;
    errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
    CaptureCurrentFrame(*main);
    EXPECT_NE(state.CurrentVideo, nullptr);
    EXPECT_EQ(state.KidCount, 0);
}

TEST_F(MainFormsTest, CloseAllWindowsClosesWhateverStandsInFrontUntilNoCaptureIsLeft)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    ChooseInPopup(2);
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_TRUE(state.VideoOpen) << "it stood behind";
    Click("Cmds(8)");
    main->AddChild(Find("VideoWindow"));
    ChooseInPopup(2);
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_FALSE(state.VideoOpen) << "it stood in front";
}

TEST_F(MainFormsTest, CloseAllWindowsLeavesTheThumbnailsAlone)
{
    Store("OpThumb", "1");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    for (const bool isInFront : { false, true }) {
        if (isInFront)
            main->AddChild(Find("QuickShots"));
        ChooseInPopup(2);
        EXPECT_EQ(state.KidCount, 0);
        EXPECT_TRUE(state.QuickShotsOpen) << isInFront;
        Click("Cmds(8)");
        Click("Cmds(8)");
    }
}

TEST_F(MainFormsTest, WhenACaptureClosesTheOneBeforeComesUpAndNotTheThumbnails)
{
    Store("OpThumb", "1");
    OpenOne();
    Click("Cmds(8)");
    QWidget* const first = main->ActiveForm();
    Click("Cmds(8)");
    main->ActiveForm()->close();
    EXPECT_EQ(main->ActiveForm(), first);
}

TEST_F(MainFormsTest, ThePromptGivesWayToTheFirstWindowAndComesBackAfterTheLast)
{
    EXPECT_TRUE(Find("Opens")->isVisible());
    OpenOne();
    EXPECT_FALSE(Find("Opens")->isVisible());
    static_cast<QMdiSubWindow*>(main->ActiveForm())->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Find("Opens")->isVisible(); }));
}

TEST_F(MainFormsTest, CtrlTabGoesToTheNextChildWindow)
{
    OpenOne();
    state.OpThumb = 2;
    Click("Cmds(8)");
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    const QWidget* const capture = main->ActiveForm();
    QWidget* const at = main->ActiveForm()->findChild<QWidget*>(QStringLiteral("Cmds(1)"));
    at->setFocus();
    QTest::keyPress(at, Qt::Key_Control);
    QTest::keyClick(at, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(at, Qt::Key_Control);
    EXPECT_NE(main->ActiveForm(), capture);
    EXPECT_TRUE(main->ActiveForm()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(MainFormsTest, AThumbnailStripPutAwayStaysSoWhenAPictureIsAdded)
{
    OpenOne();
    Click("Cmds(8)");
    Form("QuickShots").ToggleMinimize();
    Click("Cmds(8)");
    EXPECT_EQ(Form("QuickShots").CurrentShape(), ChildForm::Shape::Minimized);
}

TEST_F(MainFormsTest, TheVideoIsBroughtToTheFrontByItsButton)
{
    OpenOne();
    Click("Cmds(8)");
    ASSERT_NE(main->ActiveForm(), Find("VideoWindow"));
    Click("front1");
    EXPECT_EQ(main->ActiveForm(), Find("VideoWindow"));
}

TEST_F(MainFormsTest, BringingTheVideoToTheFrontWithoutOneMakesAFreshWindow)
{
    OpenOne();
    Click("Cmds(8)");
    Find("VideoWindow")->close();
    DeleteClosed();
    main->ShowFront(true);
    Click("front1");
    ASSERT_NE(Find("VideoWindow"), nullptr);
    EXPECT_EQ(main->ActiveForm(), Find("VideoWindow"));
}

TEST_F(MainFormsTest, MakeKidActiveTakesASlotThatTheTableDoesNotHaveForAHole)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    for (const int index : { 7, -1 }) {
        const QWidget* const before = main->ActiveForm();
        main->MakeKidActive(index);
        EXPECT_NE(main->ActiveForm(), before) << index << ": two of the three windows were sent back";
    }
}

TEST_F(MainFormsTest, AnActiveChildBearsItsKindAsWindowText)
{
    Store("OpThumb", "2");
    OpenOne();
    EXPECT_EQ(main->ActiveForm()->windowTitle(), QStringLiteral("Video Window"));
    Click("Cmds(8)");
    EXPECT_EQ(main->ActiveForm()->windowTitle(), QStringLiteral("Capture Window"));
}

TEST_F(MainFormsTest, ACaptureThatClosesHidesTheLabelOfAutomaticCapturesUnlessItsPlaceInTheTableWasTaken)
{
    Store("OpThumb", "2");
    OpenOne();
    for (int i = 0; i < 3; ++i)
        Click("Cmds(8)");
    const auto viewers = main->findChildren<Viewer*>();
    const auto hidesLabel = [this](Viewer* viewer) {
        main->ShowStatus(StatusLabel::AutoCapture, true);
        viewer->close();
        return Find("Label2")->isHidden();
    };
    EXPECT_TRUE(hidesLabel(viewers[0]));
    Click("Cmds(8)");
    EXPECT_FALSE(hidesLabel(viewers[2]));
    EXPECT_TRUE(hidesLabel(viewers[1]));
}

TEST_F(MainFormsTest, CloseAllWindowsHidesTheLabelOfAutomaticCapturesAndClosesTheTools)
{
    QWidget tools;
    state.Tools = &tools;
    tools.show();
    main->ShowStatus(StatusLabel::AutoCapture, true);
    ChooseInPopup(2);
    EXPECT_TRUE(Find("Label2")->isHidden());
    EXPECT_TRUE(tools.isHidden());
}

TEST_F(MainFormsTest, TheMouseBringsACaptureToTheTopOnlyWithSetFocusYES)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    ChildForm& lower = *main->findChildren<Viewer*>().first();
    ASSERT_FALSE(lower.IsActive());
    const auto comeOver = [&] {
        QEnterEvent enter(QPointF(9, 9), QPointF(9, 9), lower.mapToGlobal(QPointF(9, 9)));
        QCoreApplication::sendEvent(&lower, &enter);
    };
    comeOver();
    EXPECT_FALSE(lower.IsActive());
    state.SetFocusYES = true;
    comeOver();
    EXPECT_TRUE(lower.IsActive());
}

TEST_F(MainFormsTest, TheOpenCommandAsksAlsoWithVidWinOnly)
{
    OpenOne();
    state.VidWinOnly = true;
    int asked = 0;
    dialogs.openNames.push(QString());
    dialogs.whileShown = [&] { ++asked; };
    Click("Cmds(0)");
    EXPECT_EQ(asked, 1);
}

TEST_F(MainFormsTest, AThumbnailStripInFrontGoesBehindWhenAPictureIsAdded)
{
    OpenOne();
    for (const int opThumb : { 0, 1 }) {
        Store("OpThumb", opThumb ? "1" : "0");
        Click("Cmds(8)");
        Form("QuickShots").BringToFront();
        Click("Cmds(8)");
        EXPECT_FALSE(Form("QuickShots").IsActive()) << opThumb;
    }
}

TEST_F(MainFormsTest, PrintFramePrintsTheActiveCapture)
{
    Store("OpThumb", "2");
    OpenOne();
    EXPECT_FALSE(IsEnabled(Command::Print));
    Click("Cmds(8)");
    ASSERT_TRUE(IsEnabled(Command::Print));
    Click("Cmds(6)");
    ASSERT_EQ(printers.jobs.size(), 1);
    EXPECT_EQ(printers.jobs[0].paper, Paper({ 9, { 210, 297 } }));
    EXPECT_EQ(printers.jobs[0].title, QStringLiteral("TAQ Video Capture Pro"));
}

TEST_F(MainFormsTest, ADoubleClickOnPrintFramePrintsOnePage)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    printers.whenAsked = [this] { Click("Cmds(6)"); };
    Click("Cmds(6)");
    EXPECT_EQ(printers.jobs.size(), 1);
    printers.whenAsked = {};
    Click("Cmds(6)");
    EXPECT_EQ(printers.jobs.size(), 2) << "the next print is a print again";
}

TEST_F(MainFormsTest, PrintFrameOverAVideoSaysThatThereIsNoCapture)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Form("VideoWindow").BringToFront();
    ASSERT_EQ(main->ActiveCapture(), nullptr);
    Click("Cmds(6)");
    EXPECT_TRUE(printers.jobs.isEmpty());
    EXPECT_EQ(Label("LblMsg1(0)"), QStringLiteral("The active window holds no capture."));
}

TEST_F(MainFormsTest, PrintStaysOpenAfterTheLastCaptureUntilTheTimerTicks)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    auto* const timer = Find<QTimer>("Timer1");
    EXPECT_EQ(timer->intervalAsDuration(), std::chrono::seconds(32));
    timer->start(0);
    QSignalSpy ticks(timer, &QTimer::timeout);
    ASSERT_TRUE(ticks.wait());
    EXPECT_TRUE(IsEnabled(Command::Print)) << "a capture is open";
    timer->stop();
    Form("Viewer").close();
    ASSERT_EQ(state.KidCount, 0);
    EXPECT_TRUE(IsEnabled(Command::Print));
    timer->start(0);
    ASSERT_TRUE(ticks.wait());
    EXPECT_FALSE(IsEnabled(Command::Print));
}

TEST_F(MainFormsTest, ClosingAllWindowsClosesPrintAtOnce)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    ASSERT_TRUE(IsEnabled(Command::Print));
    ChooseInPopup(2);
    EXPECT_FALSE(IsEnabled(Command::Print));
}
