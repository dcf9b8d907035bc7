#include "video/MemoryLoad.h"

#include "app/Frame.h"
#include "app/Talk.h"
#include "base/Descriptor.h"
#include "desktop/FileName.h"
#include "video/ltmmPlay.h"

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>

namespace {

/// Reads as much as block holds. The number of the system's error, 0 when the block is full.
int Fill(QByteArray& block, int file)
{
    qsizetype count = 0;
    while (count < block.size()) {
        const ssize_t more = read(file, block.data() + count, size_t(block.size() - count));
        if (more == 0)
            return EIO; // the file is shorter than it says
        if (more < 0 && errno != EINTR)
            return errno;
        count += qMax<ssize_t>(more, 0);
    }
    return 0;
}

} // namespace

void LoadIntoMemory(ltmmPlay& player, const QString& path, Frame& frame, QWidget* owner)
{
    player.ResetSource();
    const Descriptor file(open(FileName::ToBytes(path).constData(), O_RDONLY | O_CLOEXEC));
    struct stat facts { };
    if (!file.IsOpen() || fstat(file.Number(), &facts) != 0)
        return;
    try {
        QByteArray block(facts.st_size, Qt::Uninitialized);
        if (const int error = Fill(block, file.Number()))
            frame.Errors().Show(owner, QStringLiteral("Error!"), QString::number(error));
        else
            player.SetSourceMemory(block);
    } catch (const std::bad_alloc&) {
        return; // nothing is open, as with a file that is not there
    }
}
