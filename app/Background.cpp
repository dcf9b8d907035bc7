#include "app/Background.h"

#include "toolkit/Twips.h"

#include <QPainter>

QImage ComposeBackground(const QImage& source, QSize clientSize, Placement placement)
{
    const int extra = (75_twips).Pixels();
    QImage target(clientSize + QSize(extra, extra), QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    if (source.isNull())
        return target;
    QPainter painter(&target);
    if (placement == Placement::Tiled)
        painter.fillRect(target.rect(), QBrush(source));
    else
        painter.drawImage(QPoint(clientSize.width() - source.width(), clientSize.height() - source.height()), source);
    return target;
}
