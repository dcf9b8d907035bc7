#include "media/PacketStore.h"

namespace media {

void PacketStore::Offer(int ordinal, const AVPacket& packet)
{
    if (bytes_ + packet.size <= limit_)
        Insert(ordinal, packet);
}

void PacketStore::Put(int ordinal, const AVPacket& packet)
{
    Insert(ordinal, packet);
    while (bytes_ > limit_ && packets_.size() > 1) {
        const bool dropFirst = ordinal - packets_.begin()->first > packets_.rbegin()->first - ordinal;
        const auto farthest = dropFirst ? packets_.begin() : std::prev(packets_.end());
        bytes_ -= farthest->second->size;
        packets_.erase(farthest);
    }
}

void PacketStore::Insert(int ordinal, const AVPacket& packet)
{
    if (packets_.contains(ordinal))
        return;
    packets_.emplace(ordinal, CloneOf(packet));
    bytes_ += packet.size;
}

const AVPacket* PacketStore::Find(int ordinal) const
{
    const auto found = packets_.find(ordinal);
    return found == packets_.end() ? nullptr : found->second.get();
}

} // namespace media
