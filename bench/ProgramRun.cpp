#include "bench/ProgramRun.h"

#include "Program.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <stdexcept>

namespace {

void Prepare(ApplicationState& state, int stride)
{
    state.Settings.SaveSetting(
        QStringLiteral("Options"), QStringLiteral("AutoNumber"), QString::number(stride));
    state.AutoCapture = true;
    state.AutoFrame = true;
    state.FileNames = QStringList { QStringLiteral("video.avi") };
    state.FileCount = 1;
}

} // namespace

void WriteByProgram(const QString& clip, int stride, const QString& folder, const std::function<void()>& look)
{
    qputenv("XDG_CONFIG_HOME", folder.toLocal8Bit());
    // The pictures' own folder is this one, and the video has a name that the run accepts.
    QFile::link(folder, folder + QStringLiteral("/AutoFrame"));
    QFile::link(clip, folder + QStringLiteral("/video.avi"));
    QDir::setCurrent(folder);
    Program program(folder);
    Main& main = program.MainWindow();
    main.resize(1120, 760);
    main.show();
    Prepare(program.State(), stride);
    main.CurrentPlayer(); // makes the video window
    auto* window = qobject_cast<VideoWindow*>(program.State().CurrentVideo.data());
    if (!window)
        throw std::runtime_error("there is no video window");
    main.AddChild(window);
    window->OpenVideo();
    while (!main.IsCommandEnabled(Command::Capture)) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        look();
    }
}
