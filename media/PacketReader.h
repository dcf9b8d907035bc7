#pragma once

#include "media/MediaSource.h"
#include "media/PacketFact.h"
#include "media/PacketStore.h"
#include <unordered_map>
#include <vector>

namespace media {

/// Any packet of a source by its ordinal: from the store, or read again from the file by a reader of its own,
/// which knows packets by size, checksum and place, as no time stamp can be relied on.
class PacketReader {
public:
    /// facts may grow; all references must outlive the reader.
    PacketReader(
        const Source& source, Interrupt& interrupt, PacketStore& store, const std::vector<PacketFact>& facts);

    /// The packet; ordinal in [0, number of facts). Throws MediaError when the file does not give it any
    /// more.
    PacketPtr Packet(int ordinal);

private:
    bool IsSame(const AVPacket& packet, int ordinal) const;
    PacketPtr ReadBare(int ordinal);
    bool ReadOn(int ordinal);
    bool Reach(int ordinal);
    bool SeekNear(int key, int attempt);
    int FindPlace();
    std::vector<int> Candidates(const AVPacket& packet);
    int KeyAtOrBefore(int ordinal) const;

    Source source_;
    Interrupt& interrupt_;
    PacketStore& store_;
    const std::vector<PacketFact>& facts_;
    std::unique_ptr<MediaSource> media_;
    int next_ = -1; ///< ordinal of the packet that the reader gives next, -1 when it does not know
    std::unordered_multimap<uint64_t, int> bySignature_;
    int signed_ = 0; ///< facts taken into bySignature_
    std::vector<int64_t> offsets_; ///< first byte of each packet of a bare stream
};

} // namespace media
