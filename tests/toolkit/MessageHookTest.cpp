#include "toolkit/LayeredWindow.h"
#include "toolkit/WindowMessage.h"
#include "toolkit/cSubclass.h"
#include "toolkit/cWindow.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>

namespace {

/// A window that writes down what reaches its own handling.
class Window : public QWidget {
public:
    using QWidget::QWidget;
    QStringList log;

    bool event(QEvent* event) override
    {
        if (event->type() == WindowMessage::Kind()) {
            auto& message = static_cast<WindowMessage&>(*event);
            log << QStringLiteral("%1 %2 %3").arg(message.uMsg).arg(message.wParam).arg(message.lParam);
            message.lReturn = 7;
            return true;
        }
        if (event->type() == QEvent::Move)
            log << QStringLiteral("Move");
        if (event->type() == QEvent::Hide)
            log << QStringLiteral("Hide");
        return QWidget::event(event);
    }
};

/// An owner that writes down its calls in the window's own log and does what a test says.
class Owner : public iSubclass, public iWindow {
public:
    struct Call {
        bool& bHandled;
        qint32& lReturn;
        QWidget*& hWnd;
        qint32& uMsg;
        qintptr& wParam;
        qintptr& lParam;
    };

    explicit Owner(QStringList& log)
        : log_(log)
    {
    }
    std::function<void(bool, Call)> act;

    void iSubclass_Proc(bool bBefore, bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg,
        qintptr& wParam, qintptr& lParam) override
    {
        log_ << (bBefore ? QStringLiteral("before %1") : QStringLiteral("after %1")).arg(uMsg);
        if (act)
            act(bBefore, { bHandled, lReturn, hWnd, uMsg, wParam, lParam });
    }
    void iWindow_Proc(bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg, qintptr& wParam,
        qintptr& lParam) override
    {
        log_ << QStringLiteral("window %1").arg(uMsg);
        if (act)
            act(true, { bHandled, lReturn, hWnd, uMsg, wParam, lParam });
    }

private:
    QStringList& log_;
};

class SubclassTest : public testing::Test {
protected:
    QWidget parent;
    std::unique_ptr<Window> window = std::make_unique<Window>();
    Owner owner { window->log };
    cSubclass hook;

    void SetUp() override { ASSERT_TRUE(hook.Subclass(*window, owner)); }
    QStringList TakeLog() { return std::exchange(window->log, {}); }
    qint32 Send(qint32 message, qintptr wParam = 0, qintptr lParam = 0)
    {
        return WindowMessage::Send(*window, message, wParam, lParam);
    }
};

class WindowClassTest : public testing::Test {
protected:
    QStringList log;
    Owner owner { log };
    std::unique_ptr<cWindow> windows = std::make_unique<cWindow>();

    void SetUp() override
    {
        windows->SetOwner(owner);
        ASSERT_TRUE(windows->WindowClassRegister(QStringLiteral("12ShadowCls"), Qt::white));
    }
    LayeredWindow* Create(QWidget* parent = nullptr)
    {
        return windows->WindowCreate(0, WindowStyle::Popup, 1, 2, 30, 40, 0, {}, parent);
    }
};

} // namespace

TEST_F(SubclassTest, TheOwnerIsCalledBeforeAndAfterTheWindowsOwnHandling)
{
    hook.AddMsg(534, cSubclass::BeforeAndAfter);
    EXPECT_EQ(Send(534, 3, 4), 7);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "534 3 4", "after 534" }));
}

TEST_F(SubclassTest, EachTableHasItsOwnMessages)
{
    hook.AddMsg(534, cSubclass::Before);
    hook.AddMsg(562, cSubclass::After);
    Send(534);
    Send(562);
    Send(532);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "534 0 0", "562 0 0", "after 562", "532 0 0" }));
    hook.DelMsg(534, cSubclass::BeforeAndAfter);
    hook.DelMsg(562, cSubclass::Before);
    Send(534);
    Send(562);
    EXPECT_EQ(TakeLog(), (QStringList { "534 0 0", "562 0 0", "after 562" }));
}

