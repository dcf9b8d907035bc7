// backstep: single steps back against the packaged ffms2, and against our own steps forward.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "bench/Visit.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <numeric>

namespace {

constexpr int Steps = 200;
constexpr int First = 20; // the walk stays within the first GOP of 250
constexpr double KeyRepeat = 1.0 / 30; // seconds
constexpr double GoalToFfms = 0.08;
constexpr double GoalToForward = 1.5;

enum class Direction { Forward, Back };
using Open = std::function<std::unique_ptr<Reader>()>;

/// A way to go and what all rounds of it came to.
struct Walker {
    Open open;
    Direction direction;
    double pace = 0; ///< seconds from step to step
    std::vector<double> walls = {};
    int wrong = 0;

    Cost Run()
    {
        std::vector<int> numbers(Steps + 1);
        std::iota(numbers.begin(), numbers.end(), First);
        if (direction == Direction::Back)
            std::ranges::reverse(numbers);
        const auto reader = open();
        reader->GoTo(numbers.front());
        numbers.erase(numbers.begin());
        const Visited visited = Visit(*reader, numbers, pace);
        walls.insert(walls.end(), visited.walls.begin(), visited.walls.end());
        wrong += visited.wrong;
        return visited.cost;
    }
    double Milliseconds(double part) const { return Quantile(walls, part) * 1000; }
};

Side SideOf(const char* name, Walker& walker, double goal = 0)
{
    return { name, [&walker] { return walker.Run(); }, goal };
}

void PrintSteps(const char* name, const Walker& walker)
{
    std::printf("| one step, %s | half within %.1f ms, 95 %% within %.1f ms, all within %.0f ms | %d wrong | "
                "| | | | |\n",
        name, walker.Milliseconds(0.5), walker.Milliseconds(0.95), walker.Milliseconds(1), walker.wrong);
}

Open Engine(const QString& clip)
{
    return [clip] { return EngineReader(clip, media::Purpose::Step); };
}

Open Player(const QString& clip)
{
    return [clip] { return PlayerReader(clip); };
}

void MeasureFfms()
{
    const QString clip = BenchClips::PathOf("big_gop50.mp4");
    Walker ffms { [clip] { return FfmsReader(clip); }, Direction::Back };
    Walker engine { Engine(clip), Direction::Back };
    Walker player { Player(clip), Direction::Back };
    Compare("200 steps back, GOP 50", SideOf("ffms2", ffms),
        { SideOf("FrameServer::Get", engine, GoalToFfms), SideOf("PlayerControl", player, GoalToFfms) });
    PrintSteps("ffms2", ffms);
    PrintSteps("FrameServer::Get", engine);
    PrintSteps("PlayerControl", player);
}

void MeasureForward(const char* name, const std::function<Open(const QString&)>& open)
{
    const QString clip = BenchClips::PathOf("big_gop250.mp4");
    Walker forward { open(clip), Direction::Forward };
    Walker back { open(clip), Direction::Back };
    Compare("200 steps back, GOP 250", SideOf("the same steps forward", forward),
        { SideOf(name, back, GoalToForward) });
    PrintSteps("forward", forward);
    PrintSteps("back", back);
}

/// As a user feels it who holds the key down.
void MeasureKeyHeld()
{
    const QString clip = BenchClips::PathOf("big_gop250.mp4");
    Walker back { Player(clip), Direction::Back, KeyRepeat };
    back.Run();
    PrintSteps("PlayerControl, 30 steps back a second", back);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::printf("\n");
    PrintHead();
    MeasureFfms();
    MeasureForward("FrameServer::Get", Engine);
    MeasureForward("PlayerControl", Player);
    MeasureKeyHeld();
    return 0;
}
