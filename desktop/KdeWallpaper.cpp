#include "desktop/KdeWallpaper.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <QUrl>

namespace {

constexpr int LongestWait = 10'000; // milliseconds

/// Says how many screens it has given the picture.
constexpr auto Script = R"(
var address = %1[0];
var all = desktops();
for (var i = 0; i < all.length; ++i) {
    all[i].wallpaperPlugin = "org.kde.image";
    all[i].currentConfigGroup = ["Wallpaper", "org.kde.image", "General"];
    all[i].writeConfig("Image", "");
    all[i].writeConfig("Image", address);
}
print(all.length);
)";

/// As a text of the script's language, whatever the name of the file holds.
QString Literal(const QString& text)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray { text }).toJson(QJsonDocument::Compact));
}

} // namespace

bool KdeWallpaper::CanSet() const
{
    return QDBusConnection::sessionBus().isConnected();
}

void KdeWallpaper::Set(const QString& path, Done done)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
            QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript"));
    const QString address = QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    call << QString::fromLatin1(Script).arg(Literal(address));
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, LongestWait), &owner_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &owner_, [watcher, done] {
        const QDBusPendingReply<QString> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            return done({ Result::NotSet, QStringLiteral("The desktop did not answer.") });
        if (reply.value().trimmed().toInt() < 1)
            return done({ Result::NotSet, QStringLiteral("The desktop did not take the wallpaper.") });
        done({});
    });
}
