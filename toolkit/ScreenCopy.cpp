#include "toolkit/ScreenCopy.h"

#include <QPainter>
#include <QScreen>
#include <QWidget>

QImage CopyInside(QWidget& host, const QRect& place, const QList<QWidget*>& leftOut)
{
    const qreal scale = host.devicePixelRatioF();
    QImage copy((QSizeF(place.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    copy.setDevicePixelRatio(scale);
    copy.fill(Qt::transparent);
    QPainter painter(&copy);
    const QRect seen = place & host.rect();
    host.render(&painter, seen.topLeft() - place.topLeft(), seen, QWidget::DrawWindowBackground);
    // Children are kept in stacking order, the topmost last.
    for (auto* child : host.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QRect part = seen & child->geometry();
        if (part.isEmpty() || child->isHidden() || child->isWindow() || leftOut.contains(child))
            continue;
        child->render(&painter, part.topLeft() - place.topLeft(), part.translated(-child->pos()),
            QWidget::DrawWindowBackground | QWidget::DrawChildren);
    }
    return copy;
}

QImage CopyOfScreen(const QWidget& form, const QRect& place)
{
    QScreen& screen = *form.screen();
    const QPoint corner = place.topLeft() - screen.geometry().topLeft();
    return screen.grabWindow(0, corner.x(), corner.y(), place.width(), place.height()).toImage();
}
