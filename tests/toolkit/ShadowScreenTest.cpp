// The shadow and the fades of windows of their own, which need a screen with a compositing manager.
#include "toolkit/LayeredWindow.h"
#include "toolkit/ucShadow.h"

#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

bool Eventually(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 10'000);
}

class ShadowOnScreen : public testing::Test {
protected:
    QProcess manager;
    QWidget ground { nullptr, Qt::FramelessWindowHint };
    QWidget form { nullptr, Qt::FramelessWindowHint };

    void SetUp() override { Show(ground, Qt::white, QRect(100, 100, 500, 400)); }
    void TearDown() override
    {
        manager.terminate();
        manager.waitForFinished();
    }

    void StartManager()
    {
        manager.start(QStringLiteral("xcompmgr"), {});
        ASSERT_TRUE(manager.waitForStarted());
        ASSERT_TRUE(Eventually([] { return SystemCompositing().windows; }));
    }
    static void Show(QWidget& window, const QColor& color, const QRect& place)
    {
        window.setPalette(color);
        window.setAutoFillBackground(true);
        window.setGeometry(place);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        ASSERT_TRUE(Eventually([&] { return Seen(place.center()) == color; }));
    }
    void ShowForm() { Show(form, Qt::red, QRect(200, 200, 200, 100)); }
    static QColor Seen(QPoint place)
    {
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, place.x(), place.y(), 1, 1)
            .toImage()
            .pixelColor(0, 0);
    }
};

} // namespace

TEST_F(ShadowOnScreen, WithoutACompositingManagerAWindowHasNoneAndDoesNotWait)
{
    ASSERT_FALSE(SystemCompositing().windows);
    EXPECT_TRUE(SystemCompositing().children);
    ucShadow shadow(&form);
    ShowForm();
    EXPECT_FALSE(shadow.IsLayered());
    EXPECT_TRUE(shadow.FadeOut(1'000'000));
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.findChildren<LayeredWindow*>().isEmpty());
}

TEST_F(ShadowOnScreen, TheScreenUnderTheShadowIsDarkenedAndFollowsTheWindow)
{
    StartManager();
    ucShadow shadow(&form);
    shadow.SetFadeIn(false);
    ShowForm();
    ASSERT_TRUE(shadow.IsLayered());
    const ShadowStrip right { ShadowStrip::Right, QSize(10, 100) };
    const auto isDark = [&](QPoint corner) {
        const double alpha = right.AlphaAt(2, 49) / 255.0 * 120 / 255;
        const QColor seen = Seen(corner + QPoint(202, 60));
        return std::abs(seen.green() - 255 * (1 - alpha)) <= 2 && seen.green() == seen.red();
    };
    EXPECT_TRUE(Eventually([&] { return isDark(QPoint(200, 200)); }));
    EXPECT_EQ(Seen(QPoint(405, 205)), Qt::white); // beside the form's top, above the strip
    form.move(150, 250);
    EXPECT_TRUE(Eventually([&] { return isDark(QPoint(150, 250)); }));
    form.hide();
    EXPECT_TRUE(Eventually([] { return Seen(QPoint(352, 310)) == Qt::white; }));
}

TEST_F(ShadowOnScreen, APointerGoesThroughTheShadow)
{
    StartManager();
    ucShadow shadow(&form);
    shadow.SetFadeIn(false);
    ShowForm();
    for (const auto* strip : form.findChildren<LayeredWindow*>())
        EXPECT_TRUE(QTest::qWaitForWindowExposed(const_cast<LayeredWindow*>(strip)));
    class Presses : public QObject {
    public:
        bool seen = false;
        bool eventFilter(QObject*, QEvent* event) override
        {
            seen = seen || event->type() == QEvent::MouseButtonPress;
            return false;
        }
    } presses;
    ground.installEventFilter(&presses);
    // The window manager may learn late of where input goes through.
    EXPECT_TRUE(Eventually([&] {
        QProcess::execute(QStringLiteral("xdotool"), { "mousemove", "403", "260", "click", "1" });
        QCoreApplication::processEvents();
        return presses.seen;
    }));
}

TEST_F(ShadowOnScreen, AWindowFadesOutAndIsGone)
{
    StartManager();
    ucShadow shadow(&form);
    shadow.SetFadeIn(false);
    ShowForm();
    QSignalSpy ends(&shadow, &ucShadow::FadedOut);
    bool isBetween = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        const int green = Seen(QPoint(300, 250)).green();
        isBetween = isBetween || (!form.isVisible() && green > 20 && green < 235);
    });
    watch.start(10);
    EXPECT_TRUE(shadow.FadeOut(1000));
    EXPECT_TRUE(isBetween);
    EXPECT_EQ(ends.size(), 1);
    EXPECT_TRUE(Eventually([] { return Seen(QPoint(300, 250)) == Qt::white; }));
}

TEST_F(ShadowOnScreen, AWindowFadesInFromWhatTheScreenShowed)
{
    StartManager();
    ucShadow shadow(&form);
    QSignalSpy ends(&shadow, &ucShadow::FadedIn);
    ShowForm();
    EXPECT_TRUE(Eventually([&] { return ends.size() == 1; }));
    EXPECT_TRUE(Eventually([] { return Seen(QPoint(300, 250)) == Qt::red; }));
}
