#include "frame/DroppedFile.h"

#include "desktop/FileName.h"

#include <QMimeData>
#include <QUrl>

QString FileOf(const QUrl& address)
{
    const bool isHere = address.host().isEmpty() || address.host() == QLatin1String("localhost");
    if (!address.isLocalFile() || !isHere)
        return {};
    return FileName::FromBytes(QByteArray::fromPercentEncoding(address.path(QUrl::FullyEncoded).toLatin1()));
}

QString FirstFile(const QMimeData& data)
{
    return FileOf(data.urls().value(0));
}
