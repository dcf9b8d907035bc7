#pragma once

#include <QProcess>
#include <QStringList>
#include <QTest>

/// The web server of the tests (web_server.py), as long as this lives. Both addresses are empty where it
/// does not start.
class WebServer {
public:
    /// Serves the files of a folder, by default the clips.
    explicit WebServer(const QString& folder = QStringLiteral(TAQ_CLIPS))
    {
        server_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        server_.start(
            QStringLiteral("python3"), { QStringLiteral(SOURCE_DIR "/tests/player/web_server.py"), folder });
        if (QTest::qWaitFor([this] { return server_.canReadLine(); }, 20'000))
            ports_ = QString::fromLatin1(server_.readLine()).trimmed().split(u' ');
    }
    ~WebServer()
    {
        server_.closeWriteChannel();
        server_.waitForFinished();
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    QString Plain() const { return Address("http", 0); }
    QString Secret() const { return Address("https", 1); }

private:
    QString Address(const char* scheme, int port) const
    {
        return ports_.size() == 2 ? QLatin1String(scheme) + QStringLiteral("://127.0.0.1:") + ports_[port]
                                  : QString();
    }

    QProcess server_;
    QStringList ports_;
};
