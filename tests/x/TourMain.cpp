// tour OUTDIR: the program shown from opening a video to the saved picture, with a picture of every station.
#include "Tour.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: tour OUTDIR\n");
        return 2;
    }
    try {
        Tour tour(QString::fromLocal8Bit(argv[1]), QStringLiteral(SAMPLES_DIR));
        tour.Run();
        for (const QString& file : tour.Written())
            std::printf("%s\n", qPrintable(file));
        return 0;
    } catch (const TourStopped& stopped) {
        std::fprintf(stderr, "The tour stopped; this does not hold: %s\n", stopped.what());
        return 1;
    }
}
