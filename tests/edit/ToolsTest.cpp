#include "edit/Tools.h"

#include "edit/Resize.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/EditSamples.h"
#include "tests/testing/FakeCapture.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/ucShadow.h"
#include "toolkit/xpcheckbox.h"

#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSlider>
#include <QTimer>

#include <gtest/gtest.h>

using EditSamples::Done;

namespace {

QImage Ramp(QSize size = { 12, 8 })
{
    return EditSamples::Ramp(size);
}

class ToolsTest : public testing::Test {
protected:
    FakeFrame frame;
    FakeCapture capture { Ramp() };
    QPointer<Tools> tools;

    void SetUp() override
    {
        frame.state.FadeOuts = false;
        capture.MakeActive(frame);
        tools = new Tools(frame);
        tools->LTools(&capture.form);
    }
    void TearDown() override { delete tools; }
    /// Tools that come up for the first time, with the capture in this place.
    void OpenToolsBelow(QRect place)
    {
        capture.form.setGeometry(place);
        delete tools;
        frame.state.ToolsOpen = false;
        tools = new Tools(frame);
        tools->LTools(&capture.form);
    }

    /// As on a desktop where windows can be seen through.
    void LetFade()
    {
        frame.state.FadeOuts = true;
        delete tools->findChild<ucShadow*>(QString(), Qt::FindDirectChildrenOnly);
        new ucShadow(tools, [] { return Compositing { .windows = true, .children = true, .themes = true }; });
    }

    template <typename Widget = QWidget> Widget* Find(const char* name)
    {
        return tools->findChild<Widget*>(QLatin1String(name));
    }
    void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }
    QSlider& Slider(int index) { return *Find<QSlider>(index == 0 ? "HSlider1(0)" : "HSlider1(1)"); }
    QString ReadOut(const char* name) { return Find<QLabel>(name)->text(); }
    void ResizeTo(const char* width, bool resample = false)
    {
        WhenOpen<Resize>([=](Resize& form) {
            form.findChild<QLineEdit*>(QStringLiteral("Value1Box"))->setText(QLatin1String(width));
            if (resample)
                form.findChild<xpcheckbox*>(QStringLiteral("ResampleBox"))->SetValue(xpcheckbox::Set);
            QTest::mouseClick(form.findChild<QWidget*>(QStringLiteral("Ok")), Qt::LeftButton);
        });
        Click("Cmd2(0)");
    }
};

} // namespace

TEST_F(ToolsTest, TheFlagTellsThatTheWindowIsOpen)
{
    EXPECT_TRUE(frame.state.ToolsOpen);
    EXPECT_EQ(frame.state.Tools, tools);
    tools->UnloadLTools();
    EXPECT_FALSE(frame.state.ToolsOpen);
    EXPECT_FALSE(tools && tools->isVisible());
}

TEST_F(ToolsTest, TheFlagTellsSoUntilTheWindowHasFaded)
{
    LetFade();
    bool whileFading = false;
    QTimer::singleShot(0, tools, [&] { whileFading = frame.state.ToolsOpen; });
    tools->UnloadLTools();
    EXPECT_TRUE(whileFading);
    EXPECT_FALSE(frame.state.ToolsOpen);
}

TEST_F(ToolsTest, ToolsThatAreShownAgainWhileTheyFadeStayOpen)
{
    LetFade();
    QTimer::singleShot(0, tools, [this] { tools->LTools(&capture.form); });
    tools->UnloadLTools();
    ASSERT_TRUE(tools);
    EXPECT_TRUE(tools->isVisible());
    EXPECT_TRUE(frame.state.ToolsOpen);
}

TEST_F(ToolsTest, TheWindowAndItsControlsBearTheirTexts)
{
    struct Text {
        const char* name;
        const char* title;
        const char* tip;
    };
    constexpr Text texts[] {
        { "Cmd2(0)", "Resize Capture", " Resize " },
        { "Cmd2(1)", "Flip", " Flip " },
        { "Cmd2(2)", "Rotate", " Rotate " },
        { "Cmd2(3)", "Reverse", " Reverse " },
        { "Cmd2(4)", "B&W", " Grayscale " },
        { "Cmd2(5)", "Undo", " Undo " },
        { "HSlider1(0)", "Brightness", "Brightness" },
        { "HSlider1(1)", "Contrast", "Contrast" },
    };
    EXPECT_EQ(tools->windowTitle(), QStringLiteral("Graphic Edit Tools"));
    frame.state.ToolTip = false;
    Tools silent(frame);
    for (const Text& text : texts) {
        ASSERT_TRUE(Find(text.name)) << text.name;
        EXPECT_EQ(Find(text.name)->accessibleName(), QLatin1String(text.title));
        EXPECT_EQ(Find(text.name)->toolTip(), QLatin1String(text.tip));
        EXPECT_EQ(silent.findChild<QWidget*>(QLatin1String(text.name))->toolTip(), QString()) << text.name;
    }
}

