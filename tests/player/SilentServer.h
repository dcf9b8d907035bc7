#pragma once

#include <QByteArray>
#include <QString>
#include <thread>

/// A web server that sends the head of a file, as much as it is told, and then holds the line without a word.
class SilentServer {
public:
    SilentServer(const QByteArray& file, qsizetype spoken);
    ~SilentServer();
    QString Address() const;

private:
    void Serve();
    void Answer(int line) const;

    QByteArray file_;
    qsizetype spoken_;
    int door_ = -1;
    std::thread thread_;
};
