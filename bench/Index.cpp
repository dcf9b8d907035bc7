// index: the list of all pictures of a long video, against ffprobe counting its packets; whole processes
// both.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "media/FrameServer.h"

#include <climits>
#include <cstdio>

namespace {

void BuildIndex(const char* clip)
{
    media::Interrupt interrupt;
    const auto server = media::FrameServer::Open({ media::Source::Kind::File, clip }, interrupt);
    server->ExtendIndex(INT_MAX);
    std::printf("%d pictures\n", server->KnownFrames());
}

void Measure(const char* name)
{
    const std::string clip = BenchClips::PathOf(name).toStdString();
    const std::vector<std::string> theirs { "ffprobe", "-v", "error", "-select_streams", "v:0",
        "-count_packets", "-show_entries", "stream=nb_read_packets", clip };
    const std::vector<std::string> ours { ThisProgram(), clip };
    Compare(std::string("index of ") + name, { "ffprobe -count_packets", [&] { return CostOf(theirs); } },
        { { "FrameServer", [&] { return CostOf(ours); } } });
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1)
        return BuildIndex(argv[1]), 0;
    std::printf("\n");
    PrintHead();
    for (const char* clip : { "long.mp4", "long.ts", "long.avi", "long.mpg" })
        Measure(clip);
    return 0;
}
