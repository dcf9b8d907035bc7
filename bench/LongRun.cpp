// longrun: two hours of video captured every 10 frames by the program's own run: the time against the ffmpeg
// command line writing the same pictures, and the memory on the way.
#include "bench/BenchClips.h"
#include "bench/Cost.h"
#include "bench/ProgramRun.h"
#include "tests/clips/BarCode.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int Stride = 10;
constexpr int Frames = 180'000;
constexpr int Period = 500; ///< frames until the numbers in the pictures begin again
constexpr int Looks = 10;
constexpr double Goal = 0.7;

/// Looks at the memory each time another tenth of the pictures stands on the disk, and at the longest silence
/// of the event loop.
class Watch {
public:
    explicit Watch(const QString& folder)
        : folder_(folder)
    {
        sinceEvent_.start();
    }
    void Look()
    {
        longest_ = std::max(longest_, sinceEvent_.restart());
        const int next = int(looks_ + 1) * Frames / Stride / Looks;
        if (!QFile::exists(folder_ + QStringLiteral("/auto%1.bmp").arg(next)))
            return;
        ++looks_;
        std::printf("%d pictures: %.0f MB resident\n", next, ResidentBytes() / 1e6);
    }
    qint64 Longest() const { return longest_; }

private:
    QString folder_;
    QElapsedTimer sinceEvent_;
    qint64 longest_ = 0; ///< milliseconds
    int looks_ = 0;
};

int Faults(const QString& folder)
{
    int faults = 0;
    for (int place = 0; place < Frames / Stride; ++place)
        faults += NumberIn(QImage(folder + QStringLiteral("/auto%1.bmp").arg(place + 1)))
            != place * Stride % Period;
    return faults;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QString root = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("/dev/shm");
    const QString clip = BenchClips::PathOf("hours.mp4");
    const QTemporaryDir ours(root + QStringLiteral("/ours"));
    Watch watch(ours.path());
    Stopwatch stopwatch;
    WriteByProgram(clip, Stride, ours.path(), [&watch] { watch.Look(); });
    const Cost own = stopwatch.Elapsed();
    std::printf("longest time without an answer to events: %lld ms\n", watch.Longest());
    std::printf("%d WRONG PICTURES of %d\n", Faults(ours.path()), Frames / Stride);
    const QTemporaryDir theirs(root + QStringLiteral("/theirs"));
    const Cost peer = CostOf({ "ffmpeg", "-v", "error", "-i", clip.toStdString(), "-vf",
        QStringLiteral("select=not(mod(n\\,%1))").arg(Stride).toStdString(), "-fps_mode", "passthrough",
        (theirs.path() + QStringLiteral("/out%05d.bmp")).toStdString() });
    std::printf(
        "the program %.1f s (%.1f s of processor), ffmpeg %.1f s (%.1f s): **%.2f** of its time, %.2f of its "
        "processor; goal %.2f\n",
        own.wall, own.cpu, peer.wall, peer.cpu, (own / peer).wall, (own / peer).cpu, Goal);
    return 0;
}
