#include "Program.h"
#include "desktop/FileName.h"
#include "frame/CommandLine.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr int BadUsage = 2;

CommandLine Given(int argc, char** argv)
{
    return ReadCommandLine(QByteArrayList(argv + (argc > 0), argv + argc));
}

void Say(std::FILE* where, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), where);
}

/// The exit code of a start that asks only for words; nothing for one that opens the program.
std::optional<int> Answer(const CommandLine& given)
{
    switch (given.wish) {
    case CommandLine::Wish::Open:
        return std::nullopt;
    case CommandLine::Wish::Help:
        Say(stdout, CommandLineHelp());
        return EXIT_SUCCESS;
    case CommandLine::Wish::Version:
        Say(stdout, QStringLiteral("TAQ Video Capture Pro " TAQ_VERSION "\n"));
        return EXIT_SUCCESS;
    case CommandLine::Wish::Unknown:
        Say(stderr,
            QStringLiteral("taq: The program has no option \"%1\". \"taq --help\" tells those that it has.\n")
                .arg(FileName::Shown(given.unknown)));
        return BadUsage;
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char** argv)
{
    // Words need no screen, so they come before one is asked for. An unknown option may be the toolkit's yet.
    const CommandLine whole = Given(argc, argv);
    if (whole.wish != CommandLine::Wish::Unknown)
        if (const auto code = Answer(whole))
            return *code;
    QApplication application(argc, argv); // takes its options out
    const CommandLine given = Given(argc, argv);
    if (const auto code = Answer(given))
        return *code;

    application.setApplicationName(QStringLiteral("TAQ Video Capture Pro"));
    application.setDesktopFileName(QStringLiteral("com.marlowfern.taq"));
    Program program(QCoreApplication::applicationDirPath());
    application.setWindowIcon(QIcon(QStringLiteral(":/art/program.svg")));
    Main& frame = program.MainWindow();
    frame.show();
    QTimer::singleShot(0, &frame, [&] { frame.OpenGiven(given); });
    return application.exec();
}
