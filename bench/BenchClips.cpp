#include "bench/BenchClips.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>

QString BenchClips::PathOf(const char* name)
{
    const QString path = QDir(qEnvironmentVariable("TAQ_BENCH_CLIPS")).absoluteFilePath(QLatin1String(name));
    if (!QFile::exists(path)) {
        std::fprintf(stderr,
            "%s is missing: make it with bench/make_clips.sh and tell its folder by TAQ_BENCH_CLIPS\n",
            qPrintable(path));
        std::exit(2);
    }
    return path;
}
