#include "desktop/WholeFile.h"

#include "desktop/FileName.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>
#include <vector>

namespace {

using Cause = FileError::Cause;
using WholeFile::Block;
using WholeFile::Blocks;

struct Reason {
    int error;
    Cause cause;
    const char* text;
};

constexpr Reason Reasons[] = {
    { ENOENT, Cause::FolderMissing, "the folder is missing." },
    { ENOTDIR, Cause::NotAFolder, "a part of its path is not a folder." },
    { EACCES, Cause::NoPermission, "there is no permission to do so." },
    { EPERM, Cause::NoPermission, "there is no permission to do so." },
    { EROFS, Cause::ReadOnly, "the disk can only be read." },
    { ENOSPC, Cause::DiskFull, "the disk is full." },
    { EDQUOT, Cause::QuotaUsedUp, "the space allowed to you on the disk is used up." },
    { EFBIG, Cause::TooLarge, "it is larger than is allowed here." },
    { ENAMETOOLONG, Cause::NameTooLong, "the name is too long." },
    { ELOOP, Cause::LinkLoop, "the link goes round in a circle." },
    { EISDIR, Cause::IsFolder, "it is a folder." },
    { EIO, Cause::DeviceFault, "the disk reports a fault." },
};

[[noreturn]] void Fail(const char* sentence, const QString& path, Cause cause, const QString& why)
{
    throw FileError(cause, QString::fromUtf8(sentence).arg(FileName::Shown(path), why));
}

constexpr const char* NotSaved = "%1 could not be saved: %2";
constexpr const char* NotOpened = "%1 could not be opened: %2";

[[noreturn]] void Fail(const char* sentence, const QString& path, int error)
{
    const auto* row = std::ranges::find(Reasons, error, &Reason::error);
    if (row != std::end(Reasons))
        Fail(sentence, path, row->cause, QString::fromUtf8(row->text));
    Fail(sentence, path, Cause::Other, QString::fromLocal8Bit(std::strerror(error)) + QLatin1Char('.'));
}

class Descriptor {
public:
    explicit Descriptor(int number)
        : number_(number)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0)
            close(number_);
    }
    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

private:
    int number_;
};

bool IsFree(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_size == 0;
}

/// A folder held open, so that all steps of one save go to the same place, and one name in it.
class Place {
public:
    explicit Place(const QString& path)
        : Place(path, FileName::ToBytes(path))
    {
    }
    /// The folder and name of resolved; messages speak of path.
    Place(const QString& path, const QByteArray& resolved)
        : path_(path)
        , name_(resolved.sliced(resolved.lastIndexOf('/') + 1))
        , folder_(open(FolderOf(resolved).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (!folder_.IsOpen())
            Fail(errno);
        if (name_.isEmpty())
            Fail(EISDIR);
    }

    int Folder() const { return folder_.Number(); }
    const char* Name() const { return name_.constData(); }
    [[noreturn]] void Fail(int error) const { ::Fail(NotSaved, path_, error); }

    bool IsTaken() const
    {
        struct stat status;
        return fstatat(Folder(), Name(), &status, AT_SYMLINK_NOFOLLOW) == 0 && !IsFree(status);
    }

private:
    static QByteArray FolderOf(const QByteArray& path)
    {
        const qsizetype slash = path.lastIndexOf('/');
        return slash < 0 ? QByteArray(".") : path.first(slash + 1);
    }

    QString path_;
    QByteArray name_;
    Descriptor folder_;
};

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

/// The bytes before they get their name: a file without a name where the file system has such, else a
/// neighbour of the place. Gone with this object unless it was named.
class Scratch {
public:
    explicit Scratch(const Place& place)
        : place_(place)
        , file_(Open())
    {
        if (!file_.IsOpen())
            place_.Fail(errno);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch()
    {
        if (!neighbour_.isEmpty())
            unlinkat(place_.Folder(), neighbour_.constData(), 0);
    }

    void Write(Blocks blocks);
    void CopyMode(mode_t mode);
    bool TakeFreeName();
    void ReplaceName();

private:
    int Open();
    bool TakeName();
    bool ReserveName();
    bool RemoveEmptyFile();
    int Check(int result) const
    {
        if (result < 0)
            place_.Fail(errno);
        return result;
    }

    const Place& place_;
    QByteArray neighbour_;
    Descriptor file_;
};

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

void Scratch::Write(Blocks blocks)
{
    std::vector<iovec> parts;
    parts.reserve(blocks.size());
    for (const Block block : blocks)
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
        return errno == EEXIST ? false : Check(-1) == 0;
    }
    if (renameat2(place_.Folder(), neighbour_.constData(), place_.Folder(), place_.Name(), RENAME_NOREPLACE)
        == 0) {
        neighbour_.clear();
        return true;
    }
    if (errno == EINVAL || errno == ENOSYS)
        return ReserveName();
    return errno == EEXIST ? false : Check(-1) == 0;
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
        return errno == EEXIST ? false : Check(-1) == 0;
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
    return TakeName() || (RemoveEmptyFile() && TakeName());
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
    if (fsync(place_.Folder()) != 0 && errno != EINVAL)
        Check(-1);
}

/// The file that a confirmed name stands for, behind all links, and its mode when it exists.
struct Confirmed {
    QByteArray path;
    std::optional<mode_t> mode;
};

Confirmed Resolve(const QString& path)
{
    const QByteArray bytes = FileName::ToBytes(path);
    struct stat status;
    if (lstat(bytes.constData(), &status) != 0) {
        if (errno != ENOENT)
            Fail(NotSaved, path, errno);
        return { bytes, std::nullopt };
    }
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(bytes.constData(), nullptr), &std::free);
    if (!real && errno == ENOENT)
        Fail(NotSaved, path, Cause::LinkWithoutTarget,
            QStringLiteral("it is a link to a file that is missing."));
    if (!real || stat(real.get(), &status) != 0)
        Fail(NotSaved, path, errno);
    if (S_ISDIR(status.st_mode))
        Fail(NotSaved, path, EISDIR);
    if (!S_ISREG(status.st_mode))
        Fail(NotSaved, path, Cause::NotRegular, QStringLiteral("it is not an ordinary file."));
    if (access(real.get(), W_OK) != 0)
        Fail(NotSaved, path, errno);
    return { real.get(), status.st_mode };
}

