#pragma once

#include "media/MediaSource.h"
#include "media/PacketFact.h"
#include <unordered_map>
#include <vector>

namespace media {

/// Finds out where among the known packets a reader stands after a seek: it knows them by size, checksum and
/// place, as no time stamp can be relied on.
class PlaceFinder {
public:
    /// facts may grow and must outlive the finder.
    explicit PlaceFinder(const std::vector<PacketFact>& facts)
        : facts_(facts)
    {
    }

    /// The packet that a reader gave last.
    struct Place {
        int ordinal = -1; ///< -1 when it is not known
        PacketPtr packet;
    };
    /// Has the reader seek to a key packet and tells where it came out, which may be behind the key. Each
    /// attempt, counted from 0, goes another way. Throws MediaError when the interrupt is due.
    Place Seek(MediaSource& media, int key, int attempt);

    /// Whether it is this packet.
    bool IsSame(const AVPacket& packet, int ordinal) const;

    static constexpr int MostAttempts = 12;

private:
    bool SeekNear(MediaSource& media, int key, int attempt) const;
    std::vector<int> Candidates(const AVPacket& packet);

    const std::vector<PacketFact>& facts_;
    std::unordered_multimap<uint64_t, int> bySignature_;
    int signed_ = 0; ///< facts taken into bySignature_
};

} // namespace media
