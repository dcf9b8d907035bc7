#pragma once

#include <QString>
#include <functional>

/// Automatic names: a folder, a stem, the lowest free number from 1, an extension with its point. A gap left
/// by a deleted file is filled again; a missing file and a file of length 0 count as free.
class AutoName {
public:
    /// Throws ControlError when folder is blank, since the name would stand in the root folder.
    AutoName(const QString& folder, const QString& extension, const QString& stem = QStringLiteral("auto"));

    /// The path with this number; numbers may grow to any width.
    QString At(int number) const;
    /// The lowest number above after whose name is free.
    int NextFree(int after = 0) const;

    /// Writes a file under the path it is given and answers false when that name is taken.
    using WriteNew = std::function<bool(const QString& path)>;
    /// Gives write the next free name above after, and the one behind it whenever somebody else was faster,
    /// until the file stands. The result is its number.
    int Write(const WriteNew& write, int after = 0) const;

private:
    QString front_;
    QString extension_;
};
