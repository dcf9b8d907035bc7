#include "viewers/FullPlace.h"

QRect FullPlace(QSize picture, QSize screen)
{
    const bool isLarger = picture.width() > screen.width() || picture.height() > screen.height();
    const QSize size = isLarger ? picture.scaled(screen, Qt::KeepAspectRatio).expandedTo({ 1, 1 }) : picture;
    return { QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2), size };
}
