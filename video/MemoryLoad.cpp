#include "video/MemoryLoad.h"

#include "app/Frame.h"
#include "app/Talk.h"
#include "video/ltmmPlay.h"

#include <QFile>
#include <new>

void LoadIntoMemory(ltmmPlay& player, const QString& path, Frame& frame, QWidget* owner)
{
    player.ResetSource();
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return;
    try {
        const QByteArray block = file.readAll();
        if (file.error() == QFileDevice::NoError)
            player.SetSourceMemory(block);
        else
            frame.Errors().Show(owner, QStringLiteral("Error!"), QString::number(file.error()));
    } catch (const std::bad_alloc&) {
        return; // nothing is open, as with a file that is not there
    }
}
