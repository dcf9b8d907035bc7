#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

/// A line to a print server on which the answer to the first request for a new job gets lost. It carries what
/// it carries while events are handled.
class LossyLine {
public:
    explicit LossyLine(const QString& server)
        : server_(server)
    {
        QObject::connect(&listener_, &QLocalServer::newConnection, &listener_, [this] { Join(); });
        listener_.listen(folder_.filePath(QStringLiteral("line")));
    }

    QByteArray Address() const { return listener_.fullServerName().toUtf8(); }
    bool HasLost() const { return hasLost_; }

private:
    /// How the protocol's request begins.
    static QByteArray NewJob() { return QByteArray("\x02\x00\x00\x05", 4); }

    void Join()
    {
        QLocalSocket* const client = listener_.nextPendingConnection();
        auto* const server = new QLocalSocket(client);
        server->connectToServer(server_);
        QObject::connect(client, &QLocalSocket::readyRead, server, [this, client, server] {
            const QByteArray bytes = client->readAll();
            isLosing_ = !hasLost_ && bytes.contains(NewJob());
            server->write(bytes);
        });
        QObject::connect(server, &QLocalSocket::readyRead, client, [this, client, server] {
            const QByteArray bytes = server->readAll();
            if (!isLosing_)
                client->write(bytes);
            else if (!hasLost_) {
                hasLost_ = true;
                client->abort();
            }
        });
    }

    QString server_;
    QTemporaryDir folder_;
    QLocalServer listener_;
    bool isLosing_ = false;
    bool hasLost_ = false;
};
