#include "toolkit/LinkOpener.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

void DesktopLinks::OpenDocument(const QString& address, QWidget*)
{
    QDesktopServices::openUrl(QUrl(address));
}

void DesktopLinks::NavigateTo(const QString& address)
{
    QDesktopServices::openUrl(QUrl::fromUserInput(address));
}
