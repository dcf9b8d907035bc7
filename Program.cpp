#include "Program.h"

#include "imaging/PictureFile.h"
#include "media/player/PlayerControl.h"
#include "toolkit/Style.h"

#include <QApplication>

#include <clocale>
#include <csignal>

namespace {

/// Clicks wait.
void PaintWindows()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

Program::Libraries::Libraries()
{
    // The writer tells a file-size limit and a broken pipe as errors; they must not end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    // The toolkit takes the user's locale; by that of some, the libraries would not read "9.5" as one number.
    std::setlocale(LC_NUMERIC, "C");
    imaging::PictureFile::Initialise();
    ApplyStyle(*qApp);
}

Program::Program(const QString& applicationFolder)
    : state_(applicationFolder)
    , errors_(state_)
    , printers_(PaintWindows)
    , main_({ state_, clipboard_, dialogs_, errors_, documents_, printers_, wallpaper_,
          [](QWidget* parent) { return new PlayerControl(parent, player::AwaitWithBox); } })
{
}
