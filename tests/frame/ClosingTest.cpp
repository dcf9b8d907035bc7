// Windows that fade while they close let other events through; what those may do meanwhile.
#include "tests/frame/FrameFixture.h"
#include "toolkit/LayeredWindow.h"
#include "toolkit/ucShadow.h"
#include "video/VideoWindow.h"
#include "viewers/QuickShots.h"
#include "viewers/Viewer.h"

#include <QMdiArea>
#include <QTimer>

namespace {

/// Does something in the moment in which a widget is hidden, before any event is handled.
class WhenHidden : public QObject {
public:
    WhenHidden(QWidget& widget, std::function<void()> act)
        : act_(std::move(act))
    {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Hide)
            act_();
        return false;
    }

private:
    std::function<void()> act_;
};

class ClosingTest : public FrameFixture {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(SystemCompositing().children);
        ASSERT_TRUE(state.FadeOuts);
        Store("OpThumb", "2");
        FrameFixture::SetUp();
        OpenOne();
    }

    template <typename Form> QList<Form*> All() { return main->findChildren<Form*>(); }
    void Capture()
    {
        Click("Cmds(8)");
        EXPECT_TRUE(QTest::qWaitFor([this] { return !IsFading(); }, 10'000));
    }
    static void ClickButton(QWidget* form, const char* name)
    {
        QTest::mouseClick(form->findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    }
    /// How many forms fade now.
    qsizetype Fading() const
    {
        return std::ranges::count_if(main->findChildren<LayeredWindow*>(), [](const LayeredWindow* window) {
            return window->isVisible() && window->objectName().endsWith(QLatin1String("FadeCls"));
        });
    }
    bool IsFading() const { return Fading() > 0; }
    void CloseAll()
    {
        Click("Image3");
        main->findChild<QWidget*>(QStringLiteral("Menus"))->actions().at(2)->trigger();
    }
    /// Does something once, when the form has been hidden to fade.
    void InTheFadeOf(QWidget* form, std::function<void()> act)
    {
        inFade_ = false;
        auto* const timer = new QTimer(main.get());
        QObject::connect(timer, &QTimer::timeout, main.get(),
            [this, timer, fading = QPointer<QWidget>(form), act = std::move(act)] {
                if (fading && fading->isVisible())
                    return;
                delete timer;
                inFade_ = IsFading();
                act();
            });
        timer->start(0);
    }

    bool inFade_ = false;
};

} // namespace

TEST_F(ClosingTest, EveryFormCastsAShadowInsideTheArea)
{
    Capture();
    const auto shadows = main->findChild<QMdiArea*>()->viewport()->findChildren<ucShadow*>();
    EXPECT_EQ(shadows.size(), 2);
    for (const ucShadow* shadow : shadows) {
        EXPECT_TRUE(shadow->IsLayered());
        EXPECT_TRUE(shadow->SoftShadow());
    }
}

TEST_F(ClosingTest, AFormFadesForItsCloseAndIsThenGone)
{
    Capture();
    const QPointer<Viewer> viewer = All<Viewer>().value(0);
    InTheFadeOf(viewer, [&] {
        EXPECT_FALSE(viewer->isVisible());
        EXPECT_EQ(state.KidCount, 0);
    });
    ClickButton(viewer, "Cmds(0)");
    EXPECT_TRUE(inFade_);
    EXPECT_FALSE(IsFading());
    DeleteClosed();
    EXPECT_EQ(viewer, nullptr);
}

TEST_F(ClosingTest, WithoutWindowFadesAFormIsHardEdgedAndGoesAtOnce)
{
    Capture();
    state.FadeOuts = false;
    Capture();
    for (Viewer* viewer : All<Viewer>()) {
        const auto* const shadow = viewer->findChild<ucShadow*>();
        const bool isLast = viewer == All<Viewer>().last();
        EXPECT_EQ(shadow->SoftShadow(), !isLast);
        EXPECT_EQ(shadow->FadeIn(), !isLast);
    }
    bool hasWaited = false;
    InTheFadeOf(All<Viewer>().last(), [&] { hasWaited = true; });
    EXPECT_TRUE(All<Viewer>().last()->close());
    EXPECT_FALSE(hasWaited);
    EXPECT_EQ(state.KidCount, 1);
    DeleteClosed();
    QCoreApplication::processEvents();
}

TEST_F(ClosingTest, ACaptureThatBecomesActiveWithoutWindowFadesLosesItsShadow)
{
    Capture();
    Capture();
    state.FadeOuts = false;
    Viewer* const first = All<Viewer>().first();
    const Viewer* const other = All<Viewer>().last();
    const auto hasShadow = [](const Viewer* viewer) { return viewer->findChild<ucShadow*>()->Visible(); };
    EXPECT_TRUE(hasShadow(first));
    first->BringToFront();
    EXPECT_FALSE(hasShadow(first));
    EXPECT_TRUE(hasShadow(other));
}

TEST_F(ClosingTest, TheFrameMayCloseWhileAFormFades)
{
    for (const char* fading : { "Viewer", "VideoWindow" }) {
        Capture();
        Capture();
        auto* const form = main->findChild<QWidget*>(QLatin1String(fading));
        InTheFadeOf(form, [this] { main->close(); });
        form->close();
        EXPECT_TRUE(inFade_);
        EXPECT_FALSE(main->isVisible());
        DeleteClosed();
        EXPECT_TRUE(All<ChildForm>().isEmpty()) << fading;
        EXPECT_EQ(state.KidCount, 0);
        EXPECT_EQ(state.CurrentVideo, nullptr);
        main->show();
        OpenOne();
    }
}

TEST_F(ClosingTest, TheFrameClosesItsFormsWithoutWaitingForAnyFade)
{
    Capture();
    Capture();
    InTheFadeOf(All<VideoWindow>().first(), [] {});
    main->close();
    EXPECT_FALSE(inFade_);
    DeleteClosed();
    EXPECT_TRUE(All<ChildForm>().isEmpty());
    EXPECT_FALSE(IsFading());
}

TEST_F(ClosingTest, AllWindowsMayBeClosedWhileOneOfThemFades)
{
    for (int i = 0; i < 3; ++i)
        Capture();
    Viewer* const viewer = All<Viewer>().first();
    InTheFadeOf(viewer, [this] { CloseAll(); });
    viewer->close();
    EXPECT_TRUE(inFade_);
    EXPECT_EQ(state.KidCount, 0);
    DeleteClosed();
    EXPECT_TRUE(All<Viewer>().isEmpty());
}

TEST_F(ClosingTest, AllWindowsFadeTogetherWhenAllAreClosed)
{
    for (int i = 0; i < 3; ++i)
        Capture();
    qsizetype together = 0;
    WhenHidden lastOne(*All<Viewer>().first(), [&] { together = Fading(); });
    CloseAll();
    EXPECT_EQ(together, 3);
    EXPECT_FALSE(IsFading());
    EXPECT_EQ(state.KidCount, 0);
    DeleteClosed();
    EXPECT_TRUE(All<Viewer>().isEmpty());
}

TEST_F(ClosingTest, OfManyWindowsClosedTogetherOnlySomeFade)
{
    for (int i = 0; i < 12; ++i)
        Click("Cmds(8)");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !IsFading(); }, 10'000));
    qsizetype together = 0;
    WhenHidden lastOne(*All<Viewer>().first(), [&] { together = Fading(); });
    CloseAll();
    EXPECT_EQ(together, 8 + 1);
    EXPECT_EQ(state.KidCount, 0);
}

