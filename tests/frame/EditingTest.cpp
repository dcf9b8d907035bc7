// The windows of picture editing in the real frame.
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "edit/Resize.h"
#include "edit/Tools.h"
#include "edit/Visual.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/RunningDialog.h"
#include "viewers/FullS.h"
#include "viewers/QuickShots.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>

namespace {

class EditingTest : public FrameFixture {
protected:
    void SetUp() override
    {
        state.FadeOuts = false;
        Store("FadeOuts", "False");
        Store("OpThumb", "2");
        FrameFixture::SetUp();
        OpenOne();
    }
    void Capture() { Click("Cmds(8)"); }
    Viewer* ActiveViewer() { return qobject_cast<Viewer*>(main->ActiveForm()); }
    static void ClickOn(QWidget& form, const char* name)
    {
        QTest::mouseClick(form.findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    }
    Visual* OpenEditor()
    {
        main->OpenVisual();
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* visual = qobject_cast<Visual*>(window); visual && visual->isVisible())
                return visual;
        return nullptr;
    }
    static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

} // namespace

TEST_F(EditingTest, TheToolsComeUpWithACaptureAndLeaveTheKeyboardToTheFrame)
{
    EXPECT_FALSE(state.ToolsOpen);
    Capture();
    EXPECT_TRUE(state.ToolsOpen);
    ASSERT_NE(state.Tools, nullptr);
    EXPECT_TRUE(state.Tools->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(main.get()));
}

TEST_F(EditingTest, ToolsThatTheUserClosedStayAwayUntilHeOpensThem)
{
    Capture();
    ClickOn(*state.Tools, "Cmds(0)");
    DeleteClosed();
    Capture();
    EXPECT_FALSE(state.ToolsOpen);
    ClickOn(*ActiveViewer(), "Cmds(3)");
    EXPECT_TRUE(state.ToolsOpen);
    EXPECT_TRUE(state.Tools->isVisible());
}

TEST_F(EditingTest, TheToolsGoWithTheLastCaptureAndComeWithTheNext)
{
    Capture();
    Capture();
    ActiveViewer()->close();
    EXPECT_TRUE(state.ToolsOpen);
    ActiveViewer()->close();
    EXPECT_FALSE(state.ToolsOpen);
    DeleteClosed();
    main->AddChild(state.CurrentVideo);
    Capture();
    EXPECT_TRUE(state.ToolsOpen);
}

TEST_F(EditingTest, TheToolsWorkOnTheActiveCapture)
{
    Capture();
    Capture();
    Viewer* const active = ActiveViewer();
    const QImage before = active->Picture().Bitmap();
    ClickOn(*state.Tools, "Cmd2(2)");
    EXPECT_EQ(active->Picture().Bitmap().size(), before.size().transposed());
    EXPECT_EQ(active->ClipPic(), active->Picture().Bitmap());
    for (const Viewer* viewer : main->findChildren<Viewer*>())
        EXPECT_EQ(viewer->ClipPic().size() == before.size(), viewer != active);
    ClickOn(*state.Tools, "Cmd2(5)");
    EXPECT_EQ(active->Picture().Bitmap(), before);
}

TEST_F(EditingTest, AResizedCaptureComesInAWindowThatShowsAllOfIt)
{
    Capture();
    WhenOpen<Resize>([](Resize& form) {
        form.findChild<QLineEdit*>(QStringLiteral("Value1Box"))->setText(QStringLiteral("40"));
        QTest::mouseClick(form.findChild<QWidget*>(QStringLiteral("Ok")), Qt::LeftButton);
    });
    ClickOn(*state.Tools, "Cmd2(0)");
    const auto viewers = main->findChildren<Viewer*>();
    ASSERT_EQ(viewers.size(), 2);
    const Lead& picture = ActiveViewer()->Picture();
    EXPECT_EQ(picture.BitmapWidth(), 40);
    EXPECT_GE(picture.ClientWidth(), picture.BitmapWidth());
    EXPECT_GE(picture.ClientHeight(), picture.BitmapHeight());
    for (const QScrollBar* bar : picture.findChildren<QScrollBar*>())
        EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(ActiveViewer()->ClipPic(), ActiveViewer()->Picture().Bitmap());
    EXPECT_TRUE(IsEnabled(Command::Save));
}

TEST_F(EditingTest, WithThumbnailsTheStripComesToTheFrontWithTheEditedPicture)
{
    Capture();
    Visual* const visual = OpenEditor();
    ASSERT_NE(visual, nullptr);
    Store("OpThumb", "1");
    ClickOn(*visual, "Command4");
    ClickOn(*visual, "Command7");
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 2);
    auto* const strip = qobject_cast<QuickShots*>(main->ActiveForm());
    ASSERT_NE(strip, nullptr);
    EXPECT_EQ(strip->Count(), 1);
    EXPECT_TRUE(Find("front1")->isVisible());
}

TEST_F(EditingTest, TheEditorDoesNotOpenWithAVideoOnTop)
{
    errors.Expect(QStringLiteral("Error Opening Graphic"),
        QStringLiteral(
            " Is the video window on top?  If so, click on a capture so the visual editor can see it."));
    EXPECT_EQ(OpenEditor(), nullptr);
    EXPECT_FALSE(state.VisualReady);
}

TEST_F(EditingTest, ThereIsOneEditor)
{
    Capture();
    Visual* const visual = OpenEditor();
    ASSERT_NE(visual, nullptr);
    EXPECT_EQ(OpenEditor(), visual);
    ClickOn(*visual, "Command8");
    EXPECT_NE(OpenEditor(), nullptr);
}

TEST_F(EditingTest, TheEditorClosesWithTheFrame)
{
    Capture();
    const QPointer<Visual> visual = OpenEditor();
    ASSERT_NE(visual, nullptr);
    main->close();
    EXPECT_FALSE(visual && visual->isVisible());
}

TEST_F(EditingTest, AThumbnailClickedTwiceStandsOnTheWholeScreenUntilItIsEnded)
{
    Store("OpThumb", "0");
    Capture();
    auto* const panel = main->findChild<ThumbPanel*>();
    QImage shown;
    Pointer pointer = Pointer::Busy;
    WhenOpen<FullS>([&](FullS& form) {
        EXPECT_TRUE(form.isModal());
        shown = form.findChild<Lead*>(QStringLiteral("Leadbitmap1"))->Bitmap();
        pointer = CurrentPointer();
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    QTest::mouseDClick(panel, Qt::LeftButton, {}, panel->CellRect(0).center());
    EXPECT_EQ(shown, panel->Bitmap(0));
    EXPECT_FALSE(shown.isNull());
    EXPECT_EQ(pointer, Pointer::Normal);
    EXPECT_EQ(main->findChild<FullS*>(), nullptr);
}

TEST_F(EditingTest, TheEditorShowsItsPictureOnTheWholeScreen)
{
    Capture();
    Visual* const visual = OpenEditor();
    ASSERT_NE(visual, nullptr);
    const QImage effect = visual->findChild<Lead*>(QStringLiteral("Effect"))->Bitmap();
    QImage shown;
    WhenOpen<FullS>([&](FullS& form) {
        shown = form.findChild<Lead*>(QStringLiteral("Leadbitmap1"))->Bitmap();
        QTest::mouseClick(&form, Qt::LeftButton);
    });
    ClickOn(*visual, "Command17");
    EXPECT_EQ(shown, effect);
    EXPECT_TRUE(visual->isVisible());
}