TEST_F(SubclassTest, AHandledMessageReachesNeitherTheWindowNorTheAfterCall)
{
    hook.AddMsg(MessageTable::AllMessages, cSubclass::BeforeAndAfter);
    owner.act = [](bool, Owner::Call call) {
        call.bHandled = true;
        call.lReturn = 99;
    };
    EXPECT_EQ(Send(534), 99);
    EXPECT_EQ(TakeLog(), QStringList { "before 534" });
}

TEST_F(SubclassTest, AHandledEventOfTheWindowSystemIsStopped)
{
    window->show();
    hook.AddMsg(Message::PositionChanged, cSubclass::BeforeAndAfter);
    TakeLog();
    window->move(40, 50);
    EXPECT_EQ(TakeLog(), (QStringList { "before 71", "Move", "after 71" }));
    owner.act = [](bool, Owner::Call call) { call.bHandled = true; };
    window->move(80, 90);
    EXPECT_EQ(TakeLog(), QStringList { "before 71" });
}

TEST_F(SubclassTest, AHandledMessageOfAnEventStopsItAndStillLetsTheOwnerHaveTheNext)
{
    window->show();
    hook.AddMsg(Message::ShowHide, cSubclass::BeforeAndAfter);
    hook.AddMsg(Message::PositionChanged, cSubclass::BeforeAndAfter);
    TakeLog();
    window->hide();
    EXPECT_EQ(TakeLog(), (QStringList { "before 24", "before 71", "Hide", "after 71", "after 24" }));
    for (const qint32 handled : { Message::ShowHide, Message::PositionChanged }) {
        owner.act = [handled](bool, Owner::Call call) { call.bHandled = call.uMsg == handled; };
        window->show();
        TakeLog();
        window->hide();
        EXPECT_EQ(TakeLog(), (QStringList { "before 24", "before 71" })) << handled;
    }
}

TEST_F(SubclassTest, AChangedMessageOfAnEventStillLetsTheOwnerHaveTheNext)
{
    window->show();
    hook.AddMsg(Message::ShowHide, cSubclass::Before);
    hook.AddMsg(Message::PositionChanged, cSubclass::Before);
    TakeLog();
    owner.act = [](bool, Owner::Call call) {
        if (call.uMsg == Message::ShowHide)
            call.uMsg = 900;
    };
    window->hide();
    EXPECT_EQ(TakeLog(), (QStringList { "before 24", "900 0 0", "before 71" }));
}

TEST_F(SubclassTest, TheAfterCallSeesAndMaySetTheResult)
{
    hook.AddMsg(534, cSubclass::After);
    qint32 seen = 0;
    owner.act = [&](bool, Owner::Call call) { seen = std::exchange(call.lReturn, 8); };
    EXPECT_EQ(Send(534), 8);
    EXPECT_EQ(seen, 7);
}

TEST_F(SubclassTest, WhatTheBeforeCallChangesIsWhatTheWindowSees)
{
    hook.AddMsg(534, cSubclass::Before);
    hook.AddMsg(900, cSubclass::After);
    owner.act = [](bool isBefore, Owner::Call call) {
        if (!isBefore)
            return;
        call.uMsg = 900;
        call.wParam = 1;
        call.lParam = 2;
    };
    EXPECT_EQ(Send(534, 5, 6), 7);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "900 1 2", "after 900" }));
}

TEST_F(SubclassTest, AChangedWindowGetsTheMessageInsteadOfTheFirst)
{
    Window other;
    hook.AddMsg(534, cSubclass::Before);
    owner.act = [&](bool, Owner::Call call) { call.hWnd = &other; };
    Send(534, 5, 6);
    EXPECT_EQ(TakeLog(), QStringList { "before 534" });
    EXPECT_EQ(other.log, QStringList { "534 5 6" });
}

