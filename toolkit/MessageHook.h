#pragma once

#include "toolkit/MessageTable.h"
#include "toolkit/WindowMessage.h"

#include <functional>

/// One message on its way through a hook, as the owner may change it.
struct MessageCall {
    bool bHandled = false;
    qint32 lReturn = 0;
    QWidget* hWnd = nullptr;
    qint32 uMsg = 0;
    qintptr wParam = 0;
    qintptr lParam = 0;
};

/// Stands between one window and its events, and turns them into messages for an owner: first those that the
/// before-table lets through, then the window's own handling, then those of the after-table. An event may
/// stand for two messages: a before-call that handles or changes one of them stops the event and its
/// after-calls, but the other one's before-call still comes. The hook may go at any time, also during a call;
/// nothing is called afterwards. An event with an after-call is delivered by the hook itself, so other
/// filters of the window see it twice.
class MessageHook : public QObject {
    Q_OBJECT

public:
    using Callback = std::function<void(bool isBefore, MessageCall& call)>;

    /// The tables outlive the hook.
    MessageHook(QWidget& window, const MessageTable& before, const MessageTable& after, Callback callback);

    /// The window's own handling of a message, past this hook.
    qint32 CallOriginal(qint32 uMsg, qintptr wParam, qintptr lParam);
    /// A call to the owner is under way.
    bool IsCalling() const { return calls_ > 0; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchScreens();
    void DisplayChanged();
    using Messages = std::vector<MessageParts>;
    /// These tell whether the event is done with.
    bool Dispatch(const Messages& messages, QEvent& event);
    bool Offer(const MessageParts& message, const QPointer<QWidget>& window, QEvent& event);
    bool DeliverBetween(const Messages& messages, QEvent& event);
    void DeliverChanged(MessageCall& call, QEvent& event);
    void Call(bool isBefore, MessageCall& call);
    /// To a window past this hook.
    void Deliver(QWidget& window, QEvent& event);

    QPointer<QWidget> window_;
    const MessageTable& before_;
    const MessageTable& after_;
    Callback callback_;
    MessageTranslator translator_;
    const QEvent* passing_ = nullptr;
    int calls_ = 0;
};
