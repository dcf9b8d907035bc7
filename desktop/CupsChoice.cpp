#include "desktop/CupsChoice.h"

#include <QDir>
#include <QFile>

QByteArray CupsChoice()
{
    QFile file(QDir::homePath() + QStringLiteral("/.cups/lpoptions"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.size() > 1 && words[0].toLower() == "default")
            return words[1];
    }
    return {};
}
