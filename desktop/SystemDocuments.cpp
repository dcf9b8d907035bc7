#include "desktop/SystemDocuments.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

bool SystemDocuments::Open(const QString& document)
{
    const bool isAddress =
        document.contains(QLatin1String("://")) || document.startsWith(QLatin1String("mailto:"));
    if (isAddress)
        return QDesktopServices::openUrl(QUrl(document));
    return QFileInfo::exists(document) && QDesktopServices::openUrl(QUrl::fromLocalFile(document));
}