qsizetype CheckedSize(const QString& path, const struct stat& status, qsizetype limit)
{
    if (S_ISDIR(status.st_mode))
        Fail(NotOpened, path, EISDIR);
    if (!S_ISREG(status.st_mode))
        Fail(NotOpened, path, Cause::NotRegular, QStringLiteral("it is not an ordinary file."));
    if (status.st_size == 0)
        Fail(NotOpened, path, Cause::Empty, QStringLiteral("the file is empty."));
    if (status.st_size > limit)
        Fail(NotOpened, path, Cause::TooLarge, QStringLiteral("the file is too large."));
    return status.st_size;
}

} // namespace

bool FileHasContent(const QString& path)
{
    struct stat status;
    return lstat(FileName::ToBytes(path).constData(), &status) == 0 && !IsFree(status);
}

bool WholeFile::Create(const QString& path, Blocks blocks)
{
    const Place place(path);
    if (place.IsTaken())
        return false;
    Scratch scratch(place);
    scratch.Write(blocks);
    return scratch.TakeFreeName();
}

void WholeFile::Replace(const QString& path, Blocks blocks)
{
    const Confirmed confirmed = Resolve(path);
    const Place place(path, confirmed.path);
    Scratch scratch(place);
    if (confirmed.mode)
        scratch.CopyMode(*confirmed.mode);
    scratch.Write(blocks);
    scratch.ReplaceName();
}

void WholeFile::Replace(const QString& path, const QByteArray& bytes)
{
    const Block block = std::as_bytes(std::span(bytes.constData(), size_t(bytes.size())));
    Replace(path, Blocks(&block, 1));
}

QByteArray WholeFile::Read(const QString& path, qsizetype limit)
{
    const Descriptor file(
        open(FileName::ToBytes(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status;
    if (!file.IsOpen() && errno == ENOENT)
        Fail(NotOpened, path, Cause::FileMissing, QStringLiteral("it is not there."));
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0)
        Fail(NotOpened, path, errno);

    QByteArray bytes(CheckedSize(path, status, limit), Qt::Uninitialized);
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = read(file.Number(), bytes.data() + done, size_t(bytes.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            Fail(NotOpened, path, errno);
        if (count == 0)
            Fail(NotOpened, path, Cause::Changed, QStringLiteral("it was changed meanwhile."));
        done += count;
    }
    return bytes;
}
