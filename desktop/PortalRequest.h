#pragma once

#include "desktop/Wallpaper.h"

#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

/// One wish to the portal and its answer, which comes as a signal of its own. Deletes itself then.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    PortalRequest(QObject* parent, Wallpaper::Done done);

    /// The token that names this request in the call's options.
    QString Token() const { return token_; }
    void Send(const QDBusMessage& call);

private:
    Q_SLOT void Answer(uint response, const QVariantMap& results);
    void End(const Wallpaper::Outcome& outcome);

    QString token_;
    QString place_;
    Wallpaper::Done done_;
};
