#pragma once

#include "media/PacketFact.h"
#include <cstddef>
#include <map>
#include <vector>

namespace media {

/// How packets are brought from decode order into display order.
enum class Ordering {
    Straight, ///< they are stored as they are shown
    HoldReferences, ///< an I or P picture is shown when the next one arrives, B pictures at once
    ByCount, ///< by the picture order count between two restarts
    Unknown, ///< only the decoder can tell
};

/// Puts packets in display order. Packets that show nothing take part too, so that every packet has a place.
class DisplayOrder {
public:
    /// No picture is shown after more than this many that were stored behind it.
    static constexpr std::size_t DeepestReorder = 16;

    explicit DisplayOrder(Ordering ordering)
        : ordering_(ordering)
    {
    }
    /// Takes the next packet in decode order and appends to shown the ordinals whose place is certain by now.
    void Add(int ordinal, const PacketFact& fact, std::vector<int>& shown);
    /// The stream has ended: appends the rest.
    void Finish(std::vector<int>& shown);

private:
    void AddHeld(int ordinal, const PacketFact& fact, std::vector<int>& shown);
    void AddCounted(int ordinal, const PacketFact& fact, std::vector<int>& shown);

    Ordering ordering_;
    int held_ = -1;
    std::multimap<int32_t, int> counted_;
};

/// The display order of a run of packets taken by itself; ordinals count from first.
std::vector<int> OrderOf(Ordering ordering, const std::vector<PacketFact>& facts, int first, int end);

/// Whether pictures are missing between those of the list, as their order counts do not rise evenly along it.
bool HasHoles(const std::vector<PacketFact>& facts, const std::vector<int>& displayOrder);

/// Whether every picture of the list has its own time stamp and these rise along it; true also when any stamp
/// is missing or doubled, as nothing can be said then.
bool StampsAgree(const std::vector<PacketFact>& facts, const std::vector<int>& displayOrder);

} // namespace media
