#include "toolkit/MessageHook.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace {

MessageCall CallFor(QWidget* window, const MessageParts& message)
{
    return { .hWnd = window, .uMsg = message.uMsg, .wParam = message.wParam, .lParam = message.lParam };
}

bool IsChanged(const MessageCall& call, QWidget* window, const MessageParts& message)
{
    return call.hWnd != window || call.uMsg != message.uMsg || call.wParam != message.wParam
        || call.lParam != message.lParam;
}

/// The result that an event has to give, when it is one that gives any.
void Answer(QEvent& event, qint32 result)
{
    if (event.type() == WindowMessage::Kind())
        static_cast<WindowMessage&>(event).lReturn = result;
}

qint32 AnswerOf(const QEvent& event)
{
    return event.type() == WindowMessage::Kind() ? static_cast<const WindowMessage&>(event).lReturn : 0;
}

} // namespace

MessageHook::MessageHook(
    QWidget& window, const MessageTable& before, const MessageTable& after, Callback callback)
    : window_(&window)
    , before_(before)
    , after_(after)
    , callback_(std::move(callback))
{
    window.installEventFilter(this);
    WatchScreens();
}

void MessageHook::WatchScreens()
{
    const auto watch = [this](QScreen* screen) {
        connect(screen, &QScreen::geometryChanged, this, &MessageHook::DisplayChanged);
        connect(screen, &QScreen::physicalDotsPerInchChanged, this, &MessageHook::DisplayChanged);
    };
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, watch);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &MessageHook::DisplayChanged);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &MessageHook::DisplayChanged);
}

void MessageHook::DisplayChanged()
{
    WindowMessage change(Message::DisplayChange);
    if (window_)
        Dispatch({ { Message::DisplayChange } }, change);
}

qint32 MessageHook::CallOriginal(qint32 uMsg, qintptr wParam, qintptr lParam)
{
    WindowMessage message(uMsg, wParam, lParam);
    if (window_)
        Deliver(*window_, message);
    return message.lReturn;
}

bool MessageHook::eventFilter(QObject* watched, QEvent* event)
{
    if (event == passing_ || watched != window_)
        return false;
    WindowPosition position;
    const Messages messages = translator_.MessagesOf(*event, *window_, position);
    return !messages.empty() && Dispatch(messages, *event);
}

// Whoever is called may take out the hook or destroy the window, so both are looked at again after each call.
bool MessageHook::Dispatch(const Messages& messages, QEvent& event)
{
    const QPointer<MessageHook> hook(this);
    const QPointer<QWidget> window(window_);
    bool isTaken = false;
    for (const MessageParts& message : messages) {
        if (before_.Lets(message.uMsg) && Offer(message, window, event))
            isTaken = true;
        if (!window)
            return true;
        if (!hook)
            return isTaken;
    }
    return isTaken || DeliverBetween(messages, event);
}

bool MessageHook::Offer(const MessageParts& message, const QPointer<QWidget>& window, QEvent& event)
{
    const QPointer<MessageHook> hook(this);
    MessageCall call = CallFor(window, message);
    Call(true, call);
    if (!window)
        return true;
    if (call.bHandled) {
        Answer(event, call.lReturn);
        return true;
    }
    if (!hook || !IsChanged(call, window, message))
        return false;
    DeliverChanged(call, event);
    return true;
}

bool MessageHook::DeliverBetween(const Messages& messages, QEvent& event)
{
    const auto hasAfter = [this](const MessageParts& message) { return after_.Lets(message.uMsg); };
    if (std::none_of(messages.begin(), messages.end(), hasAfter))
        return false;
    const QPointer<MessageHook> hook(this);
    Deliver(*window_, event);
    for (const MessageParts& message : Messages(messages.rbegin(), messages.rend())) {
        if (!hook || !window_)
            return true;
        if (!after_.Lets(message.uMsg))
            continue;
        MessageCall call = CallFor(window_, message);
        call.lReturn = AnswerOf(event);
        Call(false, call);
        Answer(event, call.lReturn);
    }
    return true;
}

// The event itself cannot be changed, so the changed message goes by its numbers.
void MessageHook::DeliverChanged(MessageCall& call, QEvent& event)
{
    const QPointer<MessageHook> hook(this);
    WindowMessage changed(call.uMsg, call.wParam, call.lParam);
    if (call.hWnd)
        Deliver(*call.hWnd, changed);
    call.lReturn = changed.lReturn;
    if (hook && after_.Lets(call.uMsg))
        Call(false, call);
    Answer(event, call.lReturn);
}

void MessageHook::Call(bool isBefore, MessageCall& call)
{
    const QPointer<MessageHook> hook(this);
    const Callback callback = callback_; // lives on when the hook goes
    ++calls_;
    callback(isBefore, call);
    if (hook)
        --calls_;
}

void MessageHook::Deliver(QWidget& window, QEvent& event)
{
    const QPointer<MessageHook> hook(this);
    const QEvent* const outer = std::exchange(passing_, &event);
    QCoreApplication::sendEvent(&window, &event);
    if (hook)
        passing_ = outer;
}
