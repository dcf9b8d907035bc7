#include "toolkit/PathText.h"

#include <QDir>

QChar PathText::Separator()
{
    return QDir::separator();
}

qsizetype PathText::LastSeparator(const QString& path)
{
    const bool isAddress = path.contains(QLatin1String("://"));
    return path.lastIndexOf(isAddress ? QLatin1Char('\\') : Separator());
}
