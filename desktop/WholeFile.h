#pragma once

#include "desktop/FileError.h"

#include <QByteArray>

#include <cstddef>
#include <span>

/// True when something stands at path that must not be replaced unasked: a file with content, a folder, a
/// link, a pipe or a device. A missing file and a file of length 0 count as free.
bool FileHasContent(const QString& path);

/// The one road of bytes to and from the disk. A name never holds half a file: the bytes stand in an unnamed
/// or neighbouring temporary file, counted and flushed, before they get their name. A failure throws
/// FileError, leaves what stood there and no stray file; when it is only the folder that cannot be flushed,
/// the whole new file stands there already. Paths are texts of FileName; safe to call from several threads
/// and processes. Relies on SIGXFSZ being ignored, or a file-size limit ends the process.
namespace WholeFile {

/// One stretch of bytes, and the stretches of a file in their order.
using Block = std::span<const std::byte>;
using Blocks = std::span<const Block>;

/// Writes a file under a name that must be free (see FileHasContent). False when the name is taken, also by
/// another process a moment ago: nothing is changed and the caller tries the next name.
bool Create(const QString& path, Blocks blocks);
/// Writes a file under a name that the user chose and confirmed: replaces it whole and keeps its mode; a
/// symbolic link keeps pointing at the file replaced.
void Replace(const QString& path, Blocks blocks);
void Replace(const QString& path, const QByteArray& bytes);
/// The content of a regular file of 1 to limit bytes; never waits for a pipe or a device.
QByteArray Read(const QString& path, qsizetype limit);

} // namespace WholeFile
