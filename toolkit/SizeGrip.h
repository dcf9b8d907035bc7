#pragma once

#include <QWidget>

class FrameDrag;

/// The corner by which a form is sized: a press with the left button starts the drag.
class SizeGrip : public QWidget {
    Q_OBJECT

public:
    static constexpr int Side = 16;

    /// drag outlives the grip.
    SizeGrip(FrameDrag& drag, QWidget* parent);
    /// Puts the grip into the lower right corner of its parent, margin pixels away from it, above its
    /// siblings.
    void MoveToCorner(int margin = 0);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    FrameDrag& drag_;
};
