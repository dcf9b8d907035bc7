#include "frame/Background.h"

#include "toolkit/Twips.h"

#include <QPainter>

QImage ComposeBackground(const QImage& source, QSize clientSize, Placement placement, QColor ground)
{
    const int extra = (75_twips).Pixels();
    QImage target(clientSize + QSize(extra, extra), QImage::Format_RGB32);
    target.fill(ground);
    if (source.isNull())
        return target;
    QPainter painter(&target);
    if (placement == Placement::Tiled)
        painter.fillRect(target.rect(), QBrush(source));
    else
        painter.drawImage(
            QPoint(clientSize.width() - source.width(), clientSize.height() - source.height()), source);
    return target;
}
