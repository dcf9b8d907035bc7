#include "toolkit/FileDialog.h"
#include "toolkit/PathText.h"

bool ParseMultiFileName(const QString& buffer, QString& folder, QStringList& files, int& count)
{
    constexpr QChar Nul;
    const QString text = buffer.left(buffer.indexOf(QString(2, Nul)));
    if (QString(text).remove(Nul).trimmed().isEmpty())
        return false;

    if (text.contains(Nul)) {
        files = text.split(Nul);
        folder = files.takeFirst();
        // Each name has its NUL behind it; what stands behind the last one is no name.
        if (files.last().isEmpty())
            files.removeLast();
    }
    if (!text.contains(Nul) || files.isEmpty()) {
        const QString path = text.left(text.indexOf(Nul));
        const qsizetype nameStart = PathText::LastSeparator(path) + 1;
        folder = path.left(nameStart);
        files = { path.mid(nameStart) };
    }
    count = static_cast<int>(files.size());
    return true;
}