TEST_F(SubclassTest, ASecondWindowIsRefused)
{
    Window other;
    EXPECT_FALSE(hook.Subclass(other, owner));
    hook.AddMsg(534, cSubclass::Before);
    WindowMessage::Send(other, 534);
    EXPECT_EQ(TakeLog(), QStringList());
}

TEST_F(SubclassTest, NoCallComesOnceTheHookIsOut)
{
    hook.AddMsg(MessageTable::AllMessages, cSubclass::BeforeAndAfter);
    EXPECT_TRUE(hook.UnSubclass());
    EXPECT_FALSE(hook.UnSubclass());
    Send(534);
    EXPECT_EQ(TakeLog(), QStringList { "534 0 0" });
    ASSERT_TRUE(hook.Subclass(*window, owner));
    Send(534);
    EXPECT_EQ(TakeLog(), QStringList { "534 0 0" });
}

TEST_F(SubclassTest, TheHookMayBeTakenOutDuringACall)
{
    for (const bool inBefore : { true, false }) {
        hook.AddMsg(534, cSubclass::BeforeAndAfter);
        owner.act = [&](bool isBefore, Owner::Call) {
            if (isBefore == inBefore)
                hook.UnSubclass();
        };
        EXPECT_EQ(Send(534), 7);
        EXPECT_EQ(TakeLog(),
            inBefore ? (QStringList { "before 534", "534 0 0" })
                     : (QStringList { "before 534", "534 0 0", "after 534" }));
        ASSERT_TRUE(hook.Subclass(*window, owner));
    }
}

TEST_F(SubclassTest, TheWindowMayTakeOutTheHookWhileItHandlesTheMessage)
{
    struct Closer : QObject {
        cSubclass& hook;
        explicit Closer(cSubclass& taken)
            : hook(taken)
        {
        }
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == WindowMessage::Kind())
                hook.UnSubclass();
            return false;
        }
    };
    hook.UnSubclass();
    Closer closer(hook);
    window->installEventFilter(&closer); // comes after the hook, which was set later
    ASSERT_TRUE(hook.Subclass(*window, owner));
    hook.AddMsg(534, cSubclass::BeforeAndAfter);
    Send(534);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "534 0 0" }));
}

TEST_F(SubclassTest, AWindowThatDiesDuringACallIsLeftAlone)
{
    QStringList log;
    Owner killer(log);
    auto* victim = new Window;
    cSubclass itsHook;
    ASSERT_TRUE(itsHook.Subclass(*victim, killer));
    itsHook.AddMsg(534, cSubclass::BeforeAndAfter);
    killer.act = [&](bool, Owner::Call) { delete std::exchange(victim, nullptr); };
    WindowMessage::Send(*victim, 534);
    EXPECT_EQ(log, QStringList { "before 534" });
    EXPECT_FALSE(itsHook.UnSubclass());
}

TEST_F(SubclassTest, AWindowThatDiedLeavesTheHookFreeForAnother)
{
    auto mortal = std::make_unique<Window>();
    Window other;
    cSubclass itsHook;
    ASSERT_TRUE(itsHook.Subclass(*mortal, owner));
    itsHook.AddMsg(534, cSubclass::Before);
    mortal.reset();
    EXPECT_EQ(itsHook.CallOrigWndProc(534, 0, 0), 0);
    EXPECT_TRUE(itsHook.Subclass(other, owner));
    WindowMessage::Send(other, 534);
    EXPECT_EQ(TakeLog(), QStringList());
}

TEST_F(SubclassTest, AnOwnerThatDiedIsNotCalled)
{
    QStringList log;
    auto mortal = std::make_unique<Owner>(log);
    cSubclass itsHook;
    ASSERT_TRUE(itsHook.Subclass(*window, *mortal));
    itsHook.AddMsg(534, cSubclass::BeforeAndAfter);
    mortal.reset();
    EXPECT_EQ(Send(534), 7);
    EXPECT_EQ(log, QStringList());
}

