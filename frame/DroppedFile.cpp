#include "frame/DroppedFile.h"

#include "desktop/FileName.h"

#include <QMimeData>
#include <QUrl>

QString FirstFile(const QMimeData& data)
{
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            return FileName::FromBytes(
                QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
    return {};
}
