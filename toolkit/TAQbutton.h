#pragma once

#include "toolkit/Face.h"
#include "toolkit/StripControl.h"

#include <QColor>

/// A command button: a picture over its caption. `Caption` is the button's text, `Font` the widget's font.
class TAQbutton : public StripControl {
    Q_OBJECT

public:
    explicit TAQbutton(QWidget* parent = nullptr);

    /// 0 up; any other value is shown latched.
    int State() const { return state_; }
    void SetState(int state);
    /// The text below the picture; also the accessible name until the caller gives another.
    QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    /// Colour of the caption; the style's own until one is set.
    QColor ForeColor() const;
    void SetForeColor(const QColor& color);
    /// The picture over the caption.
    void SetFace(Face face);
    /// What is seen of it now.
    Face ShownFace() const { return face_; }
    ButtonLook ShownLook() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
    QColor foreColor_;
    Face face_ = Face::None;
    int state_ = 0;
};