TEST_F(SubclassTest, TheOriginalHandlingIsCalledPastTheOwner)
{
    hook.AddMsg(534, cSubclass::BeforeAndAfter);
    EXPECT_EQ(hook.CallOrigWndProc(534, 1, 2), 7);
    EXPECT_EQ(TakeLog(), QStringList { "534 1 2" });
    hook.UnSubclass();
    EXPECT_EQ(hook.CallOrigWndProc(534, 1, 2), 0);
    EXPECT_EQ(TakeLog(), QStringList());
    EXPECT_FALSE(cSubclass::InIDE());
}

TEST_F(SubclassTest, AMessageSentDuringACallGoesItsOwnWay)
{
    hook.AddMsg(534, cSubclass::BeforeAndAfter);
    hook.AddMsg(562, cSubclass::BeforeAndAfter);
    owner.act = [this](bool isBefore, Owner::Call call) {
        if (isBefore && call.uMsg == 534)
            Send(562);
    };
    Send(534);
    EXPECT_EQ(TakeLog(),
        (QStringList { "before 534", "before 562", "562 0 0", "after 562", "534 0 0", "after 534" }));
}

TEST_F(SubclassTest, ShowingMovingSizingAndHidingAreToldByNumber)
{
    parent.resize(400, 300);
    parent.show();
    window->setParent(&parent);
    QStringList told;
    owner.act = [&](bool, Owner::Call call) {
        if (call.uMsg == Message::PositionChanged) {
            const WindowPosition& place = WindowPosition::At(call.lParam);
            EXPECT_EQ(place.handle, window.get());
            told << QStringLiteral("71:%1,%2,%3,%4,%5")
                        .arg(place.x)
                        .arg(place.y)
                        .arg(place.width)
                        .arg(place.height)
                        .arg(place.flags);
        } else {
            told << QStringLiteral("%1:%2,%3").arg(call.uMsg).arg(call.wParam).arg(call.lParam);
        }
    };
    window->setGeometry(10, 20, 100, 50);
    for (const qint32 message : { Message::PositionChanged, Message::Size, Message::ShowHide })
        hook.AddMsg(message, cSubclass::Before);
    const auto take = [&told] { return std::exchange(told, {}); };
    window->show();
    EXPECT_EQ(take().mid(3), (QStringList { "24:1,0", "71:10,20,100,50,64" }));
    window->move(30, 40);
    EXPECT_EQ(take(), QStringList { "71:30,40,100,50,5" });
    window->resize(120, 60);
    EXPECT_EQ(take(), (QStringList { "71:30,40,120,60,6", "5:0,3932280" })); // 60 * 65536 + 120
    window->raise();
    window->hide();
    EXPECT_EQ(take().last(), QStringLiteral("71:30,40,120,60,128"));
    window->show();
    take();
    parent.hide();
    EXPECT_EQ(take(), (QStringList { "24:0,1", "71:30,40,120,60,128" }));
    parent.show();
    EXPECT_EQ(take(), (QStringList { "24:1,3", "71:30,40,120,60,64" }));
}

TEST_F(SubclassTest, AChangedOrderIsToldAsAPositionThatKeepsPlaceAndSize)
{
    window->setParent(&parent);
    const QWidget sibling(&parent);
    hook.AddMsg(Message::PositionChanged, cSubclass::Before);
    quint32 flags = 0;
    owner.act = [&](bool, Owner::Call call) { flags = WindowPosition::At(call.lParam).flags; };
    window->raise();
    EXPECT_EQ(flags, WindowPosition::KeepsPlace | WindowPosition::KeepsSize);
}

TEST_F(SubclassTest, AnotherParentAndAnotherThemeAreTold)
{
    hook.AddMsg(Message::DisplayChange, cSubclass::Before);
    hook.AddMsg(Message::ThemeChange, cSubclass::Before);
    window->setParent(&parent);
    EXPECT_TRUE(TakeLog().contains(QStringLiteral("before 126")));
    window->setPalette(QPalette(Qt::red));
    EXPECT_EQ(TakeLog(), QStringList { "before 794" });
}

