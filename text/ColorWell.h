#pragma once

#include "toolkit/StripControl.h"

#include <QColor>

/// A button that shows a colour.
class ColorWell : public StripControl {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent);

    QColor Color() const { return color_; }
    void SetColor(const QColor& color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color_ = Qt::black;
};
