#pragma once

#include <QLabel>

/// A one-line label with an ellipsis in its middle where its text is wider than itself, so that the name at
/// the end of a path stays in sight; text() stays whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
