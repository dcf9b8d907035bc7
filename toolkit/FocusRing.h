#pragma once

#include <Qt>

/// Whether a control with the focus shows a ring: once the keyboard is in use, and not for the mouse's sake.
class FocusRing {
public:
    /// Holds while the control has the focus.
    bool IsWanted() const { return isWanted_; }

    /// A window or menu that comes back leaves the ring as it was.
    void TakeFocus(Qt::FocusReason reason)
    {
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            isWanted_ = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                || reason == Qt::ShortcutFocusReason;
    }
    /// The control was used by a key, or by the mouse.
    void TakeKey() { isWanted_ = true; }
    void TakeMouse() { isWanted_ = false; }

private:
    bool isWanted_ = false;
};