TEST_F(SubclassTest, AScreenThatChangesComesOrGoesIsToldAsAChangedDisplay)
{
    hook.AddMsg(Message::DisplayChange, cSubclass::Before);
    QScreen* const screen = QGuiApplication::primaryScreen();
    const auto expectTold = [this](const char* what) {
        EXPECT_EQ(TakeLog(), QStringList { "before 126" }) << what;
    };
    Q_EMIT screen->geometryChanged(screen->geometry());
    expectTold("another size");
    Q_EMIT screen->physicalDotsPerInchChanged(screen->physicalDotsPerInch());
    expectTold("another density");
    Q_EMIT qGuiApp->screenRemoved(screen);
    expectTold("one that went");
    Q_EMIT qGuiApp->screenAdded(screen);
    expectTold("one that came");
    hook.UnSubclass();
    Q_EMIT screen->geometryChanged(screen->geometry());
    EXPECT_EQ(TakeLog(), QStringList());
}

TEST_F(SubclassTest, OfTwoHooksOnOneWindowTheLaterStandsAroundTheEarlier)
{
    Owner outer(window->log);
    owner.act = [this](bool, Owner::Call) { window->log << QStringLiteral("inner"); };
    cSubclass later;
    ASSERT_TRUE(later.Subclass(*window, outer));
    hook.AddMsg(534, cSubclass::BeforeAndAfter);
    later.AddMsg(534, cSubclass::BeforeAndAfter);
    EXPECT_EQ(Send(534, 3, 4), 7);
    EXPECT_EQ(TakeLog(),
        (QStringList { "before 534", "before 534", "inner", "534 3 4", "after 534", "inner", "after 534" }));
    outer.act = [](bool, Owner::Call call) { call.bHandled = true; };
    Send(534);
    EXPECT_EQ(TakeLog(), QStringList { "before 534" }) << "the earlier one hears nothing of it";
    later.UnSubclass();
    Send(534);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "inner", "534 0 0", "after 534", "inner" }));
}

TEST_F(SubclassTest, TheEarlierOfTwoHooksMayBeTakenOutFirst)
{
    Owner outer(window->log);
    cSubclass later;
    ASSERT_TRUE(later.Subclass(*window, outer));
    for (cSubclass* each : { &hook, &later })
        each->AddMsg(534, cSubclass::BeforeAndAfter);
    owner.act = [](bool, Owner::Call) { ADD_FAILURE() << "its hook is out"; };
    hook.UnSubclass();
    Send(534);
    EXPECT_EQ(TakeLog(), (QStringList { "before 534", "534 0 0", "after 534" }));
}

TEST_F(WindowClassTest, AWindowIsMadeOnceItsClassHasAName)
{
    cWindow nameless;
    EXPECT_FALSE(nameless.WindowClassRegister(QString(), Qt::white));
    EXPECT_EQ(nameless.WindowCreate(0, 0, 0, 0, 1, 1), nullptr);
    EXPECT_FALSE(windows->WindowClassRegister(QStringLiteral("other"), Qt::white));
    EXPECT_EQ(windows->Class(), QStringLiteral("12ShadowCls"));
    const QWidget* const window = Create();
    EXPECT_EQ(window->geometry(), QRect(1, 2, 30, 40));
    EXPECT_EQ(window->objectName(), windows->Class());
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(cWindow::InIDE());
}

