#pragma once

#include "toolkit/CaptionControl.h"

/// A check box whose click reaches the form before its value changes: a click handler reads the value from
/// before.
class xpcheckbox : public CaptionControl {
    Q_OBJECT

public:
    /// What Value takes; a click never makes a box grey.
    enum CheckValue { Clear = 0, Grey = 1, Set = 2 };

    explicit xpcheckbox(QWidget* parent = nullptr);

    /// 0 clear, 1 grey, 2 set. A click turns 1 into 0, 0 into 2, 2 into 0, after the form had its Click.
    int Value() const { return value_; }
    /// Stores and repaints; raises nothing. Anything but 0, 1 and 2 leaves the box as it stood.
    void SetValue(int value);
    /// The shown cell: four cells a value, in the order of State. Pressed cells are 2, 6 and 10.
    int Cell() const;

    QAccessible::Role AccessRole() const override { return QAccessible::CheckBox; }
    Qt::CheckState Check() const override { return static_cast<Qt::CheckState>(value_); }

protected:
    void AfterClick() override;
    void paintEvent(QPaintEvent* event) override;

private:
    int value_ = Clear;
};
