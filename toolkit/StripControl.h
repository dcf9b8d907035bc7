#pragma once

#include "toolkit/ButtonPaint.h"
#include "toolkit/FocusRing.h"

#include <QAbstractButton>
#include <QTimer>

/// What the controls drawn from image strips share: they relay their mouse and key events to the form, follow
/// the pointer with a polling timer, are pressed by Space and Enter, and show a focus ring when the keyboard
/// brought the focus. The `Enabled` property is the widget's own setEnabled. Callers set the accessible name;
/// the tool tip text stands in for it until they do.
class StripControl : public QAbstractButton {
    Q_OBJECT

public:
    /// What the pointer and setEnabled make of the control.
    enum class State { Rest, Hover, Pressed, Disabled };

    explicit StripControl(QWidget* parent);

    /// The state whose cell is shown.
    State ShownState() const;
    /// Whether the ring of the focus is seen.
    bool HasFocusRing() const { return hasFocus() && ring_.IsWanted(); }

Q_SIGNALS:
    /// The form's click. Whatever a control changes by itself on a click, it changes after this.
    void Click();
    /// The pointer has left the control, a disabled one too; its cell is still the one under the pointer.
    void Leave();
    /// The mouse and the keys as they come, of a disabled control too; places in pixels of the control. The
    /// cell that a mouse event makes is shown by then.
    void MouseDown(Qt::MouseButton button, QPoint place);
    void MouseMove(Qt::MouseButtons buttons, QPoint place);
    void MouseUp(Qt::MouseButton button, QPoint place);
    void KeyDown(int key);
    void KeyUp(int key);

protected:
    /// Called after the form had its Click; the control is still alive.
    virtual void AfterClick() { }
    /// Takes a name as the accessible one, unless the caller has set another.
    void NameAfter(const QString& name);

    /// The look of a button in its present state; a latched one looks so at rest and under the pointer.
    ButtonLook LookWhen(bool latched) const;

    bool event(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void TakePress(const QMouseEvent& event);
    void TakeMove(const QMouseEvent& event);
    void TakeRelease(const QMouseEvent& event);
    void RaiseClick();
    void PollPointer();
    void EndHover();

    QTimer pointerTimer_; ///< runs from the pointer's coming to its leaving
    QString ownName_;
    bool hover_ = false;
    bool isHeld_ = false; ///< the left button was pressed on it and is still down
    FocusRing ring_;
};
