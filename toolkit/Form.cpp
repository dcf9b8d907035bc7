#include "toolkit/Form.h"

#include <QMdiSubWindow>

QWidget* FormOf(QWidget* control)
{
    QWidget* form = control;
    while (!form->isWindow() && !qobject_cast<QMdiSubWindow*>(form) && form->parentWidget())
        form = form->parentWidget();
    return form;
}
