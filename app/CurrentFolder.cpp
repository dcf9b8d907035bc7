#include "app/CurrentFolder.h"

#include "app/ControlError.h"
#include "desktop/FileName.h"

#include <filesystem>
#include <unistd.h>

QString CurrentFolder()
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    if (error)
        throw ControlError(QStringLiteral("The current folder is no longer there."));
    return FileName::FromBytes(QByteArray::fromStdString(folder.native()));
}

void SetCurrentFolder(const QString& folder)
{
    if (::chdir(FileName::ToBytes(folder).constData()) != 0)
        throw ControlError(
            QStringLiteral("The folder \"%1\" cannot be entered.").arg(FileName::Shown(folder)));
}
