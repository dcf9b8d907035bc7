// stride: every so many frames of a video written as bitmap files, against the ffmpeg command line writing
// the same. Each side is a whole process from its start to its end.
#include "bench/BenchClips.h"
#include "bench/Comparison.h"
#include "bench/ProgramRun.h"
#include "capture/SavePicture.h"
#include "media/Conveyor.h"
#include "media/FrameServer.h"
#include "media/player/PlayerControl.h"
#include "tests/clips/BarCode.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <climits>
#include <cstdio>

namespace {

struct Case {
    const char* what;
    const char* clip;
    int stride;
    double goal;
    int frames = BenchClips::Frames;
};
constexpr Case Cases[] = {
    { "every 10th, 1080p H.264, GOP 50", "big_gop50.mp4", 10, 0.7 },
    { "every 10th, 1080p MPEG-4 .avi", "big_mpeg4.avi", 10, 0.6 },
    { "every 10th, 576 lines MPEG-2 .mpg, 20 s", "sd_mpeg2.mpg", 10, 0.6 },
    { "every 10th, 576 lines MPEG-2 .mpg, 2 min", "sd_mpeg2_long.mpg", 10, 0.6, 3000 },
    { "every 100th, 1080p H.264, GOP 50", "big_gop50.mp4", 100, 0.4 },
    { "every 250th, 1080p H.264, GOP 250", "big_gop250.mp4", 250, 0.17 },
};

QString NameOf(const QString& folder, int place)
{
    return folder + QStringLiteral("/out%1.bmp").arg(place, 5, 10, QLatin1Char('0'));
}

/// As a program would that only wants the pictures.
void WriteByServer(const QString& clip, int stride, const QString& folder)
{
    media::Interrupt interrupt;
    const auto server =
        media::FrameServer::Open({ media::Source::Kind::File, clip.toLocal8Bit() }, interrupt);
    server->ExtendIndex(INT_MAX);
    std::vector<int> numbers;
    for (int number = 0; number < server->KnownFrames(); number += stride)
        numbers.push_back(number);
    int place = 0;
    media::Conveyor<media::Picture> saved([&](const media::Picture& picture) {
        SavePicture(picture.ToStill(), NameOf(folder, ++place));
        return true;
    });
    server->Walk(numbers, [&](const media::Picture& picture) { return saved.Put(picture); });
    saved.Finish();
}

/// As a program would that has a player on the screen.
void WriteByPlayer(const QString& clip, int stride, const QString& folder)
{
    PlayerControl player;
    player.resize(960, 540);
    player.show();
    player.SetSourceFile(clip);
    int place = 0;
    for (int number = 0; number < player.FrameCount(); number += stride) {
        player.SetCurrentFrame(number);
        SavePicture(player.GetStillPicture(StillTimeout), NameOf(folder, ++place));
    }
}

/// How many pictures of a folder are missing, too many or not those that they should be.
int FaultsIn(const QString& folder, const Case& one)
{
    const int expected = (one.frames + one.stride - 1) / one.stride;
    const int found = int(QDir(folder).entryList({ QStringLiteral("*.bmp") }, QDir::Files).size());
    int faults = std::abs(found - expected);
    for (int place = 1; place <= expected; ++place) {
        const QString byProgram = folder + QStringLiteral("/auto%1.bmp").arg(place);
        const QString path = QFile::exists(byProgram) ? byProgram : NameOf(folder, place);
        faults += NumberIn(QImage(path)) != (place - 1) * one.stride;
    }
    return faults;
}

class Bench {
public:
    Bench(const Case& one, const QString& root)
        : case_(one)
        , root_(root)
        , clip_(BenchClips::PathOf(one.clip))
    {
    }

    void Run() const
    {
        const std::string select = "select=not(mod(n\\," + std::to_string(case_.stride) + "))";
        Compare(case_.what,
            { "ffmpeg",
                [&] {
                    return In([&](const QString& folder) {
                        return std::vector<std::string> { "ffmpeg", "-v", "error", "-i", clip_.toStdString(),
                            "-vf", select, "-fps_mode", "passthrough",
                            (folder + QStringLiteral("/out%05d.bmp")).toStdString() };
                    });
                } },
            {
                { "FrameServer::Walk", [&] { return Own("server"); }, case_.goal },
                { "PlayerControl", [&] { return Own("player"); }, case_.goal },
                { "the program's automatic capture", [&] { return Own("program"); }, case_.goal },
            });
    }

private:
    Cost Own(const char* way) const
    {
        return In([&](const QString& folder) {
            return std::vector<std::string> { ThisProgram(), way, clip_.toStdString(),
                std::to_string(case_.stride), folder.toStdString() };
        });
    }

    /// The cost of a command that writes into a fresh folder, whose pictures are checked afterwards.
    template <typename MakeCommand> Cost In(MakeCommand makeCommand) const
    {
        const QTemporaryDir folder(root_ + QStringLiteral("/stride"));
        const std::vector<std::string> command = makeCommand(folder.path());
        const Cost cost = CostOf(command);
        if (const int faults = FaultsIn(folder.path(), case_); faults > 0)
            std::printf("%d WRONG PICTURES by %s %s\n", faults, command[0].c_str(), command[1].c_str());
        return cost;
    }

    Case case_;
    QString root_;
    QString clip_;
};

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (argc == 5) {
        const QByteArray way = argv[1];
        const QString clip = QString::fromLocal8Bit(argv[2]);
        const int stride = atoi(argv[3]);
        const QString folder = QString::fromLocal8Bit(argv[4]);
        if (way == "server")
            return WriteByServer(clip, stride, folder), 0;
        const QApplication application(argc, argv);
        if (way == "player")
            return WriteByPlayer(clip, stride, folder), 0;
        return WriteByProgram(clip, stride, folder), 0;
    }
    const QString root = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("/dev/shm");
    std::printf("\nPictures written to %s\n\n", qPrintable(root));
    PrintHead();
    for (const Case& one : Cases)
        Bench(one, root).Run();
    return 0;
}
