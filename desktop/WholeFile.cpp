#include "desktop/WholeFile.h"

#include "desktop/FileName.h"
#include "desktop/Scratch.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <unistd.h>

namespace {

using Cause = FileError::Cause;

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
            FailToSave(path, errno);
        return { bytes, std::nullopt };
    }
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(bytes.constData(), nullptr), &std::free);
    if (!real && errno == ENOENT)
        FailToSave(path, Cause::LinkWithoutTarget, QStringLiteral("it is a link to a file that is missing."));
    if (!real || stat(real.get(), &status) != 0)
        FailToSave(path, errno);
    if (S_ISDIR(status.st_mode))
        FailToSave(path, EISDIR);
    if (!S_ISREG(status.st_mode))
        FailToSave(path, Cause::NotRegular, QStringLiteral("it is not an ordinary file."));
    if (faccessat(AT_FDCWD, real.get(), W_OK, AT_EACCESS) != 0)
        FailToSave(path, errno);
    return { real.get(), status.st_mode };
}

qsizetype CheckedSize(const QString& path, const struct stat& status, qsizetype limit)
{
    if (S_ISDIR(status.st_mode))
        FailToOpen(path, EISDIR);
    if (!S_ISREG(status.st_mode))
        FailToOpen(path, Cause::NotRegular, QStringLiteral("it is not an ordinary file."));
    if (status.st_size == 0)
        FailToOpen(path, Cause::Empty, QStringLiteral("the file is empty."));
    if (status.st_size > limit)
        FailToOpen(path, Cause::TooLarge, QStringLiteral("the file is too large."));
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
        FailToOpen(path, Cause::FileMissing, QStringLiteral("it is not there."));
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0)
        FailToOpen(path, errno);

    QByteArray bytes(CheckedSize(path, status, limit), Qt::Uninitialized);
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = read(file.Number(), bytes.data() + done, size_t(bytes.size() - done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            FailToOpen(path, errno);
        if (count == 0)
            FailToOpen(path, Cause::Changed, QStringLiteral("it was changed meanwhile."));
        done += count;
    }
    return bytes;
}
