#pragma once

#include <QString>

#include <stdexcept>

/// A file could not be read or written; what() names the file and says why in the program's words.
class FileError : public std::runtime_error {
public:
    enum class Cause {
        FolderMissing,
        NotAFolder,
        FileMissing,
        NoPermission,
        ReadOnly,
        DiskFull,
        QuotaUsedUp,
        TooLarge,
        NameTooLong,
        LinkLoop,
        LinkWithoutTarget,
        IsFolder,
        NotRegular,
        Empty,
        Changed,
        DeviceFault,
        Other
    };

    FileError(Cause cause, const QString& message)
        : std::runtime_error(message.toStdString())
        , cause_(cause)
    {
    }
    Cause Why() const { return cause_; }
    QString Reason() const { return QString::fromStdString(what()); }

private:
    Cause cause_;
};

/// Throws what is to be said of a file that could not be saved, or opened: the system's error number, or a
/// cause of our own with its reason as the end of a sentence.
[[noreturn]] void FailToSave(const QString& path, int error);
[[noreturn]] void FailToSave(const QString& path, FileError::Cause cause, const QString& why);
[[noreturn]] void FailToOpen(const QString& path, int error);
[[noreturn]] void FailToOpen(const QString& path, FileError::Cause cause, const QString& why);
