#include "media/player/PaintShot.h"

#include <QPainter>
#include <QRegion>

namespace player {

void PaintShot(QPainter& painter, const View& view, const Shot& shot, const QBrush& ground)
{
    const QRect area(QPoint(), view.area);
    if (shot.screen.isNull()) {
        painter.fillRect(area, ground);
        return;
    }
    const QRectF place = ShownRect(view, ShownSize(view, shot.picture.Size()));
    // A place between device-independent pixels shares its border pixels with the ground.
    const QRect covered = QRect(QPoint(qCeil(place.left()), qCeil(place.top())),
        QPoint(qFloor(place.right()) - 1, qFloor(place.bottom()) - 1));
    for (const QRect& margin : QRegion(area) - covered)
        painter.fillRect(margin, ground);
    painter.drawImage(place, shot.screen);
}

bool IsOutdated(const Shot& shot, const View& view)
{
    const QSize size = ShownSize(view, shot.picture.Size());
    const bool isBlank = size.isEmpty() && shot.screen.isNull();
    return !shot.IsNull() && !isBlank && shot.screen.size() != size;
}

} // namespace player
