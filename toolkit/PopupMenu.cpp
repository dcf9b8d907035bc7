#include "toolkit/PopupMenu.h"

#include <QMouseEvent>

PopupMenu::PopupMenu(QWidget* parent)
    : QMenu(parent)
{
    connect(this, &QMenu::triggered, this, [this](QAction* action) {
        // Qt turns a check over at the choice; here the check says a state, which the caller sets.
        if (action->isCheckable())
            action->setChecked(!action->isChecked());
        Q_EMIT Chosen(static_cast<int>(actions().indexOf(action)));
    });
}

void PopupMenu::SetItems(const QStringList& texts)
{
    clear();
    for (QString text : texts)
        addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void PopupMenu::SetChecked(int item, bool checked)
{
    QAction* action = actions().at(item);
    action->setCheckable(true);
    action->setChecked(checked);
}

void PopupMenu::SetItemEnabled(int item, bool enabled)
{
    actions().at(item)->setEnabled(enabled);
}

void PopupMenu::Open(QPoint screenPlace)
{
    popup(screenPlace);
}

void PopupMenu::mouseMoveEvent(QMouseEvent* event)
{
    QMenu::mouseMoveEvent(event);
    if (!rect().contains(event->position().toPoint()))
        Q_EMIT MovedOutside(event->globalPosition().toPoint());
}