TEST_F(ToolsTest, TheSlidersGoFromNoneToAHundredPercent)
{
    for (const int index : { 0, 1 }) {
        EXPECT_EQ(Slider(index).minimum(), 0);
        EXPECT_EQ(Slider(index).maximum(), 100);
        EXPECT_EQ(Slider(index).value(), 0);
    }
    EXPECT_EQ(ReadOut("LblBright"), QStringLiteral("0%"));
    EXPECT_EQ(ReadOut("Label2"), QStringLiteral("0%"));
}

TEST_F(ToolsTest, APreviewLetsOtherEventsThroughOnceWhenItStandsInTheCapture)
{
    QImage whenPumped;
    frame.whenPumped = [&] { whenPumped = capture.lead.Bitmap(); };
    Slider(1).setValue(50);
    EXPECT_EQ(frame.log.count(QStringLiteral("PumpEvents")), 1);
    EXPECT_EQ(whenPumped, Done(Ramp(), [](Lead& lead) { lead.Contrast(500); }));
}

TEST_F(ToolsTest, APreviewGivesTheActiveChildTheFocusOfItsWindowAndTheSliderKeepsTheKeyboard)
{
    QWidget window;
    QWidget child(&window);
    QLineEdit other(&window);
    frame.activeForm = &child;
    window.show();
    other.setFocus();
    tools->activateWindow();
    Slider(1).setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Slider(1).hasFocus(); }));
    ASSERT_EQ(window.focusWidget(), &other);
    Slider(1).setValue(50);
    EXPECT_EQ(window.focusWidget(), &child);
    EXPECT_TRUE(Slider(1).hasFocus());
}

TEST_F(ToolsTest, AnUndoInTheYieldOfAnotherBringsBackTheSamePicture)
{
    Click("Cmd2(3)");
    Click("Cmd2(1)");
    const QImage reversed = Done(Ramp(), [](Lead& lead) { lead.Reverse(); });
    frame.whenPumped = [this] {
        frame.whenPumped = {};
        Click("Cmd2(5)");
    };
    Click("Cmd2(5)");
    EXPECT_EQ(capture.lead.Bitmap(), reversed);
    Click("Cmd2(5)");
    EXPECT_EQ(capture.lead.Bitmap(), Ramp()) << "both were counted";
}

TEST_F(ToolsTest, ClosingInTheYieldOfAnUndoIsSafe)
{
    Click("Cmd2(1)");
    frame.whenPumped = [this] { delete tools; };
    Click("Cmd2(5)");
    EXPECT_EQ(capture.lead.Bitmap(), Ramp());
}

TEST_F(ToolsTest, ANewWindowComesUpTenTwipsBelowTheMiddleOfTheCapture)
{
    OpenToolsBelow({ 100, 100, 400, 150 });
    EXPECT_EQ(tools->y(), 100 + 150 + 1);
    EXPECT_EQ(tools->x(), 300 - tools->width() / 2);
}

TEST_F(ToolsTest, BelowALargeCaptureItStaysOnTheScreen)
{
    OpenToolsBelow({ 0, 0, 3000, 3000 });
    EXPECT_TRUE(tools->screen()->availableGeometry().contains(tools->geometry()));
}

TEST_F(ToolsTest, AMinimisedWindowComesBack)
{
    tools->hide();
    tools->setWindowState(Qt::WindowMinimized);
    tools->LTools(&capture.form);
    EXPECT_TRUE(tools->isVisible());
    EXPECT_FALSE(tools->isMinimized());
}

TEST_F(ToolsTest, ItComesUpWithinTheWindowsArea)
{
    QWidget area;
    area.setGeometry(50, 60, 500, 300);
    area.show();
    QWidget form(&area);
    form.setGeometry(100, 100, 800, 600);
    form.show();
    delete tools;
    frame.state.ToolsOpen = false;
    tools = new Tools(frame);
    tools->LTools(&form);
    EXPECT_TRUE(area.geometry().contains(tools->geometry()));
}

