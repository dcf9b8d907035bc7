#include "desktop/SystemDocuments.h"

#include <QDesktopServices>
#include <QUrl>

bool SystemDocuments::Open(const QString& document)
{
    const bool isAddress =
        document.contains(QLatin1String("://")) || document.startsWith(QLatin1String("mailto:"));
    return QDesktopServices::openUrl(isAddress ? QUrl(document) : QUrl::fromLocalFile(document));
}
