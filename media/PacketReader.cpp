#include "media/PacketReader.h"

#include <utility>

namespace media {

namespace {

constexpr int NearEnough = 64; ///< packets that are read over rather than sought

} // namespace

PacketReader::PacketReader(const Source& source, Interrupt& interrupt, PacketStore& store,
    const std::vector<PacketFact>& facts, const std::vector<int>& keys)
    : source_(source)
    , interrupt_(interrupt)
    , store_(store)
    , facts_(facts)
    , keys_(keys)
    , finder_(facts)
{
}

PacketPtr PacketReader::Packet(int ordinal)
{
    if (const AVPacket* kept = store_.Find(ordinal))
        return CloneOf(*kept);
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
            return CloneOf(*kept);
    }
    throw MediaError(Failure::Vanished, "the file does not give a packet again");
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
    if (!packet || !finder_.IsSame(*packet, ordinal))
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
        if (!packet || !finder_.IsSame(*packet, expected))
            return false;
        store_.Put(expected, *packet);
        next_ = expected + 1;
    }
    return next_ > ordinal && store_.Find(ordinal);
}

bool PacketReader::Reach(int ordinal)
{
    const int key = LastBefore(keys_, ordinal);
    const bool isNear = next_ >= 0 && next_ <= ordinal && (next_ >= key || ordinal - next_ < NearEnough);
    if (isNear && ReadOn(ordinal))
        return true;
    for (int attempt = 0; attempt < PlaceFinder::MostAttempts; ++attempt) {
        next_ = -1; // stays so when the seek is broken off
        const PlaceFinder::Place place = finder_.Seek(*media_, key, attempt);
        if (place.ordinal < 0)
            continue;
        store_.Put(place.ordinal, *place.packet);
        next_ = place.ordinal + 1;
        if (place.ordinal <= key && (store_.Find(ordinal) || ReadOn(ordinal)))
            return true;
    }
    media_->Rewind();
    next_ = 0;
    return ReadOn(ordinal);
}

} // namespace media
