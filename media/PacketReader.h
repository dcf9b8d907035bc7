#pragma once

#include "media/MediaSource.h"
#include "media/PacketFact.h"
#include "media/PacketStore.h"
#include "media/PlaceFinder.h"
#include <vector>

namespace media {

/// Any packet of a source by its ordinal: from the store, or read again from the file by a reader of its own.
class PacketReader {
public:
    /// facts and keys, the ordinals of the key packets, may grow; all references must outlive the reader.
    PacketReader(const Source& source, Interrupt& interrupt, PacketStore& store,
        const std::vector<PacketFact>& facts, const std::vector<int>& keys);

    /// The packet; ordinal in [0, number of facts). Throws MediaError when the file does not give it any
    /// more.
    PacketPtr Packet(int ordinal);

private:
    PacketPtr ReadBare(int ordinal);
    bool ReadOn(int ordinal);
    bool Reach(int ordinal);

    Source source_;
    Interrupt& interrupt_;
    PacketStore& store_;
    const std::vector<PacketFact>& facts_;
    const std::vector<int>& keys_;
    PlaceFinder finder_;
    std::unique_ptr<MediaSource> media_;
    int next_ = -1; ///< ordinal of the packet that the reader gives next, -1 when it does not know
    std::vector<int64_t> offsets_; ///< first byte of each packet of a bare stream
};

} // namespace media
