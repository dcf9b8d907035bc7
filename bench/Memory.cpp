// memory: what a capture that is held open takes, in its window and among the thumbnails of the real program,
// against the bytes of its pixels.
#include "bench/BenchClips.h"
#include "bench/Cost.h"
#include "bench/LiveProgram.h"
#include "video/ltmmPlay.h"

#include <QApplication>
#include <QTest>

#include <cstdio>

namespace {

constexpr int Captures = 60;
constexpr int WarmUpCaptures = 2;
constexpr int WarmUpSteps = 120; // the caches of pictures are full then
constexpr double Goal = 1.1;

void StepAndCapture(LiveProgram& program, int count)
{
    for (int i = 0; i < count; ++i) {
        program.Player().NextFrame();
        program.Capture();
        QTest::qWait(1);
    }
}

/// The window system's answers are taken in too.
void Settle()
{
    QTest::qWait(2000);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    LiveProgram program;
    program.Open(BenchClips::PathOf("big_gop50.mp4"));
    program.Player().Pause();
    for (int i = 0; i < WarmUpSteps; ++i)
        program.Player().NextFrame();
    StepAndCapture(program, WarmUpCaptures);
    Settle();

    const QImage still = program.Player().GetStillPicture(5000);
    const double pixels = 3.0 * still.width() * still.height();
    const double before = ResidentBytes();
    StepAndCapture(program, Captures);
    Settle();
    if (program.Captures() != WarmUpCaptures + Captures)
        std::printf("ONLY %d CAPTURES ARE OPEN\n", program.Captures());
    const double each = (ResidentBytes() - before) / Captures;
    std::printf("\n| %d captures of %dx%d held open | MB each | MB of pixels | ratio | goal "
                "|\n|---|---|---|---|---|\n",
        Captures, still.width(), still.height());
    std::printf("| resident memory, window and thumbnail | %.2f | %.2f | **%.2f** | %.2f |\n", each / 1e6,
        pixels / 1e6, each / pixels, Goal);
    return 0;
}
