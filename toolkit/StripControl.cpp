#include "toolkit/StripControl.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

namespace {

// Short enough that a button never seems stuck, long enough to cost nothing.
constexpr int PollMilliseconds = 50;

bool IsEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

StripControl::StripControl(QWidget* parent)
    : QAbstractButton(parent)
{
    setMouseTracking(true);
    // A click leaves the keyboard where it was, so that Space goes on pausing the video after it.
    setFocusPolicy(Qt::TabFocus);
    // A press on a disabled button must not drag the window behind it.
    setAttribute(Qt::WA_NoMousePropagation);
    pointerTimer_.setInterval(PollMilliseconds);
    connect(&pointerTimer_, &QTimer::timeout, this, &StripControl::PollPointer);
    connect(this, &QAbstractButton::clicked, this, &StripControl::RaiseClick);
}

StripControl::State StripControl::ShownState() const
{
    if (!isEnabled())
        return State::Disabled;
    if (isDown())
        return State::Pressed;
    return hover_ ? State::Hover : State::Rest;
}

ButtonLook StripControl::LookWhen(bool latched) const
{
    switch (ShownState()) {
    case State::Disabled:
        return ButtonLook::Disabled;
    case State::Pressed:
        return ButtonLook::Pressed;
    case State::Hover:
        return latched ? ButtonLook::Latched : ButtonLook::Hover;
    case State::Rest:
        break;
    }
    return latched ? ButtonLook::Latched : ButtonLook::Rest;
}

void StripControl::NameAfter(const QString& name)
{
    if (name.isEmpty() || accessibleName() != ownName_)
        return;
    ownName_ = name;
    setAccessibleName(name);
}

bool StripControl::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTipChange)
        NameAfter(toolTip().trimmed());
    const QPointer<StripControl> alive(this);
    Relay(event);
    return alive ? QAbstractButton::event(event) : true;
}

// Told before the base class sees the event, because that keeps a disabled control's events to itself, and
// the form is to have them in any case.
void StripControl::Relay(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseDown(mouse->button(), mouse->position().toPoint());
        break;
    }
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseMove(mouse->buttons(), mouse->position().toPoint());
        break;
    }
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        Q_EMIT MouseUp(mouse->button(), mouse->position().toPoint());
        break;
    }
    case QEvent::KeyPress:
        Q_EMIT KeyDown(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::KeyRelease:
        Q_EMIT KeyUp(static_cast<QKeyEvent*>(event)->key());
        break;
    default:
        break;
    }
}

void StripControl::mouseMoveEvent(QMouseEvent* event)
{
    QAbstractButton::mouseMoveEvent(event);
    if (!rect().contains(event->position().toPoint()))
        return;
    pointerTimer_.start();
    hover_ = true;
    update();
}

void StripControl::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    EndHover();
}

// The leave event is missed when a window opens over the control or the pointer is held by another.
void StripControl::PollPointer()
{
    if (!QRect(mapToGlobal(QPoint(0, 0)), size()).contains(QCursor::pos()))
        EndHover();
}

void StripControl::EndHover()
{
    if (!hover_)
        return;
    pointerTimer_.stop();
    hover_ = false;
    update();
    Q_EMIT Leave();
}

void StripControl::keyPressEvent(QKeyEvent* event)
{
    ring_.TakeKey();
    update();
    if (!IsEnter(*event)) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat())
        click();
}

void StripControl::focusInEvent(QFocusEvent* event)
{
    ring_.TakeFocus(event->reason());
    QAbstractButton::focusInEvent(event);
}

void StripControl::RaiseClick()
{
    const QPointer<StripControl> alive(this);
    Q_EMIT Click();
    if (alive)
        AfterClick();
}
