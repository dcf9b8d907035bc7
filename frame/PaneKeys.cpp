#include "frame/PaneKeys.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

namespace {

bool TakesKeys(const QWidget* widget)
{
    return widget && (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled()
        && widget->isVisible();
}

QWidget* Entry(QWidget* pane)
{
    if (!pane)
        return nullptr;
    if (QWidget* last = pane->focusWidget(); last != pane && TakesKeys(last))
        return last;
    for (QWidget* next = pane->nextInFocusChain(); next != pane; next = next->nextInFocusChain())
        if (pane->isAncestorOf(next) && TakesKeys(next))
            return next;
    return nullptr;
}

bool HasKeys(const QWidget* pane)
{
    const QWidget* at = QApplication::focusWidget();
    return pane && at && (pane == at || pane->isAncestorOf(at));
}

} // namespace

PaneKeys::PaneKeys(QWidget& window, QList<Pane> panes)
    : QObject(&window)
    , panes_(std::move(panes))
{
    const auto bind = [&](const QKeySequence& keys, qsizetype step) {
        connect(new QShortcut(keys, &window), &QShortcut::activated, this, [this, step] { Move(step); });
    };
    bind(Qt::Key_F6, 1);
    bind(Qt::SHIFT | Qt::Key_F6, -1);
}

void PaneKeys::Move(qsizetype step)
{
    const qsizetype count = panes_.size();
    qsizetype at = 0;
    while (at < count && !HasKeys(panes_[at]()))
        ++at;
    if (at == count)
        at = step > 0 ? -1 : 0; // from outside, F6 comes to the first pane and Shift+F6 to the last
    for (qsizetype tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        if (QWidget* entry = Entry(panes_[at]()))
            return entry->setFocus(Qt::TabFocusReason);
    }
}
