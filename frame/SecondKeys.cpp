#include "frame/SecondKeys.h"

#include "video/ltmmPlay.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace {

const KeyRow* RowOf(const QKeyEvent& event)
{
    // Some layouts have the comma or the period above another sign, and need Shift to type it.
    const bool isShifted = event.key() == Qt::Key_Comma || event.key() == Qt::Key_Period;
    const Qt::KeyboardModifiers meaningless =
        isShifted ? Qt::KeypadModifier | Qt::ShiftModifier : Qt::KeyboardModifiers(Qt::KeypadModifier);
    const QKeyCombination key(event.modifiers() & ~meaningless, Qt::Key(event.key()));
    const auto* row = std::ranges::find(KeyTable, key, &KeyRow::key);
    return row == std::end(KeyTable) ? nullptr : row;
}

} // namespace

SecondKeys::SecondKeys(QWidget& frame, std::function<void(KeyAction)> act)
    : QObject(&frame)
    , frame_(frame)
    , act_(std::move(act))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool SecondKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto& pressed = static_cast<const QKeyEvent&>(*event);
    const KeyRow* const row = RowOf(pressed);
    const auto& widget = static_cast<const QWidget&>(*watched);
    if (!row || !IsOurs(widget) || BelongsToControl(widget, row->key))
        return false;
    if (row->repeat == KeyRow::WhileHeld || !pressed.isAutoRepeat())
        act_(row->action);
    return true;
}

/// A full-screen player is a window of its own, but still a part of the frame.
bool SecondKeys::IsOurs(const QWidget& widget) const
{
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return false;
    for (const QObject* part = &widget; part; part = part->parent())
        if (part == &frame_)
            return true;
    return false;
}

/// What a control leaves of its own keys comes up to the frame.
bool SecondKeys::BelongsToControl(const QWidget& widget, QKeyCombination key) const
{
    if (widget.testAttribute(Qt::WA_InputMethodEnabled))
        return true;
    constexpr std::array<QKeyCombination, 3> ControlKeys { Qt::Key_Space, Qt::Key_Home, Qt::Key_End };
    return std::ranges::count(ControlKeys, key) > 0 && &widget != &frame_
        && !qobject_cast<const ltmmPlay*>(&widget);
}
