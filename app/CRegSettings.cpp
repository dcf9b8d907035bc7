#include "app/CRegSettings.h"

#include "app/SettingsText.h"
#include "desktop/FileName.h"
#include "desktop/WholeFile.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <filesystem>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype MaxBytes = qsizetype(1024) * 1024; // a larger file is none of ours
constexpr auto LockWait = 2000ms;
constexpr auto LockRetry = 2ms; // the lock's own waiting grows to seconds and starves under many writers

QString ValueName(const QString& key)
{
    return key == QLatin1String("*") ? QString() : key;
}

bool Acquire(QLockFile& lock)
{
    const QDeadlineTimer deadline(LockWait);
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired())
            return false;
        QThread::msleep(LockRetry.count());
    }
    return true;
}

/// A file that the user made read-only stays as it is, though its folder would let it be replaced.
bool IsReadOnly(const QString& path)
{
    QFile file(path);
    return file.exists() && !file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly);
}

/// Gives the damaged file a second name, which it keeps when the first one goes to the new file.
bool KeepCopy(const QString& path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path file = fs::canonical(FileName::ToBytes(path).toStdString(), error);
    for (int number = 1; !error; ++number) {
        const fs::path copy = file.string() + ".damaged" + (number > 1 ? std::to_string(number) : "");
        fs::create_hard_link(file, copy, error);
        if (error && error != std::errc::file_exists)
            fs::copy_file(file, copy, error);
        if (!error)
            return true;
        if (error == std::errc::file_exists)
            error.clear();
    }
    return false;
}

} // namespace

CRegSettings::CRegSettings(const QString& folder)
    : folder_(
        folder.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) : folder)
{
    SetCompany({});
    SetAppName({});
}

void CRegSettings::SetCompany(const QString& company)
{
    const QString name = company.trimmed();
    company_ = name.isEmpty() ? QStringLiteral("VB and VBA Program Settings") : name;
}

void CRegSettings::SetAppName(const QString& appName)
{
    const QString name = appName.trimmed();
    appName_ = name.isEmpty() ? QCoreApplication::applicationName() : name;
}

QString CRegSettings::FilePath() const
{
    return folder_ + u'/' + company_ + u'/' + appName_ + QStringLiteral(".conf");
}

SettingsText CRegSettings::Read()
{
    status_ = Success;
    try {
        return SettingsText::Parse(WholeFile::Read(FilePath(), MaxBytes));
    } catch (const FileError& error) {
        if (error.Why() == FileError::Cause::TooLarge)
            return SettingsText::Damaged();
        const bool isMissing =
            error.Why() == FileError::Cause::FileMissing || error.Why() == FileError::Cause::FolderMissing;
        if (error.Why() != FileError::Cause::Empty)
            status_ = isMissing ? NotFound : Unreadable;
    }
    return {};
}

QString CRegSettings::GetSetting(const QString& section, const QString& key, const QString& defaultText)
{
    const QString value = Read().Find(section, ValueName(key)).value_or(QString());
    if (value.isEmpty() && status_ == Success)
        status_ = NotFound;
    return value.isEmpty() ? defaultText : value;
}

bool CRegSettings::SaveSetting(const QString& section, const QString& key, const QString& value)
{
    const Setting setting { key, value };
    return SaveSettings(section, { &setting, 1 });
}

bool CRegSettings::SaveSettings(const QString& section, std::span<const Setting> settings)
{
    status_ = Merge(section, settings);
    return status_ == Success;
}

CRegSettings::Status CRegSettings::Merge(const QString& section, std::span<const Setting> settings)
{
    const QString path = FilePath();
    if (!QDir().mkpath(QFileInfo(path).path()) || IsReadOnly(path))
        return NotWritten;
    QLockFile lock(path + QStringLiteral(".lock"));
    lock.setStaleLockTime(LockWait);
    if (!Acquire(lock))
        return Locked;
    SettingsText stored = Read();
    if (status_ == Unreadable)
        return Unreadable;
    const auto isStored = [&](const Setting& setting) {
        return stored.Find(section, ValueName(setting.key)) == setting.value;
    };
    if (std::ranges::all_of(settings, isStored))
        return Success;
    if (stored.IsDamaged() && !KeepCopy(path))
        return NotWritten;
    for (const Setting& setting : settings)
        stored.Set(section, ValueName(setting.key), setting.value);
    try {
        WholeFile::Replace(path, stored.ToBytes());
    } catch (const FileError&) {
        return NotWritten;
    }
    return Success;
}
