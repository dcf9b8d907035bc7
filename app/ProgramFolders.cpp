#include "app/ProgramFolders.h"

#include "desktop/FileName.h"
#include "toolkit/PathText.h"

#include <QDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// What an installation puts beside "bin".
constexpr auto SharedFolder = "../share/taq-video-capture-pro";
constexpr auto GuideFile = "Help/TAQ.HLP";

QString Joined(const QString& folder, const QString& name)
{
    return folder + PathText::Separator() + name;
}

bool Exists(const QString& path)
{
    return ::access(FileName::ToBytes(path).constData(), F_OK) == 0;
}

bool MayWrite(const QString& folder)
{
    return ::faccessat(AT_FDCWD, FileName::ToBytes(folder).constData(), W_OK | X_OK, AT_EACCESS) == 0;
}

/// False when it was there already, or cannot be made.
bool MakeFolder(const QString& path)
{
    return ::mkdir(FileName::ToBytes(path).constData(), 0777) == 0;
}

} // namespace

ProgramFolders::ProgramFolders(const QString& applicationFolder, const QString& dataFolder)
    : applicationFolder_(applicationFolder)
    , dataFolder_(dataFolder)
    // The administrator may write everywhere, but his captures have no business among the system's programs.
    , isBeside_(
          MayWrite(applicationFolder) && !Exists(Joined(applicationFolder, QLatin1String(SharedFolder))))
    , home_(isBeside_ ? applicationFolder : Joined(dataFolder, QStringLiteral("TAQ Video Capture Pro")))
{
}

QString ProgramFolders::Guide() const
{
    const QString beside = Joined(applicationFolder_, QLatin1String(GuideFile));
    const QString shared = QDir::cleanPath(
        Joined(Joined(applicationFolder_, QLatin1String(SharedFolder)), QLatin1String(GuideFile)));
    return !Exists(beside) && Exists(shared) ? shared : beside;
}

QString ProgramFolders::Backgrounds() const
{
    return Joined(dataFolder_, QStringLiteral("backgrounds"));
}

bool ProgramFolders::Make() const
{
    if (!isBeside_)
        QDir().mkpath(dataFolder_);
    const bool isNew = !isBeside_ && MakeFolder(home_);
    for (const char* name : { "AutoSave", "AutoFrame", "WallPaper", "Help" })
        MakeFolder(Joined(home_, QLatin1String(name)));
    return isNew;
}
