#include "desktop/PortalRequest.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QRandomGenerator>
#include <QTimer>

#include <utility>

namespace {

constexpr int LongestCall = 10'000; // milliseconds, until the wish is taken
constexpr auto Service = "org.freedesktop.portal.Desktop";
constexpr auto Interface = "org.freedesktop.portal.Request";
constexpr auto Signal = "Response";
enum Response : uint { Success = 0, Cancelled = 1 };

/// Where the portal will put the request of this token: known before it is sent, so that no answer is missed.
QString PlaceOf(const QString& token)
{
    QString sender = QDBusConnection::sessionBus().baseService().mid(1);
    sender.replace(u'.', u'_');
    return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

} // namespace

PortalRequest::PortalRequest(QObject* parent, Wallpaper::Done done, std::chrono::milliseconds limit)
    : QObject(parent)
    , token_(QStringLiteral("taq%1").arg(QRandomGenerator::global()->generate()))
    , place_(PlaceOf(token_))
    , done_(std::move(done))
    , limit_(limit)
{
}

void PortalRequest::Send(const QDBusMessage& call)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(QLatin1String(Service), place_, QLatin1String(Interface), QLatin1String(Signal), this,
        SLOT(Answer(uint, QVariantMap)));
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, LongestCall), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        if (watcher->isError())
            End({ Wallpaper::Result::NotHere,
                QStringLiteral("The desktop does not let programs set its wallpaper.") });
    });
    QTimer::singleShot(limit_, this, &PortalRequest::GiveUp);
}

/// What is told as not done must not be done later by a question that still stands.
void PortalRequest::GiveUp()
{
    QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
        QLatin1String(Service), place_, QLatin1String(Interface), QStringLiteral("Close")));
    End({ Wallpaper::Result::NotSet, QStringLiteral("The desktop did not answer.") });
}

void PortalRequest::Answer(uint response, const QVariantMap&)
{
    switch (response) {
    case Success:
        return End({});
    case Cancelled:
        return End({ Wallpaper::Result::Declined, QStringLiteral("The wallpaper was declined.") });
    default: // nobody was asked, or nobody could be: another way may lead there
        return End({ Wallpaper::Result::NotHere, QStringLiteral("It was refused without a reason.") });
    }
}

void PortalRequest::End(const Wallpaper::Outcome& outcome)
{
    if (!done_)
        return;
    deleteLater();
    std::exchange(done_, {})(outcome);
}
