#include "media/PlaceFinder.h"

#include "media/PacketParser.h"
#include <algorithm>
#include <cstring>

namespace media {

namespace {

constexpr int MostUnknownPackets = 500; ///< read after a seek before it counts as missed

uint64_t Signature(uint32_t size, uint32_t check)
{
    return uint64_t(size) << 32 | check;
}

} // namespace

bool PlaceFinder::IsSame(const AVPacket& packet, int ordinal) const
{
    const PacketFact& fact = facts_[size_t(ordinal)];
    return uint32_t(packet.size) == fact.size && CheckOf(packet) == fact.check;
}

/// Reads until one ordinal alone explains the packets read since the seek.
PlaceFinder::Place PlaceFinder::Seek(MediaSource& media, int key, int attempt)
{
    if (!SeekNear(media, key, attempt))
        return {};
    std::vector<int> places;
    for (int count = 0; count < MostUnknownPackets; ++count) {
        PacketPtr packet = media.Read();
        if (!packet)
            return {};
        std::vector<int> found = Candidates(*packet);
        if (!places.empty())
            std::erase_if(found, [&](int place) {
                return std::find(places.begin(), places.end(), place - 1) == places.end();
            });
        if (found.size() == 1)
            return { found.front(), std::move(packet) };
        places = std::move(found);
    }
    return {};
}

/// The first attempt goes by time; where time stamps begin anew the byte is surer, so it is the second; every
/// further one starts earlier.
bool PlaceFinder::SeekNear(MediaSource& media, int key, int attempt) const
{
    const PacketFact& fact = facts_[size_t(key)];
    const bool isMpeg = std::strncmp(media.Format().iformat->name, "mpeg", 4) == 0;
    if (attempt == 1)
        return isMpeg && fact.pos >= 0 && media.SeekByte(fact.pos);
    const int64_t stamp =
        std::min(fact.pts == NoStamp ? fact.dts : fact.pts, fact.dts == NoStamp ? fact.pts : fact.dts);
    if (stamp == NoStamp)
        return false;
    const int64_t second = std::max<int64_t>(1, int64_t(1 / av_q2d(media.Stream().time_base)));
    const int64_t back = attempt == 0 ? 0 : second << std::min(attempt - 2, 30);
    return media.SeekTime(stamp - back);
}

std::vector<int> PlaceFinder::Candidates(const AVPacket& packet)
{
    for (; signed_ < int(facts_.size()); ++signed_)
        bySignature_.emplace(Signature(facts_[size_t(signed_)].size, facts_[size_t(signed_)].check), signed_);
    std::vector<int> found;
    const auto [first, last] = bySignature_.equal_range(Signature(uint32_t(packet.size), CheckOf(packet)));
    for (auto at = first; at != last; ++at)
        found.push_back(at->second);
    if (found.size() < 2)
        return found;
    std::vector<int> byPlace;
    std::copy_if(found.begin(), found.end(), std::back_inserter(byPlace), [&](int ordinal) {
        const PacketFact& fact = facts_[size_t(ordinal)];
        return packet.pos >= 0 ? fact.pos == packet.pos
                               : packet.dts != AV_NOPTS_VALUE && fact.dts == packet.dts;
    });
    return byPlace.empty() ? found : byPlace;
}

} // namespace media
