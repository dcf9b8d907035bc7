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

QImage BackgroundPicture::Of(const QString& path, const std::function<void()>& whileWaiting)
{
    const QDateTime written = QFileInfo(path).lastModified();
    if (path == path_ && written == written_)
        return picture_;
    path_ = path;
    const QString asked = path; // the setting may change while its file is read
    written_ = written;
    picture_ = QImage();
    QImage picture;
    IgnoreErrors([&] { picture = OpenUserPicture(asked, whileWaiting); });
    if (path_ == asked && written_ == written) // and no other was asked for meanwhile
        picture_ = picture;
    return picture_;
}
