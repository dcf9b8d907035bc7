#include "media/PacketReader.h"

#include "media/PacketParser.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace media {

namespace {

constexpr int MostAttempts = 12;
constexpr int MostUnknownPackets = 500; ///< read after a seek before it counts as missed
constexpr int NearEnough = 64; ///< packets that are read over rather than sought

uint64_t Signature(uint32_t size, uint32_t check)
{
    return uint64_t(size) << 32 | check;
}

} // namespace

PacketReader::PacketReader(
    const Source& source, Interrupt& interrupt, PacketStore& store, const std::vector<PacketFact>& facts)
    : source_(source)
    , interrupt_(interrupt)
    , store_(store)
    , facts_(facts)
{
}

PacketPtr PacketReader::Packet(int ordinal)
{
    if (const AVPacket* kept = store_.Find(ordinal))
        return PacketPtr(av_packet_clone(kept));
    if (!media_) {
        media_ = std::make_unique<MediaSource>(source_, interrupt_);
        next_ = 0;
    }
    if (media_->IsBareStream()) {
        if (PacketPtr packet = ReadBare(ordinal))
            return packet;
    }
    if (Reach(ordinal)) {
        if (const AVPacket* kept = store_.Find(ordinal))
            return PacketPtr(av_packet_clone(kept));
    }
    throw MediaError(Failure::Vanished, "the file does not give a packet again");
}

bool PacketReader::IsSame(const AVPacket& packet, int ordinal) const
{
    const PacketFact& fact = facts_[size_t(ordinal)];
    return uint32_t(packet.size) == fact.size && CheckOf(packet) == fact.check;
}

/// A bare stream is cut differently after a seek, but its packets lie side by side.
PacketPtr PacketReader::ReadBare(int ordinal)
{
    if (offsets_.empty())
        offsets_.push_back(0);
    while (offsets_.size() <= size_t(ordinal))
        offsets_.push_back(offsets_.back() + facts_[offsets_.size() - 1].size);
    next_ = -1;
    PacketPtr packet = media_->ReadBytes(offsets_[size_t(ordinal)], int(facts_[size_t(ordinal)].size));
    if (!packet || !IsSame(*packet, ordinal))
        return nullptr;
    store_.Put(ordinal, *packet);
    return packet;
}

/// Goes on to the packet from wherever the reader is, keeping what it passes; false when the file tells
/// another story.
bool PacketReader::ReadOn(int ordinal)
{
    while (next_ >= 0 && next_ <= ordinal) {
        const int expected = std::exchange(next_, -1); // stays so when the read is broken off
        const PacketPtr packet = media_->Read();
        if (!packet || !IsSame(*packet, expected))
            return false;
        store_.Put(expected, *packet);
        next_ = expected + 1;
    }
    return next_ > ordinal && store_.Find(ordinal);
}

bool PacketReader::Reach(int ordinal)
{
    const int key = KeyAtOrBefore(ordinal);
    const bool isNear = next_ >= 0 && next_ <= ordinal && (next_ >= key || ordinal - next_ < NearEnough);
    if (isNear && ReadOn(ordinal))
        return true;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        if (!SeekNear(key, attempt))
            continue;
        next_ = FindPlace();
        if (next_ >= 0 && next_ <= key + 1 && (store_.Find(ordinal) || ReadOn(ordinal)))
            return true;
    }
    media_->Rewind();
    next_ = 0;
    return ReadOn(ordinal);
}

/// The first attempt goes by time; where time stamps begin anew the byte is surer, so it is the second; every
/// further one starts earlier.
bool PacketReader::SeekNear(int key, int attempt)
{
    const PacketFact& fact = facts_[size_t(key)];
    const bool isMpeg = std::strncmp(media_->Format().iformat->name, "mpeg", 4) == 0;
    if (attempt == 1)
        return isMpeg && fact.pos >= 0 && media_->SeekByte(fact.pos);
    const int64_t stamp =
        std::min(fact.pts == NoStamp ? fact.dts : fact.pts, fact.dts == NoStamp ? fact.pts : fact.dts);
    if (stamp == NoStamp)
        return false;
    const int64_t second = std::max<int64_t>(1, int64_t(1 / av_q2d(media_->Stream().time_base)));
    const int64_t back = attempt == 0 ? 0 : second << std::min(attempt - 2, 30);
    return media_->SeekTime(stamp - back);
}

/// Reads until one ordinal alone explains the packets read since the seek; gives the ordinal after it, -1
/// when the packets are not known.
int PacketReader::FindPlace()
{
    std::vector<int> places;
    for (int count = 0; count < MostUnknownPackets; ++count) {
        const PacketPtr packet = media_->Read();
        if (!packet)
            return -1;
        std::vector<int> found = Candidates(*packet);
        if (!places.empty())
            std::erase_if(found, [&](int place) {
                return std::find(places.begin(), places.end(), place - 1) == places.end();
            });
        if (found.size() == 1) {
            store_.Put(found.front(), *packet);
            return found.front() + 1;
        }
        places = std::move(found);
    }
    return -1;
}

std::vector<int> PacketReader::Candidates(const AVPacket& packet)
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

int PacketReader::KeyAtOrBefore(int ordinal) const
{
    while (ordinal > 0 && !facts_[size_t(ordinal)].Has(PacketFact::Key))
        --ordinal;
    return ordinal;
}

} // namespace media
