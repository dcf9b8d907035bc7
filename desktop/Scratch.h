#pragma once

#include "base/Descriptor.h"
#include "desktop/WholeFile.h"

#include <sys/stat.h>

/// True of a file of length 0, which may be replaced.
bool IsFree(const struct stat& status);

/// A folder held open, so that all steps of one save go to the same place, and one name in it.
class Place {
public:
    explicit Place(const QString& path);
    /// The folder and name of resolved; messages speak of path. Throws FileError when there is no such
    /// folder.
    Place(const QString& path, const QByteArray& resolved);

    int Folder() const { return folder_.Number(); }
    const char* Name() const { return name_.constData(); }
    [[noreturn]] void Fail(int error) const { FailToSave(path_, error); }
    /// Whether something stands there that must not be replaced unasked.
    bool IsTaken() const;

private:
    QString path_;
    QByteArray name_;
    Descriptor folder_;
};

/// The bytes before they get their name: a file without a name where the file system has such, else a
/// neighbour of the place. Gone with this object unless it was named.
class Scratch {
public:
    explicit Scratch(const Place& place);
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch();

    /// Writes and flushes everything, or throws.
    void Write(WholeFile::Blocks blocks);
    void CopyMode(mode_t mode);
    /// Gives the bytes the name of the place; false when it is taken.
    bool TakeFreeName();
    /// Gives the bytes the name of the place, whatever stood there.
    void ReplaceName();

private:
    int Open();
    bool TakeName();
    bool ReserveName();
    bool RemoveEmptyFile();
    void FlushFolder() const;
    void Check(int result) const;
    bool Refused() const;

    const Place& place_;
    QByteArray neighbour_;
    Descriptor file_;
};
