#include "desktop/FileError.h"

#include "desktop/FileName.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace {

using Cause = FileError::Cause;

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

constexpr const char* NotSaved = "%1 could not be saved: %2";
constexpr const char* NotOpened = "%1 could not be opened: %2";

[[noreturn]] void Fail(const char* sentence, const QString& path, Cause cause, const QString& why)
{
    throw FileError(cause, QString::fromUtf8(sentence).arg(FileName::Shown(path), why));
}

[[noreturn]] void Fail(const char* sentence, const QString& path, int error)
{
    const auto* row = std::ranges::find(Reasons, error, &Reason::error);
    if (row != std::end(Reasons))
        Fail(sentence, path, row->cause, QString::fromUtf8(row->text));
    std::array<char, 128> text {};
    const char* const why = strerror_r(error, text.data(), text.size()); // threads save at the same time
    Fail(sentence, path, Cause::Other, QString::fromLocal8Bit(why) + QLatin1Char('.'));
}

} // namespace

void FailToSave(const QString& path, int error)
{
    Fail(NotSaved, path, error);
}

void FailToSave(const QString& path, Cause cause, const QString& why)
{
    Fail(NotSaved, path, cause, why);
}

void FailToOpen(const QString& path, int error)
{
    Fail(NotOpened, path, error);
}

void FailToOpen(const QString& path, Cause cause, const QString& why)
{
    Fail(NotOpened, path, cause, why);
}
