#pragma once

#include <QImage>
#include <QWidget>

/// A window that is nothing but a picture, with its own alpha and one opacity over all.
class LayeredWindow : public QWidget {
    Q_OBJECT

public:
    explicit LayeredWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = {});

    /// What a part without a picture shows; nothing unless set.
    void SetBackground(const QColor& color);
    /// Puts the window at a place with a picture and an opacity of 0 to 255.
    void UpdateLayered(const QRect& place, const QImage& picture, int constantAlpha);
    /// Changes the opacity alone.
    void SetConstantAlpha(int constantAlpha);
    const QImage& Picture() const { return picture_; }
    int ConstantAlpha() const { return constantAlpha_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QImage picture_;
    QColor background_;
    int constantAlpha_ = 255;
};
