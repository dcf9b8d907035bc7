#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

/// A sound server of the test's own, which plays into nothing, and a recorder of what it plays.
class SoundServer {
public:
    using Clock = std::chrono::steady_clock;

    /// Starts both; where they cannot run, Trouble says why. The program's sound goes to this server from
    /// then on.
    SoundServer();
    ~SoundServer();
    QString Trouble() const { return trouble_; }

    /// The middle of each beep since the last Forget; a pause of so many seconds ends it.
    std::vector<Clock::time_point> Beeps(double pause) const;
    /// The loudest sample since the last Forget.
    float Loudest() const;
    /// How often two neighbouring samples since the last Forget differed by more than size.
    int Jumps(float size) const;
    void Forget();
    /// The server dies.
    void Kill();

private:
    /// These tell what went wrong, nothing when all is well.
    QString StartServer(const QString& socket);
    QString StartRecorder(const QString& pipe);
    QString Start(QProcess& process, const QString& program, const QStringList& arguments) const;
    /// To the recorder, until it ends.
    void Listen(const QByteArray& pipe);
    std::chrono::duration<double> BeginAround(std::size_t second) const;

    QTemporaryDir folder_;
    QProcess server_;
    QProcess recorder_;
    QString trouble_;
    mutable std::mutex mutex_;
    std::vector<float> heard_; ///< one channel
    std::size_t forgotten_ = 0; ///< of heard_
    std::vector<std::chrono::duration<double>>
        begins_; ///< of the recording, on the clock, as each second tells
    std::thread listener_;
};
