#include "desktop/KdeWallpaper.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QRegularExpressionMatch>
#include <QString>
#include <QUrl>

namespace {

constexpr int LongestWait = 10'000; // milliseconds

/// Says how many screens keep the picture, and how many there are. A value that does not change is passed
/// over by the desktop, and with it the new content of the same file: so it is emptied first.
constexpr auto Script = R"(
var address = %1[0];
var all = desktops();
var kept = 0;
for (var i = 0; i < all.length; ++i) {
    all[i].wallpaperPlugin = "org.kde.image";
    all[i].currentConfigGroup = ["Wallpaper", "org.kde.image", "General"];
    all[i].writeConfig("Image", "");
    all[i].writeConfig("Image", address);
    if (String(all[i].readConfig("Image", "")) === address)
        ++kept;
}
print(kept + " of " + all.length);
)";

/// As a text of the script's language, whatever the name of the file holds.
QString Literal(const QString& text)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray { text }).toJson(QJsonDocument::Compact));
}

/// Why the desktop's answer is none.
QString FaultOf(const QDBusError& error)
{
    switch (error.type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        return QStringLiteral("The desktop did not answer.");
    default:
        return QStringLiteral("The desktop answered: %1").arg(error.message());
    }
}

/// Why the wallpaper is not on every screen, by the script's answer; empty when it is.
QString FaultOf(const QString& answer)
{
    const QRegularExpressionMatch counts =
        QRegularExpression(QStringLiteral("^(\\d+) of (\\d+)$")).match(answer);
    const int kept = counts.captured(1).toInt(), all = counts.captured(2).toInt();
    if (!counts.hasMatch() || all == 0)
        return QStringLiteral("The desktop named no screen.");
    return kept == all ? QString() : QStringLiteral("%1 of %2 screens kept it.").arg(kept).arg(all);
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
        const QString fault = reply.isError() ? FaultOf(reply.error()) : FaultOf(reply.value().trimmed());
        done({ fault.isEmpty() ? Result::Set : Result::NotSet, fault });
    });
}
