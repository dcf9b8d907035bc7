#pragma once

#include "toolkit/MessageOwner.h"
#include "toolkit/MessageTable.h"

#include <memory>

class MessageHook;

/// Lets an object take part in the messages of one existing window. Order of use: Subclass, then one AddMsg
/// per message. Its end, the owner's and the window's all take the hook out.
class cSubclass {
public:
    /// A bit set.
    enum When { After = 1, Before = 2, BeforeAndAfter = After | Before };

    cSubclass();
    ~cSubclass();
    cSubclass(const cSubclass&) = delete;
    cSubclass& operator=(const cSubclass&) = delete;

    /// False, and nothing done, when a window is hooked already.
    bool Subclass(QWidget& hWnd, iSubclass& Owner);
    /// Empties both tables. False when no window was hooked.
    bool UnSubclass();
    void AddMsg(qint32 uMsg, When when);
    void DelMsg(qint32 uMsg, When when);
    /// The result of the window's own handling; 0 when no window is hooked.
    qint32 CallOrigWndProc(qint32 uMsg, qintptr wParam, qintptr lParam);
    static bool InIDE() { return false; }

private:
    MessageTable before_;
    MessageTable after_;
    std::unique_ptr<MessageHook> hook_;
};
