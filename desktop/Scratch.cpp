#include "desktop/Scratch.h"

#include "desktop/FileName.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/uio.h>
#include <vector>

namespace {

QByteArray FolderOf(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.first(slash + 1);
}

/// The lock on a folder that this program's processes and threads share; never waits.
class FolderLock {
public:
    explicit FolderLock(int folder)
        : folder_(folder)
        , isHeld_(flock(folder, LOCK_EX | LOCK_NB) == 0)
        , isBusy_(!isHeld_ && errno == EWOULDBLOCK)
    {
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock()
    {
        if (isHeld_)
            flock(folder_, LOCK_UN);
    }
    bool IsHeld() const { return isHeld_; }
    bool IsBusy() const { return isBusy_; }

private:
    int folder_;
    bool isHeld_;
    bool isBusy_;
};

QByteArray NeighbourName()
{
    return ".taq-" + QByteArray::number(QRandomGenerator::system()->generate64(), 16);
}

/// Calls step with fresh neighbouring names until one is free; the answer of the last call.
template <typename Step> int WithNeighbourName(QByteArray& name, Step&& step)
{
    int result = -1;
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = NeighbourName();
        result = step(name.constData());
        if (result >= 0 || errno != EEXIST)
            break;
    }
    if (result < 0)
        name.clear();
    return result;
}

/// What is left of parts after count bytes were written.
std::span<iovec> Behind(std::span<iovec> parts, size_t count)
{
    while (count > 0) {
        iovec& part = parts.front();
        const size_t step = std::min(count, part.iov_len);
        part.iov_base = static_cast<std::byte*>(part.iov_base) + step;
        part.iov_len -= step;
        count -= step;
        if (part.iov_len == 0)
            parts = parts.subspan(1);
    }
    return parts;
}

} // namespace

bool IsFree(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_size == 0;
}

Place::Place(const QString& path)
    : Place(path, FileName::ToBytes(path))
{
}

Place::Place(const QString& path, const QByteArray& resolved)
    : path_(path)
    , name_(resolved.sliced(resolved.lastIndexOf('/') + 1))
    , folder_(open(FolderOf(resolved).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (!folder_.IsOpen())
        Fail(errno);
    if (name_.isEmpty())
        Fail(EISDIR);
}

bool Place::IsTaken() const
{
    struct stat status;
    return fstatat(Folder(), Name(), &status, AT_SYMLINK_NOFOLLOW) == 0 && !IsFree(status);
}

Scratch::Scratch(const Place& place)
    : place_(place)
    , file_(Open())
{
    if (!file_.IsOpen())
        place_.Fail(errno);
}

Scratch::~Scratch()
{
    if (!neighbour_.isEmpty())
        unlinkat(place_.Folder(), neighbour_.constData(), 0);
}

void Scratch::Check(int result) const
{
    if (result < 0)
        place_.Fail(errno);
}

/// False when the name was taken by somebody; any other failure is told.
bool Scratch::Refused() const
{
    if (errno != EEXIST)
        place_.Fail(errno);
    return false;
}

int Scratch::Open()
{
    const int unnamed = openat(place_.Folder(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    const bool isRefused = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL;
    if (unnamed >= 0 || !isRefused)
        return unnamed;
    return WithNeighbourName(neighbour_, [&](const char* name) {
        return openat(place_.Folder(), name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    });
}

void Scratch::Write(WholeFile::Blocks blocks)
{
    std::vector<iovec> parts;
    parts.reserve(blocks.size());
    for (const WholeFile::Block block : blocks)
        if (!block.empty())
            parts.push_back({ const_cast<std::byte*>(block.data()), block.size() });

    for (std::span<iovec> rest(parts); !rest.empty();) {
        const ssize_t result =
            writev(file_.Number(), rest.data(), int(std::min<size_t>(rest.size(), IOV_MAX)));
        if (result < 0 && errno == EINTR)
            continue;
        if (result <= 0)
            place_.Fail(result < 0 ? errno : EIO);
        rest = Behind(rest, size_t(result));
    }
    Check(fsync(file_.Number()));
}

void Scratch::CopyMode(mode_t mode)
{
    Check(fchmod(file_.Number(), mode & 07777));
}

/// Gives the file the place's name if nothing stands there; false when something does.
bool Scratch::TakeName()
{
    if (neighbour_.isEmpty()) {
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(file_.Number());
        if (linkat(AT_FDCWD, self.constData(), place_.Folder(), place_.Name(), AT_SYMLINK_FOLLOW) == 0)
            return true;
        return Refused();
    }
    if (renameat2(place_.Folder(), neighbour_.constData(), place_.Folder(), place_.Name(), RENAME_NOREPLACE)
        == 0) {
        neighbour_.clear();
        return true;
    }
    if (errno == EINVAL || errno == ENOSYS)
        return ReserveName();
    return Refused();
}

/// For file systems that can rename only by replacing: an empty file keeps the name until the whole one takes
/// it.
bool Scratch::ReserveName()
{
    const FolderLock lock(place_.Folder());
    if (lock.IsBusy())
        return false;
    const Descriptor reserved(
        openat(place_.Folder(), place_.Name(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
    if (!reserved.IsOpen())
        return Refused();
    if (renameat(place_.Folder(), neighbour_.constData(), place_.Folder(), place_.Name()) != 0) {
        const int error = errno;
        unlinkat(place_.Folder(), place_.Name(), 0);
        place_.Fail(error);
    }
    neighbour_.clear();
    return true;
}

/// Removes a file of length 0 that stands in the way. Only who holds the lock removes, or one process could
/// remove what another has just named.
bool Scratch::RemoveEmptyFile()
{
    const FolderLock lock(place_.Folder());
    if (!lock.IsHeld() || place_.IsTaken())
        return false;
    return unlinkat(place_.Folder(), place_.Name(), 0) == 0 || errno == ENOENT;
}

bool Scratch::TakeFreeName()
{
    if (!TakeName() && !(RemoveEmptyFile() && TakeName()))
        return false;
    FlushFolder();
    return true;
}

void Scratch::ReplaceName()
{
    if (neighbour_.isEmpty()) {
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(file_.Number());
        Check(WithNeighbourName(neighbour_, [&](const char* name) {
            return linkat(AT_FDCWD, self.constData(), place_.Folder(), name, AT_SYMLINK_FOLLOW);
        }));
    }
    Check(renameat(place_.Folder(), neighbour_.constData(), place_.Folder(), place_.Name()));
    neighbour_.clear();
    FlushFolder();
}

/// Until the folder itself is on the disk, a loss of power can take the name back. Some file systems know no
/// such flush.
void Scratch::FlushFolder() const
{
    if (fsync(place_.Folder()) != 0 && errno != EINVAL)
        place_.Fail(errno);
}
