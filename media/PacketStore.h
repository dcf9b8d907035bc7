#pragma once

#include "media/Libav.h"
#include <map>

namespace media {

/// Packets kept in memory by ordinal, within a limit of bytes.
class PacketStore {
public:
    explicit PacketStore(int64_t limit)
        : limit_(limit)
    {
    }
    /// Keeps the packet if there is room; an index that reads far ahead must not drive out what is played.
    void Offer(int ordinal, const AVPacket& packet);
    /// Keeps the packet and drops those farthest from it until the limit holds.
    void Put(int ordinal, const AVPacket& packet);
    /// The packet, null when it is not kept.
    const AVPacket* Find(int ordinal) const;

    int64_t Bytes() const { return bytes_; }

private:
    void Insert(int ordinal, const AVPacket& packet);

    int64_t limit_;
    int64_t bytes_ = 0;
    std::map<int, PacketPtr> packets_;
};

} // namespace media
