#include "toolkit/LinkOpener.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

namespace {

// The desktop finds the program for an address by itself, so both ways lead to one door.
class DesktopOpener : public LinkOpener {
public:
    void OpenDocument(const QString& address, QWidget*) override { QDesktopServices::openUrl(QUrl(address)); }
    void NavigateTo(const QString& address) override
    {
        QDesktopServices::openUrl(QUrl::fromUserInput(address));
    }
};

} // namespace

LinkOpener& DesktopLinks()
{
    static DesktopOpener opener;
    return opener;
}
