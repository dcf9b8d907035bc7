#include "toolkit/cSubclass.h"

#include "toolkit/MessageHook.h"

cSubclass::cSubclass() = default;

cSubclass::~cSubclass()
{
    UnSubclass();
}

bool cSubclass::Subclass(QWidget& hWnd, iSubclass& Owner)
{
    if (hook_)
        return false;
    const auto tell = [owner = &Owner, life = Owner.Life()](bool isBefore, MessageCall& call) {
        if (!life.expired())
            owner->iSubclass_Proc(
                isBefore, call.bHandled, call.lReturn, call.hWnd, call.uMsg, call.wParam, call.lParam);
    };
    hook_ = std::make_unique<MessageHook>(hWnd, before_, after_, tell);
    QObject::connect(&hWnd, &QObject::destroyed, hook_.get(), [this] { UnSubclass(); });
    return true;
}

bool cSubclass::UnSubclass()
{
    if (!hook_)
        return false;
    before_.Clear();
    after_.Clear();
    hook_.reset();
    return true;
}

void cSubclass::AddMsg(qint32 uMsg, When when)
{
    if (when & Before)
        before_.Add(uMsg);
    if (when & After)
        after_.Add(uMsg);
}

void cSubclass::DelMsg(qint32 uMsg, When when)
{
    if (when & Before)
        before_.Delete(uMsg);
    if (when & After)
        after_.Delete(uMsg);
}

qint32 cSubclass::CallOrigWndProc(qint32 uMsg, qintptr wParam, qintptr lParam)
{
    return hook_ ? hook_->CallOriginal(uMsg, wParam, lParam) : 0;
}
