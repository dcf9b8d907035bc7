#pragma once

#include <QtGlobal>

#include <memory>

class QWidget;

/// Who gets a hook's messages. A hook holds no count of its owner, but knows when it is gone.
class MessageOwner {
public:
    MessageOwner() = default;
    virtual ~MessageOwner() = default;
    MessageOwner(const MessageOwner&) = delete;
    MessageOwner& operator=(const MessageOwner&) = delete;

    std::weak_ptr<const void> Life() const { return life_; }

private:
    std::shared_ptr<const void> life_ = std::make_shared<char>();
};

/// The owner of a cSubclass.
class iSubclass : public virtual MessageOwner {
public:
    /// bBefore tells whether the window's own handling is still to come. bHandled set then stops it.
    /// Changes of hWnd, uMsg, wParam and lParam are what the window's own handling sees.
    virtual void iSubclass_Proc(bool bBefore, bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg,
        qintptr& wParam, qintptr& lParam) = 0;
};

/// The owner of a cWindow; called ahead of the default handling.
class iWindow : public virtual MessageOwner {
public:
    virtual void iWindow_Proc(
        bool& bHandled, qint32& lReturn, QWidget*& hWnd, qint32& uMsg, qintptr& wParam, qintptr& lParam) = 0;
};
