#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace media {

/// A time stamp that is not known.
constexpr int64_t NoStamp = INT64_MIN;

/// What is known of one packet without decoding it. Packets are named by their ordinal in the order they are
/// stored.
struct PacketFact {
    enum Flag : uint16_t {
        Key = 1, ///< decoding may start here
        Restart = 2, ///< picture order counts start anew here
        Discard = 4, ///< decoded but never shown, as an edit list says
        Hidden = 8, ///< holds only pictures that are not shown
        SecondField = 16, ///< completes the picture of the packet before
        Doubtful = 32, ///< what comes out of the decoder must be looked at
        Unreferenced = 64, ///< no other picture needs this one to be decoded
        Lost = 128, ///< the decoder was seen to give no picture for it
    };
    int64_t pts = NoStamp;
    int64_t dts = NoStamp;
    int64_t pos = -1; ///< byte in the file
    int64_t duration = 0;
    uint32_t size = 0;
    uint32_t check = 0; ///< checksum of the payload
    int32_t order = 0; ///< picture order count, where the codec has one
    int32_t number = -1; ///< place among the shown pictures, -1 for none
    int32_t rank = -1; ///< place in display order among all packets
    uint16_t flags = 0;
    char type = '?'; ///< I, P, B

    bool Has(Flag flag) const { return flags & flag; }
    void Set(Flag flag) { flags = uint16_t(flags | flag); }
    void Clear(Flag flag) { flags = uint16_t(flags & ~flag); }
    bool IsShown() const { return !(flags & (Discard | Hidden | SecondField)); }
};

/// The last of some rising ordinals at or before one, 0 when there is none.
inline int LastBefore(const std::vector<int>& ordinals, int ordinal)
{
    const auto after = std::upper_bound(ordinals.begin(), ordinals.end(), ordinal);
    return after == ordinals.begin() ? 0 : *std::prev(after);
}

} // namespace media
