#include "frame/DroppedFile.h"

#include "desktop/FileName.h"

#include <QMimeData>
#include <QUrl>

QString FirstFile(const QMimeData& data)
{
    const QUrl first = data.urls().value(0);
    const bool isHere = first.host().isEmpty() || first.host() == QLatin1String("localhost");
    if (!first.isLocalFile() || !isHere)
        return {};
    return FileName::FromBytes(QByteArray::fromPercentEncoding(first.path(QUrl::FullyEncoded).toLatin1()));
}
