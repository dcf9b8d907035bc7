#include "Program.h"

#include "imaging/PictureFile.h"
#include "media/player/PlayerControl.h"
#include "toolkit/Style.h"

#include <QApplication>

#include <csignal>

namespace {

/// Before any part stands: the picture coders, the face, and no death by a file-size limit or a broken pipe,
/// which the writer tells as errors.
const QString& Prepared(const QString& applicationFolder)
{
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    imaging::PictureFile::Initialise();
    ApplyStyle(*qApp);
    return applicationFolder;
}

} // namespace

Program::Program(const QString& applicationFolder)
    : state_(Prepared(applicationFolder))
    , errors_(state_)
    , main_({ state_, clipboard_, dialogs_, errors_,
          [](QWidget* parent) { return new PlayerControl(parent); } })
{
}
