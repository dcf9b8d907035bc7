#pragma once

#include "media/Libav.h"
#include <QByteArray>

namespace media {

/// A block of memory as a file for the demuxer.
class MemoryFile {
public:
    explicit MemoryFile(const QByteArray& content);
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// What the demuxer reads from; the file's own.
    AVIOContext* Io() const { return io_; }

private:
    static int Read(void* self, uint8_t* target, int size);
    static int64_t Seek(void* self, int64_t offset, int whence);

    QByteArray bytes_;
    qsizetype at_ = 0;
    AVIOContext* io_;
};

} // namespace media
