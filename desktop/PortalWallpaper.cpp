#include "desktop/PortalWallpaper.h"

#include "base/Descriptor.h"
#include "desktop/FileName.h"
#include "desktop/PortalRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QGuiApplication>
#include <QVariant>
#include <QWindow>

#include <fcntl.h>
#include <utility>

namespace {

/// The window that the desktop's question stands over, as the portal names it.
QString ParentWindow()
{
    const QWindow* const window = QGuiApplication::focusWindow();
    const bool isX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    return window && isX11 ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16) : QString();
}

} // namespace

bool PortalWallpaper::CanSet() const
{
    return QDBusConnection::sessionBus().isConnected();
}

void PortalWallpaper::Set(const QString& path, Done done)
{
    const Descriptor file(::open(FileName::ToBytes(path).constData(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen())
        return done({ Result::NotSet, QStringLiteral("The picture could not be read.") });
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"), QStringLiteral("org.freedesktop.portal.Wallpaper"),
        QStringLiteral("SetWallpaperFile"));
    auto* const request = new PortalRequest(&owner_, std::move(done), limit_);
    call << ParentWindow() << QVariant::fromValue(QDBusUnixFileDescriptor(file.Number()))
         << QVariantMap { { QStringLiteral("handle_token"), request->Token() },
                { QStringLiteral("show-preview"), false },
                { QStringLiteral("set-on"), QStringLiteral("background") } };
    request->Send(call);
}
