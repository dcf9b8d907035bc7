#pragma once

#include <QLabel>

/// A one-line label that ends in an ellipsis where its text is wider than itself; text() stays whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
