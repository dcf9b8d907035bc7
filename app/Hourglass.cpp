#include "app/Hourglass.h"

#include <QCursor>
#include <QGuiApplication>

namespace {

int settings = 0; ///< calls of SetPointer
int setting = 0; ///< the one that is in force

} // namespace

void SetPointer(Pointer pointer)
{
    setting = ++settings;
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
    if (pointer == Pointer::Busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (pointer == Pointer::ArrowWithHourglass)
        QGuiApplication::setOverrideCursor(Qt::BusyCursor);
}

Pointer CurrentPointer()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    if (!cursor)
        return Pointer::Normal;
    return cursor->shape() == Qt::BusyCursor ? Pointer::ArrowWithHourglass : Pointer::Busy;
}

PointerPause::PointerPause()
    : before_(CurrentPointer())
    , settingBefore_(setting)
{
    SetPointer(Pointer::Normal);
    own_ = setting;
}

PointerPause::~PointerPause()
{
    if (setting != own_)
        return;
    SetPointer(before_);
    setting = settingBefore_; // for the pause around this one
}
