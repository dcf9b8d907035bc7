#pragma once

#include <QString>

#include <span>

class SettingsText;

/// A text and the key under which it is stored.
struct Setting {
    QString key;
    QString value;
};

/// The settings store: texts by section and key in the file <folder>/<Company>/<AppName>.conf.
/// Each call reads the file anew and a save merges into it under a lock, so several programs share one store
/// and keys that this program does not know are kept. A key of "*" is the section's unnamed value.
class CRegSettings {
public:
    /// What became of the last call.
    enum Status { Success = 0, NotFound, Unreadable, Locked, NotWritten };

    /// The user's configuration folder is taken when folder is empty.
    explicit CRegSettings(const QString& folder = {});

    QString Company() const { return company_; }
    /// Trimmed; an empty text restores "VB and VBA Program Settings".
    void SetCompany(const QString& company);
    QString AppName() const { return appName_; }
    /// Trimmed; an empty text restores the application's name.
    void SetAppName(const QString& appName);

    QString FilePath() const;

    /// The text stored, or defaultText when there is none, when it is empty, and on any failure.
    QString GetSetting(const QString& section, const QString& key, const QString& defaultText);
    /// True when the value stands on the disk. A failure leaves the file as it was. A damaged file is kept as
    /// a copy named ".damaged" beside it before it is written for the first time.
    bool SaveSetting(const QString& section, const QString& key, const QString& value);
    /// The same of several at once: all stand on the disk, in the order in which they are new to it, or none.
    bool SaveSettings(const QString& section, std::span<const Setting> settings);

    Status LastStatus() const { return status_; }

private:
    /// Sets the status; a missing file is an empty text.
    SettingsText Read();
    Status Merge(const QString& section, std::span<const Setting> settings);

    QString folder_;
    QString company_;
    QString appName_;
    Status status_ = Success;
};
