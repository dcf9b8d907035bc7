#pragma once

#include <QByteArray>

namespace media {

/// What to open: the bytes of a path on this machine, an address, or a block of memory holding a file.
struct Source {
    enum class Kind { File, Address, Memory } kind = Kind::File;
    QByteArray data;
};

} // namespace media
