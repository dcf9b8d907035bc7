#include "app/Hourglass.h"

#include <QCursor>
#include <QGuiApplication>

void SetPointer(Pointer pointer)
{
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
