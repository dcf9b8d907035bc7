#include "toolkit/LayeredWindow.h"

#include <QEvent>
#include <QPainter>
#include <QWindow>

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

void LayeredWindow::showEvent(QShowEvent*)
{
    if (isWindow() && windowFlags().testFlag(Qt::WindowTransparentForInput))
        windowHandle()->installEventFilter(this);
}

// A window manager that puts its own frame around the window learns that input goes through only from a
// change after it has done so, which is when the window stands on the screen.
bool LayeredWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == windowHandle() && event->type() == QEvent::Expose && windowHandle()->isExposed()) {
        watched->removeEventFilter(this);
        windowHandle()->setFlag(Qt::WindowTransparentForInput, false);
        windowHandle()->setFlag(Qt::WindowTransparentForInput, true);
    }
    return false;
}

void LayeredWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (background_.isValid())
        painter.fillRect(rect(), background_);
    painter.setOpacity(constantAlpha_ / 255.0);
    painter.drawImage(0, 0, picture_);
}