TEST_F(ClosingTest, AVideoInFrontGoesWithTheCapturesWhenAllAreClosed)
{
    Capture();
    main->AddChild(All<VideoWindow>().first());
    CloseAll();
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_FALSE(state.VideoOpen);
    DeleteClosed();
    EXPECT_TRUE(All<ChildForm>().isEmpty());
}

TEST_F(ClosingTest, EachFormMayBeClosedWhileAnotherFades)
{
    for (int i = 0; i < 3; ++i)
        Capture();
    const QList<Viewer*> viewers = All<Viewer>();
    InTheFadeOf(viewers[0], [this, &viewers] {
        InTheFadeOf(viewers[1], [&viewers] { viewers[2]->close(); });
        viewers[1]->close();
    });
    viewers[0]->close();
    EXPECT_EQ(state.KidCount, 0);
    DeleteClosed();
    EXPECT_TRUE(All<Viewer>().isEmpty());
}

TEST_F(ClosingTest, AFormClosedOnceMoreWhileItFadesIsCountedOnce)
{
    Capture();
    Capture();
    Viewer* const viewer = All<Viewer>().first();
    InTheFadeOf(viewer, [viewer] { viewer->close(); });
    viewer->close();
    EXPECT_EQ(state.KidCount, 1);
}

TEST_F(ClosingTest, APopupOpenedWhileTheChoiceOfAnotherIsCarriedOutOpens)
{
    Capture();
    InTheFadeOf(All<Viewer>().first(), [this] { Click("Image3"); });
    CloseAll();
    EXPECT_TRUE(inFade_);
    EXPECT_EQ(main->findChildren<QWidget*>(QStringLiteral("Menus")).size(), 1);
}

TEST_F(ClosingTest, AVideoOpenedWhileItsWindowFadesKeepsTheWindow)
{
    const QPointer<VideoWindow> window = All<VideoWindow>().value(0);
    InTheFadeOf(window, [this] { OpenOne(); });
    window->close();
    DeleteClosed();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->Closing);
    EXPECT_EQ(state.CurrentVideo, window);
    EXPECT_TRUE(main->IsCommandEnabled(Command::Capture));
}

TEST_F(ClosingTest, ThumbnailsTakenWhileTheirStripFadesOpenANewOne)
{
    Store("OpThumb", "0");
    state.Reload(Key::OpThumb);
    Capture();
    const QPointer<QuickShots> strip = All<QuickShots>().value(0);
    InTheFadeOf(strip, [this] { Capture(); });
    strip->close();
    DeleteClosed();
    EXPECT_EQ(strip, nullptr);
    ASSERT_EQ(All<QuickShots>().size(), 1);
    EXPECT_EQ(All<QuickShots>().first()->Count(), 1);
}
