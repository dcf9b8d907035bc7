// random: single pictures at seeded random places against the packaged ffms2, both with their index made
// before.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "bench/Visit.h"

#include <QApplication>

#include <cstdio>
#include <random>

namespace {

constexpr int Pictures = 200;
constexpr double Goal = 0.5;

std::vector<int> RandomNumbers(unsigned seed)
{
    std::mt19937 generator(seed);
    std::vector<int> numbers(Pictures);
    for (int& number : numbers)
        number = int(generator() % unsigned(BenchClips::Frames));
    return numbers;
}

/// Opens a reader, has it visit other random numbers in each round, and counts what it got wrong.
struct Contestant {
    std::function<std::unique_ptr<Reader>()> open;
    unsigned round = 0;
    int wrong = 0;

    Cost Run()
    {
        const Visited visited = Visit(*open(), RandomNumbers(++round));
        wrong += visited.wrong;
        return visited.cost;
    }
};

void Measure(const char* name)
{
    const QString clip = BenchClips::PathOf(name);
    Contestant engine { [&] { return EngineReader(clip, media::Purpose::Jump); } };
    Contestant player { [&] { return PlayerReader(clip); } };
    Contestant ffms { [&] { return FfmsReader(clip); } };
    const std::string question = std::to_string(Pictures) + " random frames of " + name;
    Compare(question, { "ffms2", [&] { return ffms.Run(); } },
        { { "FrameServer::Get", [&] { return engine.Run(); }, Goal },
            { "PlayerControl", [&] { return player.Run(); }, Goal } });
    std::printf("| wrong pictures | %d and %d of %d | | ffms2 | %d of %d | | | 0 |\n", engine.wrong,
        player.wrong, Pictures * Rounds(), ffms.wrong, Pictures * Rounds());
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::printf("\n");
    PrintHead();
    for (const char* clip : { "big_gop50.mp4", "big_mpeg4.avi", "sd_mpeg2.mpg" })
        Measure(clip);
    return 0;
}
