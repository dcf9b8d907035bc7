#pragma once

#include <QAbstractButton>
#include <QImage>

/// One thumbnail: a capture at full size, painted into the cell with its aspect kept.
class ThumbCell : public QAbstractButton {
    Q_OBJECT

public:
    static constexpr QSize Size { 160, 120 };

    ThumbCell(const QImage& picture, int number, QWidget* parent);

    const QImage& Bitmap() const { return bitmap_; }
    /// A brief tint of the painted cell, to show that it was picked.
    void Flash();
    void SetHighlighted(bool highlighted);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage bitmap_;
    bool isTinted_ = false;
    bool isHighlighted_ = false;
};
