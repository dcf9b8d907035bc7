#pragma once

#include <QDir>
#include <QFile>

/// What stands in a file, "no file" when there is none.
inline QByteArray FileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

/// Makes a file with this content; its folder must be there.
inline bool MakeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// The names in a folder, hidden ones too, in alphabetical order.
inline QStringList FilesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}