TEST_F(ToolsTest, EachEditChangesTheCaptureAndBecomesItsClipPic)
{
    const std::pair<const char*, void (*)(Lead&)> edits[] {
        { "Cmd2(1)", [](Lead& lead) { lead.Flip(); } },
        { "Cmd2(2)", [](Lead& lead) { lead.Rotate(9000, true, Qt::white); } },
        { "Cmd2(3)", [](Lead& lead) { lead.Reverse(); } },
        { "Cmd2(4)", [](Lead& lead) { lead.Grayscale(); } },
    };
    for (const auto& [button, operation] : edits) {
        const QImage before = capture.lead.Bitmap();
        Click(button);
        EXPECT_EQ(capture.lead.Bitmap(), Done(before, operation)) << button;
        EXPECT_NE(capture.lead.Bitmap(), before) << button;
        EXPECT_EQ(capture.clip, capture.lead.Bitmap()) << button;
    }
    EXPECT_EQ(capture.keptEdits, 4);
    EXPECT_EQ(frame.log.count(QStringLiteral("PumpEvents")), 4);
}

TEST_F(ToolsTest, RotatingAWidePictureTurnsClipPicAndLeavesTheWindowsSize)
{
    const QSize window = capture.form.size();
    Click("Cmd2(2)");
    EXPECT_EQ(capture.clip.size(), QSize(8, 12));
    EXPECT_EQ(capture.form.size(), window);
}

TEST_F(ToolsTest, UndoWithNoEditYetDoesNothing)
{
    Click("Cmd2(5)");
    EXPECT_EQ(capture.lead.Bitmap(), Ramp());
    EXPECT_EQ(capture.keptEdits, 0);
}

TEST_F(ToolsTest, AfterFiveFlipsUndoGoesFromTheFourthSlotDownAndStaysAtTheFirst)
{
    // Before the edits 1 to 5 the picture stands as it was, flipped, as it was, flipped, as it was.
    const QImage upright = Ramp();
    const QImage flipped = Done(upright, [](Lead& lead) { lead.Flip(); });
    for (int edit = 0; edit < 5; ++edit)
        Click("Cmd2(1)");
    for (const QImage& expected : { flipped, upright, flipped, upright, upright }) {
        Click("Cmd2(5)");
        EXPECT_EQ(capture.lead.Bitmap(), expected);
        EXPECT_EQ(capture.clip, expected);
    }
}

TEST_F(ToolsTest, UndoMayBringAPictureIntoAnotherCapture)
{
    Click("Cmd2(1)");
    FakeCapture other { Ramp({ 30, 20 }) };
    other.MakeActive(frame);
    Click("Cmd2(5)");
    EXPECT_EQ(other.lead.Bitmap(), Ramp());
}

TEST_F(ToolsTest, TheBrightnessSliderDrivesGammaAndReadsPercent)
{
    Slider(0).setValue(40);
    EXPECT_EQ(capture.lead.Bitmap(), Done(Ramp(), [](Lead& lead) { lead.Gamma(40); }));
    EXPECT_NE(capture.lead.Bitmap(), Ramp());
    EXPECT_EQ(ReadOut("LblBright"), QStringLiteral("40%"));
    Slider(0).setValue(100);
    EXPECT_EQ(capture.lead.Bitmap(), Ramp()) << "the neutral point";
}

TEST_F(ToolsTest, TheContrastSliderGoesInTens)
{
    Slider(1).setValue(50);
    EXPECT_EQ(capture.lead.Bitmap(), Done(Ramp(), [](Lead& lead) { lead.Contrast(500); }));
    EXPECT_EQ(ReadOut("Label2"), QStringLiteral("50%"));
}

TEST_F(ToolsTest, PreviewsDoNotAddUp)
{
    Slider(0).setValue(1);
    Slider(0).setValue(0);
    Slider(1).setValue(50);
    EXPECT_EQ(capture.lead.Bitmap(), Done(Ramp(), [](Lead& lead) { lead.Contrast(500); }));
}

TEST_F(ToolsTest, APreviewIsNeitherKeptForUndoNorInClipPic)
{
    Slider(1).setValue(50);
    EXPECT_EQ(capture.clip, Ramp());
    Click("Cmd2(5)");
    EXPECT_NE(capture.lead.Bitmap(), Ramp());
}

TEST_F(ToolsTest, TheNextEditMakesAPreviewPermanent)
{
    Slider(1).setValue(50);
    Click("Cmd2(1)");
    const QImage expected = Done(Ramp(), [](Lead& lead) {
        lead.Contrast(500);
        lead.Flip();
    });
    EXPECT_EQ(capture.clip, expected);
}

