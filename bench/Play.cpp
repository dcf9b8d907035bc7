// play: the processor time of playing a video in the real program's window against only decoding it, and how
// many pictures reached the screen.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "bench/LiveProgram.h"
#include "video/ltmmPlay.h"

#include <QApplication>
#include <QEvent>
#include <QTest>

#include <cstdio>
#include <set>

namespace {

constexpr int Patience = 120'000; // milliseconds

/// The numbers of the pictures that a player painted.
class Painted : public QObject {
public:
    explicit Painted(ltmmPlay& player)
        : player_(player)
    {
        player.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            numbers_.insert(player_.CurrentFrame());
        return false;
    }
    int Count() const { return int(numbers_.size()); }

private:
    ltmmPlay& player_;
    std::set<int> numbers_;
};

Cost PlayThrough(LiveProgram& program, std::vector<double>& shown)
{
    ltmmPlay& player = program.Player();
    player.SeekStart();
    QTest::qWait(100);
    const Painted painted(player);
    const Stopwatch watch;
    player.Run();
    if (!QTest::qWaitFor([&] { return player.State() != ltmmPlay::Running; }, Patience))
        std::printf("IT DOES NOT COME TO ITS END\n");
    shown.push_back(painted.Count());
    return watch.Elapsed();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString clip = BenchClips::PathOf("play30.mp4");
    LiveProgram program;
    program.Open(clip);
    program.Player().Stop();
    const QSize size = program.Player().size();

    const std::vector<std::string> decode { "ffmpeg", "-v", "error", "-i", clip.toStdString(), "-map", "0:v",
        "-f", "null", "-" };
    std::vector<double> shown;
    std::printf("\nPlayed in a window area of %dx%d\n\n", size.width(), size.height());
    PrintHead();
    Compare("1080p30 H.264 played from start to end",
        { "ffmpeg, decoding only", [&] { return CostOf(decode); } },
        { { "the program", [&] { return PlayThrough(program, shown); } } });
    std::printf("| pictures painted of %d | at the least %.0f, half the rounds %.0f | | | | | | %d |\n",
        BenchClips::Frames, Quantile(shown, 0), Quantile(shown, 0.5), BenchClips::Frames);
    return 0;
}
