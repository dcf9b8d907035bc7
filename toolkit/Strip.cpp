#include "toolkit/Strip.h"

#include "toolkit/Artwork.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace {

QString StripFile(Face face)
{
    const std::string_view name = FactsOf(face).strip;
    return QStringLiteral(":/art/%1.svg")
        .arg(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
}

QPixmap Render(Face face, const QColor& tint, int devicePixels)
{
    LoadArtwork();
    QPixmap cell(devicePixels, devicePixels);
    cell.fill(Qt::transparent);
    QSvgRenderer strip(StripFile(face));
    strip.setViewBox(QRectF(CellOf(face) * Strip::CellSize, 0, Strip::CellSize, Strip::CellSize));
    QPainter painter(&cell);
    strip.render(&painter, QRectF(cell.rect()));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(cell.rect(), tint);
    return cell;
}

} // namespace

QPixmap Strip::Cell(Face face, const QColor& tint, int side, qreal pixelRatio)
{
    const int devicePixels = static_cast<int>(std::lround(side * pixelRatio));
    const QString key = QStringLiteral("strip/%1/%2/%3")
                            .arg(static_cast<int>(face))
                            .arg(tint.name(QColor::HexArgb))
                            .arg(devicePixels);
    QPixmap cell;
    if (!QPixmapCache::find(key, &cell)) {
        cell = Render(face, tint, devicePixels);
        QPixmapCache::insert(key, cell);
    }
    cell.setDevicePixelRatio(pixelRatio);
    return cell;
}

void Strip::Paint(QPainter& painter, const QRect& area, Face face, const QColor& tint, int side)
{
    if (face == Face::None)
        return;
    const QPoint corner(area.x() + (area.width() - side) / 2, area.y() + (area.height() - side) / 2);
    painter.drawPixmap(corner, Cell(face, tint, side, painter.device()->devicePixelRatioF()));
}
