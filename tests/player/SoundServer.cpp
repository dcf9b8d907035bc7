#include "tests/player/SoundServer.h"

#include <QFile>
#include <QStandardPaths>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <fcntl.h>
#include <optional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int Rate = 48000;
constexpr int Patience = 10000; // milliseconds
constexpr float Audible = 0.1F;

bool Answers(const QString& socketName)
{
    sockaddr_un place {};
    place.sun_family = AF_UNIX;
    QFile::encodeName(socketName).toStdString().copy(place.sun_path, sizeof place.sun_path - 1);
    const int line = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool isConnected = connect(line, reinterpret_cast<sockaddr*>(&place), sizeof place) == 0;
    close(line);
    return isConnected;
}

} // namespace

SoundServer::SoundServer()
{
    const QString pipe = folder_.filePath(QStringLiteral("recording"));
    mkfifo(QFile::encodeName(pipe).constData(), 0600);
    trouble_ = StartServer(folder_.filePath(QStringLiteral("sound")));
    if (!trouble_.isEmpty())
        return;
    listener_ = std::thread([this, pipe] { Listen(QFile::encodeName(pipe)); });
    trouble_ = StartRecorder(pipe);
}

/// The recorder's short latency makes the sink that plays into nothing work in short blocks, too.
QString SoundServer::StartServer(const QString& socket)
{
    const QString trouble = Start(server_, QStringLiteral("pulseaudio"),
        { QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"), QStringLiteral("-n"),
            QStringLiteral("--use-pid-file=no"), QStringLiteral("--disable-shm=yes"), QStringLiteral("-L"),
            QStringLiteral("module-null-sink sink_name=nothing rate=48000"), QStringLiteral("-L"),
            QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket });
    if (!trouble.isEmpty())
        return trouble;
    if (!QTest::qWaitFor([&] { return Answers(socket); }, Patience))
        return QStringLiteral("the sound server does not answer: ")
            + QString::fromUtf8(server_.readAllStandardError());
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket));
    qputenv("PULSE_COOKIE", QFile::encodeName(folder_.filePath(QStringLiteral("cookie"))));
    return {};
}

QString SoundServer::StartRecorder(const QString& pipe)
{
    recorder_.setStandardOutputFile(pipe);
    const QString trouble = Start(recorder_, QStringLiteral("parec"),
        { QStringLiteral("--device=nothing.monitor"), QStringLiteral("--format=float32le"),
            QStringLiteral("--rate=48000"), QStringLiteral("--channels=1"),
            QStringLiteral("--latency-msec=5"), QStringLiteral("--process-time-msec=5"),
            QStringLiteral("--raw") });
    const auto records = [this] {
        const std::lock_guard lock(mutex_);
        return !begins_.empty();
    };
    if (!trouble.isEmpty() || QTest::qWaitFor(records, Patience))
        return trouble;
    return QStringLiteral("nothing can be recorded: ") + QString::fromUtf8(recorder_.readAllStandardError());
}

void SoundServer::Listen(const QByteArray& pipe)
{
    const int line = open(pipe.constData(), O_RDONLY | O_CLOEXEC);
    std::vector<float> block(Rate);
    for (;;) {
        const ssize_t size = read(line, block.data(), block.size() * sizeof(float));
        if (size <= 0)
            break;
        const std::chrono::duration<double> now = Clock::now().time_since_epoch();
        const std::lock_guard lock(mutex_);
        heard_.insert(heard_.end(), block.begin(), block.begin() + size / ssize_t(sizeof(float)));
        const auto begin = now - std::chrono::duration<double>(double(heard_.size()) / Rate);
        const std::size_t second = heard_.size() / Rate;
        if (begins_.size() <= second)
            begins_.resize(second + 1, begin);
        begins_[second] = std::min(begins_[second], begin);
    }
    close(line);
}

SoundServer::~SoundServer()
{
    qputenv("PULSE_SERVER", "unix:/nonexistent");
    for (QProcess* process : { &recorder_, &server_ }) {
        process->kill();
        process->waitForFinished();
    }
    if (listener_.joinable()) {
        // A recorder that never started leaves the listener waiting for the other end of the pipe.
        const QByteArray pipe = QFile::encodeName(folder_.filePath(QStringLiteral("recording")));
        const int line = open(pipe.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (line >= 0)
            close(line);
        listener_.join();
    }
}

QString SoundServer::Start(QProcess& process, const QString& program, const QStringList& arguments) const
{
    if (QStandardPaths::findExecutable(program).isEmpty())
        return program + QStringLiteral(" is not installed");
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    for (const char* place : { "HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH" })
        surroundings.insert(QString::fromLatin1(place), folder_.path());
    process.setProcessEnvironment(surroundings);
    process.start(program, arguments);
    return process.waitForStarted() ? QString() : program + QStringLiteral(" does not start");
}

/// What came quickest within some seconds tells it: the rest was late. Over many minutes the clock of the
/// recording and that of the machine are not the same.
std::chrono::duration<double> SoundServer::BeginAround(std::size_t second) const
{
    constexpr std::size_t reach = 5;
    const auto at = [this](std::size_t place) {
        return begins_.begin() + std::ptrdiff_t(std::min(place, begins_.size()));
    };
    return *std::min_element(at(second - std::min(second, reach)), at(second + reach + 1));
}

std::vector<SoundServer::Clock::time_point> SoundServer::Beeps(double pause) const
{
    const std::lock_guard lock(mutex_);
    const auto longest = std::size_t(pause * Rate);
    std::vector<Clock::time_point> beeps;
    std::optional<std::size_t> first;
    std::size_t last = 0;
    for (std::size_t i = forgotten_; i < heard_.size(); ++i) {
        if (std::abs(heard_[i]) >= Audible) {
            first = first.value_or(i);
            last = i;
        } else if (first && i - last >= longest) {
            const double middle = double(*first + last) / 2 / Rate;
            beeps.emplace_back(std::chrono::duration_cast<Clock::duration>(
                BeginAround(std::size_t(middle)) + std::chrono::duration<double>(middle)));
            first.reset();
        }
    }
    return beeps;
}

float SoundServer::Loudest() const
{
    const std::lock_guard lock(mutex_);
    float loudest = 0;
    for (std::size_t i = forgotten_; i < heard_.size(); ++i)
        loudest = std::max(loudest, std::abs(heard_[i]));
    return loudest;
}

int SoundServer::Jumps(float size) const
{
    const std::lock_guard lock(mutex_);
    int jumps = 0;
    for (std::size_t i = std::max<std::size_t>(forgotten_, 1); i < heard_.size(); ++i)
        jumps += std::abs(heard_[i] - heard_[i - 1]) > size;
    return jumps;
}

void SoundServer::Forget()
{
    const std::lock_guard lock(mutex_);
    forgotten_ = heard_.size();
}

void SoundServer::Kill()
{
    server_.kill();
    server_.waitForFinished();
}
