// play: 1080p30 played in the real program's window, with captures standing open beside it: the processor
// time against two players that do nothing but play, at the same size on the same screen; the pictures that
// came late or never, also while captures are taken; and how long a jump takes to its picture on the screen.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "bench/LiveProgram.h"
#include "bench/Painted.h"
#include "toolkit/Twips.h"
#include "video/ltmmPlay.h"

#include <QApplication>
#include <QEventLoop>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int Patience = 120'000; // milliseconds
constexpr double PicturesASecond = 30;
constexpr int Pictures = 4 * BenchClips::Frames; // a minute and a little more
constexpr int IdleCaptures = 3;
constexpr double Goal = 1.0;

/// What each round of playing came to.
struct Played {
    std::vector<double> painted;
    std::vector<double> late;
};

/// Without the naps that QTest takes: pictures are painted when they come.
bool WaitFor(const std::function<bool()>& condition)
{
    QEventLoop loop;
    QTimer look;
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.quit();
    });
    look.start(20);
    loop.exec();
    if (!condition())
        std::printf("IT DOES NOT COME TO ITS END\n");
    return condition();
}

/// What the seek sets going is over when the counting begins.
void BeginAnew(ltmmPlay& player)
{
    player.SeekStart();
    QTest::qWait(100);
}

Cost PlayThrough(LiveProgram& program, Played& played)
{
    ltmmPlay& player = program.Player();
    BeginAnew(player);
    const Painted painted(player);
    const Stopwatch watch;
    player.Run();
    WaitFor([&] { return player.State() != ltmmPlay::Running; });
    const Cost cost = watch.Elapsed();
    played.painted.push_back(painted.Count());
    played.late.push_back(double(painted.Late(PicturesASecond).size()));
    return cost;
}

/// The whole clip, less what it takes to start and show the first picture.
Side Peer(const char* name, const std::vector<std::string>& command,
    const std::vector<std::string>& onlyStart, const QString& clip)
{
    const auto with = [&](std::vector<std::string> words, const std::vector<std::string>& more) {
        words.insert(words.end(), more.begin(), more.end());
        words.push_back(clip.toStdString());
        return words;
    };
    return { name, [whole = with(command, {}), start = with(command, onlyStart)] {
                const Cost starting = CostOf(start);
                return CostOf(whole) - starting;
            } };
}

void ComparePlaying(LiveProgram& program, const QString& clip)
{
    const std::string width = std::to_string(Twips { int(program.Player().VideoWidth()) / 2 }.Pixels());
    const std::string height = std::to_string(Twips { int(program.Player().VideoHeight()) / 2 }.Pixels());
    std::printf("\nPlayed at %sx%s, %d captures open\n\n", width.c_str(), height.c_str(), program.Captures());
    PrintHead();
    const std::vector<Side> peers {
        { "ffmpeg, decoding only",
            [&] {
                return CostOf(
                    { "ffmpeg", "-v", "error", "-i", clip.toStdString(), "-map", "0:v", "-f", "null", "-" });
            } },
        Peer("ffplay",
            { "ffplay", "-v", "error", "-an", "-autoexit", "-noborder", "-x", width, "-y", height },
            { "-t", "0.03" }, clip),
        Peer("mpv",
            { "mpv", "--no-config", "--really-quiet", "--no-audio", "--no-osc", "--vo=x11", "--no-border",
                "--geometry=" + width + "x" + height },
            { "--frames=1" }, clip),
    };
    Played played;
    for (const Side& peer : peers)
        Compare("1080p30 H.264 played from start to end", peer,
            { { "the program", [&] { return PlayThrough(program, played); },
                &peer == peers.data() ? 0 : Goal } });
    std::printf("| pictures painted of %d | at the least %.0f, half the rounds %.0f | | | | | | %d |\n",
        Pictures, Quantile(played.painted, 0), Quantile(played.painted, 0.5), Pictures * 99 / 100);
    std::printf("| pictures late or never | at the most %.0f, half the rounds %.0f | | | | | | %d |\n",
        Quantile(played.late, 1), Quantile(played.late, 0.5), Pictures / 100);
}

/// How many pictures each capture makes late, and how long it holds the windows.
void CaptureWhilePlaying(LiveProgram& program)
{
    constexpr int count = 8;
    constexpr int spacing = 45; // pictures from one capture to the next
    ltmmPlay& player = program.Player();
    BeginAnew(player);
    const Painted painted(player);
    std::vector<double> holds;
    std::vector<int> captured;
    player.Run();
    for (int i = 1; i <= count; ++i) {
        if (!WaitFor([&] { return player.CurrentFrame() >= i * spacing; }))
            return;
        captured.push_back(player.CurrentFrame());
        const double begin = Painted::Now();
        program.Capture();
        holds.push_back(Painted::Now() - begin);
    }
    WaitFor([&] { return player.CurrentFrame() >= (count + 1) * spacing; });
    player.Pause();
    std::vector<double> latePerCapture;
    const std::vector<int> late = painted.Late(PicturesASecond);
    for (const int number : captured)
        latePerCapture.push_back(double(std::ranges::count_if(
            late, [number](int other) { return other >= number && other < number + spacing; })));
    std::printf("| a capture while playing | makes late at the most %.0f, half of them %.0f | holds the "
                "windows %.0f ms "
                "at the most | | | | | 1 |\n",
        Quantile(latePerCapture, 1), Quantile(latePerCapture, 0.5), Quantile(holds, 1) * 1000);
}

/// From the order to the picture on the screen.
void MeasureJumps(LiveProgram& program)
{
    constexpr int count = 60;
    ltmmPlay& player = program.Player();
    player.Pause();
    QRandomGenerator random(30);
    std::vector<double> walls;
    for (int i = 0; i < count; ++i) {
        const int number = random.bounded(Pictures);
        const Painted painted(player);
        const double begin = Painted::Now();
        player.SetCurrentFrame(number);
        if (!WaitFor([&] { return painted.Has(number); }))
            return;
        walls.push_back(painted.TimeOf(number) - begin);
    }
    std::printf("| a jump to its picture on the screen, GOP 50 | half within %.0f ms, 95 %% within %.0f ms | "
                "| | | | | |\n",
        Quantile(walls, 0.5) * 1000, Quantile(walls, 0.95) * 1000);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QString clip = BenchClips::PathOf("play_minute.mp4");
    LiveProgram program;
    program.Open(clip);
    program.Player().Pause();
    program.Player().SetDisplaySize(ltmmPlay::Half); // the whole of it fits into the frame
    for (int i = 0; i < IdleCaptures; ++i)
        program.Capture();
    program.ShowCapturesIn(LiveProgram::Place::Strip);
    program.Capture();
    program.BringVideoToFront();
    ComparePlaying(program, clip);
    CaptureWhilePlaying(program);
    MeasureJumps(program);
    return 0;
}
