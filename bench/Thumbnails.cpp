// thumbnails: what adding one to the strip of the real program costs at the end of ten thousand, against one at
// the start, and what the strip takes in memory beyond the pictures, which all share their pixels.
#include "app/Frame.h"
#include "app/Lead.h"
#include "bench/Cost.h"
#include "bench/LiveProgram.h"

#include <QApplication>
#include <QImage>

#include <cstdio>

namespace {

constexpr int Thumbnails = 10'000;
constexpr int Measured = 1'000; // at each end

/// Adds as captures without a window of their own do, and lets the strip be painted after each.
Cost Add(Frame& frame, int count)
{
    const Stopwatch watch;
    for (int i = 0; i < count; ++i) {
        frame.AddThumbnail();
        QCoreApplication::processEvents();
    }
    return watch.Elapsed() / Cost { 1.0 * count, 1.0 * count };
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    LiveProgram program;
    program.ShowCapturesIn(LiveProgram::Place::Strip);
    Frame& frame = program.TheFrame();
    QImage picture(1920, 1080, QImage::Format_BGR888);
    picture.fill(Qt::darkCyan);
    frame.ThumbHold().SetBitmap(picture);
    Add(frame, 100); // the strip stands, its first page is full
    const double before = ResidentBytes();
    const Cost first = Add(frame, Measured);
    Add(frame, Thumbnails - 2 * Measured);
    const Cost last = Add(frame, Measured);
    const double grown = ResidentBytes() - before;

    std::printf("\n| a thumbnail added | ms of processor | ms |\n|---|---|---|\n");
    std::printf("| first thousand | %.3f | %.3f |\n", first.cpu * 1e3, first.wall * 1e3);
    std::printf("| last thousand of %d | %.3f | %.3f |\n", Thumbnails, last.cpu * 1e3, last.wall * 1e3);
    std::printf("| ratio | **%.2f** | %.2f |\n", last.cpu / first.cpu, last.wall / first.wall);
    std::printf("\n%.1f MB for %d thumbnails beyond the shared pixels\n", grown / 1e6, Thumbnails);
    return 0;
}
