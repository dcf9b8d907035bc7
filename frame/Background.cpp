#include "frame/Background.h"

#include "app/ControlError.h"
#include "app/OpenUserPicture.h"
#include "toolkit/Twips.h"

#include <QFileInfo>
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

const QImage& BackgroundPicture::Of(const QString& path)
{
    const QDateTime written = QFileInfo(path).lastModified();
    if (path == path_ && written == written_)
        return picture_;
    path_ = path;
    written_ = written;
    picture_ = QImage();
    IgnoreErrors([&] { picture_ = OpenUserPicture(path); });
    return picture_;
}
