#pragma once

#include <QByteArray>
#include <QString>
#include <thread>

/// A web server that sends the head of a file, as much as it is told, and then holds the line without a word.
/// Told nothing it takes connections and never answers.
class SilentServer {
public:
    explicit SilentServer(const QByteArray& file = {}, qsizetype spoken = 0);
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    QString Address() const;

private:
    void Serve();
    void Answer(int line) const;

    QByteArray file_;
    qsizetype spoken_;
    int door_ = -1;
    std::thread thread_;
};
