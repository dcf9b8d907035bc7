// firstframe: from telling the player a video to its first picture on the screen, against ffmpeg decoding one
// picture. The player's window stands already; ffmpeg's time holds the start of its process.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "media/player/PlayerControl.h"

#include <QApplication>
#include <QTest>

#include <cstdio>

namespace {

Cost ShowFirst(const QString& clip)
{
    PlayerControl player;
    player.resize(960, 540);
    player.show();
    if (!QTest::qWaitForWindowExposed(&player, 60'000))
        std::printf("THE WINDOW DOES NOT APPEAR\n");
    const Stopwatch watch;
    player.SetSourceFile(clip);
    player.repaint();
    return watch.Elapsed();
}

void Measure(const char* name)
{
    const QString clip = BenchClips::PathOf(name);
    const std::vector<std::string> theirs { "ffmpeg", "-v", "error", "-i", clip.toStdString(), "-frames:v",
        "1", "-f", "null", "-" };
    Compare(std::string("first picture of ") + name, { "ffmpeg -frames:v 1", [&] { return CostOf(theirs); } },
        { { "PlayerControl", [&] { return ShowFirst(clip); } } });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::printf("\n");
    PrintHead();
    for (const char* clip : { "big_gop50.mp4", "long.mp4", "long.ts", "sd_mpeg2.mpg" })
        Measure(clip);
    return 0;
}
