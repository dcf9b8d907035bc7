#pragma once

#include "toolkit/Face.h"
#include "toolkit/StripControl.h"

#include <QAccessible>
#include <QColor>

class QPainter;

/// What the check box and the radio button share: a small picture with a caption to its right, which may run
/// over several lines (written with line breaks). `Font` is the widget's font.
class CaptionControl : public StripControl {
    Q_OBJECT

public:
    explicit CaptionControl(QWidget* parent);

    /// A new control takes its object name as caption until one is set.
    QString Caption() const { return text(); }
    void SetCaption(const QString& caption);
    /// The style's own colours until others are set.
    QColor ForeColor() const;
    void SetForeColor(const QColor& color);
    /// Painted behind picture and caption; nothing until it is set.
    QColor BackColor() const { return backColor_; }
    void SetBackColor(const QColor& color);

    /// What assistive technology is told of the control and its value.
    virtual QAccessible::Role AccessRole() const = 0;
    virtual Qt::CheckState Check() const = 0;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// The value has changed: repaints, and tells those who listen for the screen.
    void ShowCheck();
    /// Ground, edge and mark of the picture, each a cell; mark may be Face::None.
    void PaintWith(Face ground, Face edge, Face mark);

private:
    QColor foreColor_;
    QColor backColor_;
    bool captionSet_ = false;
};
