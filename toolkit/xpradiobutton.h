#pragma once

#include "toolkit/CaptionControl.h"

/// A radio button. After its Click it clears every other one on the whole form, on all panels and whatever
/// group they belong to, then sets itself; a form with several groups restores the other groups by itself.
/// The form is the window the button stands in, or the child window when it stands in one.
class xpradiobutton : public CaptionControl {
    Q_OBJECT

public:
    explicit xpradiobutton(QWidget* parent = nullptr);

    /// Whether it is the chosen one.
    bool Value() const { return value_; }
    /// Stores and repaints; raises nothing and clears no other.
    void SetValue(bool value);

    QAccessible::Role AccessRole() const override { return QAccessible::RadioButton; }
    Qt::CheckState Check() const override { return value_ ? Qt::Checked : Qt::Unchecked; }

protected:
    void AfterClick() override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool value_ = false;
};
