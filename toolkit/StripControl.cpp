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

// The mouse is taken here, because the base class keeps a disabled control's events to itself, and because a
// form is told of it only when the cell stands.
bool StripControl::event(QEvent* event)
{
    const QPointer<StripControl> alive(this);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        TakePress(static_cast<QMouseEvent&>(*event));
        return true;
    case QEvent::MouseMove:
        TakeMove(static_cast<QMouseEvent&>(*event));
        return true;
    case QEvent::MouseButtonRelease:
        TakeRelease(static_cast<QMouseEvent&>(*event));
        return true;
    case QEvent::KeyPress:
        Q_EMIT KeyDown(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::KeyRelease:
        Q_EMIT KeyUp(static_cast<QKeyEvent*>(event)->key());
        break;
    case QEvent::ToolTipChange:
        NameAfter(toolTip().trimmed());
        break;
    default:
        break;
    }
    return !alive || QAbstractButton::event(event);
}

void StripControl::TakePress(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton)
        isHeld_ = true;
    setDown(isEnabled());
    Q_EMIT MouseDown(event.button(), event.position().toPoint());
}

void StripControl::TakeMove(const QMouseEvent& event)
{
    const QPoint place = event.position().toPoint();
    const bool isInside = rect().contains(place);
    isHeld_ = isHeld_ && event.buttons().testFlag(Qt::LeftButton);
    setDown(isEnabled() && isHeld_ && isInside);
    if (isInside) {
        pointerTimer_.start();
        hover_ = true;
        update();
    }
    Q_EMIT MouseMove(event.buttons(), place);
}

void StripControl::TakeRelease(const QMouseEvent& event)
{
    const bool isLeft = event.button() == Qt::LeftButton;
    const bool isClick = isLeft && isHeld_ && isDown() && rect().contains(event.position().toPoint());
    isHeld_ = isHeld_ && !isLeft;
    setDown(isDown() && isHeld_);
    const QPointer<StripControl> alive(this);
    Q_EMIT MouseUp(event.button(), event.position().toPoint());
    if (alive && isClick)
        Q_EMIT clicked();
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
    if (!pointerTimer_.isActive())
        return;
    pointerTimer_.stop();
    const QPointer<StripControl> alive(this);
    Q_EMIT Leave();
    if (!alive)
        return;
    hover_ = pointerTimer_.isActive(); // it may have come back meanwhile
    update();
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
