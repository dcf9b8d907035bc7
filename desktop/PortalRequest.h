#pragma once

#include "desktop/Wallpaper.h"

#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <chrono>

/// One wish to the portal and its answer, which comes as a signal of its own. Deletes itself then. A wish
/// that got no answer within its limit is taken back.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    PortalRequest(QObject* parent, Wallpaper::Done done, std::chrono::milliseconds limit);

    /// The token that names this request in the call's options.
    QString Token() const { return token_; }
    void Send(const QDBusMessage& call);

private:
    Q_SLOT void Answer(uint response, const QVariantMap& results);
    void GiveUp();
    void End(const Wallpaper::Outcome& outcome);

    QString token_;
    QString place_;
    Wallpaper::Done done_;
    std::chrono::milliseconds limit_;
};