TEST_F(ToolsTest, UndoAfterAPreviewLeavesTheSliderWhereItIs)
{
    Click("Cmd2(1)");
    Slider(1).setValue(50);
    Click("Cmd2(5)");
    EXPECT_EQ(capture.clip, Ramp());
    EXPECT_EQ(Slider(1).value(), 50);
    EXPECT_EQ(ReadOut("Label2"), QStringLiteral("50%"));
}

TEST_F(ToolsTest, WithoutACaptureInFrontNothingHappensAndTheUserIsTold)
{
    frame.activeWindow = nullptr;
    const auto expectTold = [this](const char* what) {
        EXPECT_EQ(frame.status.take(StatusLabel::Operation), QStringLiteral("Click on a capture first"))
            << what;
        EXPECT_TRUE(frame.alerts.remove(StatusLabel::Operation)) << what;
        EXPECT_EQ(capture.lead.Bitmap(), Ramp()) << what;
    };
    for (const char* button : { "Cmd2(0)", "Cmd2(1)", "Cmd2(2)", "Cmd2(3)", "Cmd2(4)", "Cmd2(5)" }) {
        Click(button);
        expectTold(button);
    }
    Slider(0).setValue(10);
    expectTold("brightness");
    Slider(1).setValue(10);
    expectTold("contrast");
}

TEST_F(ToolsTest, ResizingOpensANewCaptureAndLeavesTheOldOne)
{
    ASSERT_TRUE(frame.Store("OpThumb", "2"));
    FakeCapture opened { QImage() };
    frame.whenViewerOpens = [&] { opened.MakeActive(frame); };
    ResizeTo("6", true);
    EXPECT_EQ(opened.lead.Bitmap(), Done(Ramp(), [](Lead& lead) { lead.Size(6, 4, Lead::SizeSmooth); }));
    EXPECT_EQ(opened.clip, opened.lead.Bitmap());
    EXPECT_EQ(capture.lead.Bitmap(), Ramp());
    EXPECT_TRUE(frame.enabled.value(Command::Save));
    EXPECT_EQ(ReadOut("Label2"), QString());
}

TEST_F(ToolsTest, WithoutResamplingPixelsArePicked)
{
    ASSERT_TRUE(frame.Store("OpThumb", "2"));
    FakeCapture opened { QImage() };
    frame.whenViewerOpens = [&] { opened.MakeActive(frame); };
    ResizeTo("6");
    EXPECT_EQ(opened.lead.Bitmap(), Done(Ramp(), [](Lead& lead) { lead.Size(6, 4, Lead::SizePlain); }));
}

TEST_F(ToolsTest, ACancelledResizeOpensNothing)
{
    WhenOpen<Resize>([](Resize& form) { form.reject(); });
    Click("Cmd2(0)");
    EXPECT_FALSE(frame.log.contains(QStringLiteral("OpenViewer")));
}

TEST_F(ToolsTest, ACancelledResizeLeavesTheReadOutOfContrast)
{
    Slider(1).setValue(30);
    WhenOpen<Resize>([](Resize& form) { form.reject(); });
    Click("Cmd2(0)");
    EXPECT_EQ(ReadOut("Label2"), QStringLiteral("30%"));
}

TEST_F(ToolsTest, ASizeBeyondTheMemoryEmptiesTheReadOutOfContrast)
{
    Slider(0).setValue(20);
    Slider(1).setValue(30);
    frame.errors.Expect(
        QStringLiteral("Error"), QStringLiteral("Not enough memory available.  Try a smaller size."));
    ResizeTo("16384");
    EXPECT_EQ(ReadOut("Label2"), QString());
    EXPECT_EQ(ReadOut("LblBright"), QStringLiteral("20%"));
}

TEST_F(ToolsTest, ASizeBeyondTheMemoryIsToldAndOpensNothing)
{
    frame.errors.Expect(
        QStringLiteral("Error"), QStringLiteral("Not enough memory available.  Try a smaller size."));
    ResizeTo("16384");
    EXPECT_FALSE(frame.log.contains(QStringLiteral("OpenViewer")));
    EXPECT_FALSE(frame.enabled.value(Command::Save, true));
}

TEST_F(ToolsTest, TheLastButtonOpensTheVisualEditor)
{
    Click("ToolButtons1");
    EXPECT_EQ(frame.log.last(), QStringLiteral("OpenVisual"));
}

TEST_F(ToolsTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*tools), "");
}
