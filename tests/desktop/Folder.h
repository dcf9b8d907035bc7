#pragma once

#include "desktop/FileName.h"
#include "desktop/WholeFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A folder of a test, and what stands in it.
class Folder {
public:
    QString Path(const QString& name) const { return folder_.filePath(name); }
    QByteArray Bytes(const QString& name) const { return FileName::ToBytes(Path(name)); }
    QStringList Names() const
    {
        return QDir(folder_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    void Put(const QString& name, const QByteArray& content) const
    {
        QFile file(Path(name));
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }
    /// Empty also when there is no such file; see Names.
    QByteArray Content(const QString& name) const
    {
        QFile file(Path(name));
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

private:
    QTemporaryDir folder_;
};

inline bool Create(const QString& path, const QByteArray& content)
{
    const auto block = std::as_bytes(std::span(content.constData(), size_t(content.size())));
    return WholeFile::Create(path, WholeFile::Blocks(&block, 1));
}

/// The cause of the failure of step; nothing when it does not fail.
template <typename Step> std::optional<FileError::Cause> CauseOf(Step&& step)
{
    try {
        step();
    } catch (const FileError& error) {
        return error.Why();
    }
    return std::nullopt;
}
