#include "toolkit/LayeredWindow.h"

#include <QPainter>

LayeredWindow::LayeredWindow(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void LayeredWindow::SetBackground(const QColor& color)
{
    background_ = color;
    update();
}

void LayeredWindow::UpdateLayered(const QRect& place, const QImage& picture, int constantAlpha)
{
    setGeometry(place);
    picture_ = picture;
    constantAlpha_ = constantAlpha;
    update();
}

void LayeredWindow::SetConstantAlpha(int constantAlpha)
{
    constantAlpha_ = constantAlpha;
    update();
}

void LayeredWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (background_.isValid())
        painter.fillRect(rect(), background_);
    painter.setOpacity(constantAlpha_ / 255.0);
    painter.drawImage(0, 0, picture_);
}
