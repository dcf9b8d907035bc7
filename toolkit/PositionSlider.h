#pragma once

#include "toolkit/FocusRing.h"

#include <QAbstractSlider>

/// A place on a scale from 0 to Max with a selected range: groove, fill up to the place, range and handle.
class PositionSlider : public QAbstractSlider {
    Q_OBJECT

public:
    explicit PositionSlider(QWidget* parent = nullptr);

    /// The end of the scale, at least 0.
    int Max() const { return maximum(); }
    void SetMax(int max);
    /// The place on the scale.
    int Value() const { return value(); }
    /// Follows the caller, kept within 0 and Max, and raises no Scroll. Ignored while the user holds the
    /// handle.
    void SetValue(int value);
    /// Where the selected range begins, on the scale.
    int SelStart() const { return selStart_; }
    void SetSelStart(int start);
    /// How far it reaches from there; 0 shows no range.
    int SelLength() const { return selLength_; }
    void SetSelLength(int length);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user moved the handle, by drag, click or keys; Value is the new place.
    void Scroll();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void MoveByUser(int value);
    QRect Groove() const;
    int XOf(int value) const;
    int ValueAt(int x) const;
    void PaintGroove(QPainter& painter) const;
    void PaintSelection(QPainter& painter) const;
    void PaintHandle(QPainter& painter) const;

    int selStart_ = 0;
    int selLength_ = 0;
    bool hover_ = false;
    FocusRing ring_;
};
