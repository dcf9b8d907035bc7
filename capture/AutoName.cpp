#include "capture/AutoName.h"

#include "app/ControlError.h"
#include "desktop/WholeFile.h"
#include "toolkit/PathText.h"

AutoName::AutoName(const QString& folder, const QString& extension, const QString& stem)
    : front_(folder + PathText::Separator() + stem)
    , extension_(extension)
{
    if (folder.trimmed().isEmpty())
        throw ControlError(QStringLiteral("No folder for captures is set."));
}

QString AutoName::At(int number) const
{
    return front_ + QString::number(number) + extension_;
}

int AutoName::NextFree(int after) const
{
    int number = after + 1;
    while (FileHasContent(At(number)))
        ++number;
    return number;
}

int AutoName::Write(const WriteNew& write, int after) const
{
    int number = NextFree(after);
    while (!write(At(number)))
        number = NextFree(number);
    return number;
}