TEST_F(WindowClassTest, StylesSayWhereItStandsAndWhatItTakes)
{
    QWidget parent;
    const auto* child = windows->WindowCreate(
        WindowStyle::TransparentForInput, WindowStyle::Child, 0, 0, 1, 1, 0, {}, &parent);
    EXPECT_FALSE(child->isWindow());
    EXPECT_TRUE(child->testAttribute(Qt::WA_TransparentForMouseEvents));
    const auto* popup = windows->WindowCreate(WindowStyle::TransparentForInput | WindowStyle::Layered
            | WindowStyle::TopMost | WindowStyle::ToolWindow,
        WindowStyle::Popup, 0, 0, 1, 1, 0, {}, &parent);
    EXPECT_TRUE(popup->isWindow());
    EXPECT_TRUE(popup->testAttribute(Qt::WA_TranslucentBackground));
    for (const Qt::WindowType flag : { Qt::FramelessWindowHint, Qt::WindowTransparentForInput,
             Qt::WindowStaysOnTopHint, Qt::Tool, Qt::WindowDoesNotAcceptFocus })
        EXPECT_EQ(popup->windowFlags() & flag, flag) << flag;
}

TEST_F(WindowClassTest, ItsOwnerGetsTheMessagesThatWereAdded)
{
    windows->AddMsg(Message::Created);
    windows->AddMsg(Message::Timer);
    LayeredWindow* const window = Create();
    EXPECT_EQ(log, QStringList { "window 1" });
    qintptr told = 0;
    owner.act = [&](bool, Owner::Call call) { told = call.wParam; };
    const int timer = window->startTimer(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == timer; }));
    window->killTimer(timer);
    windows->DelMsg(Message::Created);
    log.clear();
    Create();
    EXPECT_EQ(log, QStringList());
}

TEST_F(WindowClassTest, AHandledMessageSkipsTheDefaultHandling)
{
    windows->AddMsg(MessageTable::AllMessages);
    LayeredWindow* const window = Create();
    owner.act = [](bool, Owner::Call call) {
        call.bHandled = call.uMsg == 900;
        call.lReturn = 5;
    };
    EXPECT_EQ(WindowMessage::Send(*window, 900), 5);
    EXPECT_EQ(WindowMessage::Send(*window, 901), 0);
    log.clear();
    EXPECT_EQ(windows->CallDefWndProc(window, 900, 0, 0), 0);
    EXPECT_EQ(log, QStringList());
}

TEST_F(WindowClassTest, ADestroyedWindowIsGoneAndAStrangerIsRefused)
{
    QPointer<LayeredWindow> window = Create();
    QWidget stranger;
    EXPECT_FALSE(windows->WindowDestroy(&stranger));
    EXPECT_FALSE(windows->WindowDestroy(nullptr));
    EXPECT_TRUE(windows->WindowDestroy(window));
    EXPECT_EQ(window, nullptr);
}

TEST_F(WindowClassTest, ItsWindowsGoWithItFromTheLastToTheFirst)
{
    QStringList gone;
    for (const QString& name : { QStringLiteral("first"), QStringLiteral("second") })
        QObject::connect(Create(), &QObject::destroyed, [&gone, name] { gone << name; });
    windows->AddMsg(MessageTable::AllMessages);
    windows.reset();
    EXPECT_EQ(gone, (QStringList { "second", "first" }));
    EXPECT_EQ(log, QStringList());
}

TEST_F(WindowClassTest, AWindowThatWentWithItsParentIsForgotten)
{
    auto parent = std::make_unique<QWidget>();
    QWidget* const window = Create(parent.get());
    parent.reset();
    EXPECT_FALSE(windows->WindowDestroy(window));
    windows.reset();
}

TEST_F(WindowClassTest, AllMayGoDuringACall)
{
    QWidget parent;
    windows->AddMsg(900);
    const QPointer<LayeredWindow> window = Create(&parent);
    window->show();
    owner.act = [this](bool, Owner::Call) { windows.reset(); };
    WindowMessage::Send(*window, 900);
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(log, QStringList { "window 900" });
}

TEST_F(WindowClassTest, AWindowMayGoDuringItsCreation)
{
    windows->AddMsg(Message::Created);
    owner.act = [this](bool, Owner::Call call) { windows->WindowDestroy(call.hWnd); };
    QWidget parent;
    EXPECT_TRUE(Create(&parent)->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(parent.children().isEmpty());
}
