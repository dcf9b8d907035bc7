#pragma once

#include "media/CaptionFeed.h"
#include "media/CaptionTrack.h"
#include "media/Decoder.h"
#include "media/DisplayOrder.h"
#include "media/FrameTimes.h"
#include "media/MediaSource.h"
#include "media/PacketParser.h"
#include "media/PacketReader.h"
#include "media/PacketStore.h"
#include <deque>
#include <optional>
#include <queue>
#include <unordered_set>

namespace media {

/// Which packet holds which picture. Grows while the file is read; a number once given never changes.
class PacketIndex {
public:
    /// Opens the source; knows no picture yet. Throws MediaError.
    PacketIndex(const Source& source, Interrupt& interrupt, int64_t packetBytes);

    /// Reads one packet on; false when the file's end was reached before.
    bool Extend();
    bool IsComplete() const { return isComplete_; }

    int Frames() const { return int(ordinals_.size()); }
    int Packets() const { return int(facts_.size()); }
    const PacketFact& Fact(int ordinal) const { return facts_[size_t(ordinal)]; }
    int OrdinalOf(int number) const { return ordinals_[size_t(number)]; }
    const FrameTimes& Times() const { return times_; }
    /// What captions say at the known pictures.
    const CaptionTrack& Captions() const { return captions_; }
    const MediaSource& Media() const { return media_; }
    /// Any known packet. Throws MediaError.
    PacketPtr Packet(int ordinal) { return reader_.Packet(ordinal); }
    /// A decoder for the stream. Throws MediaError.
    std::unique_ptr<Decoder> MakeDecoder() const;
    /// Whether, as far as is known, no picture is missing or damaged and packets are in the order that they
    /// claim.
    bool IsIntact() const { return isIntact_; }

    /// The packet from which decoding gives picture number: a key packet that is shown at or before it, below
    /// limit. It has damage behind it only where none without is near.
    int EntryFor(int number, int limit) const;
    /// The last key packet at or before a packet, 0 when there is none.
    int KeyBefore(int ordinal) const { return LastBefore(keys_, ordinal); }
    /// Decoding from this key gave no picture below number: it is not used as entry to them again.
    void MarkBadEntry(int key, int number) { badBelow_[key] = std::max(badBelow_[key], number); }
    /// What damage behind this key looks like depends on what was decoded before the key.
    void MarkDamagedEntry(int key) { damagedEntries_.insert(key); }
    bool IsDamagedEntry(int key) const { return damagedEntries_.contains(key); }

    /// Packets before a picture that are near it.
    static constexpr int Nearness = 150;

private:
    /// Packets from one key to the next.
    struct Group {
        int first = 0;
        int end = -1; ///< -1 while it is open
        bool isJudged = false;
        bool isDoubtful = false; ///< what it shows was learned from the decoder
        int next = -1; ///< to be learned from the decoder, -1 before the start
        std::deque<int> decoded = {}; ///< the ordinals that the decoder gave and that are not yet numbered
    };

    void AddPacket(const AVPacket& packet);
    void Resume();
    bool ReadOver(int next);
    void Judge(size_t group);
    void Learn(size_t group);
    void Collect(Group& group);
    PacketFact& FactOf(int ordinal) { return facts_[size_t(ordinal)]; }
    bool IsDoubtful(const Group& group, const std::vector<int>& order) const;
    void Publish(bool everything);
    void PublishPacket(int ordinal);
    void Number(int ordinal, int64_t slot);
    void TellCaptions(int ordinal);
    bool LeadsTo(int key, int number) const;
    int64_t TakeSlot();
    bool FindsPresentationStamps() const;

    Interrupt& interrupt_;
    MediaSource media_;
    PacketParser parser_;
    PacketStore store_;
    std::vector<PacketFact> facts_;
    std::vector<int> keys_;
    PacketReader reader_;
    PlaceFinder finder_;
    DisplayOrder order_;
    FrameTimes times_;
    std::unique_ptr<CaptionFeed> captionFeed_;
    CaptionTrack captions_;
    std::unordered_map<int, QByteArray> captionBytes_; ///< by ordinal, of packets not yet published
    std::vector<int> ordinals_; ///< by number
    std::vector<Group> groups_;
    std::deque<int> waiting_; ///< in display order, not yet numbered
    size_t publishing_ = 0; ///< group of the packet published last
    std::priority_queue<int64_t, std::vector<int64_t>, std::greater<>>
        slots_; ///< decode stamps not yet given
    std::optional<bool> hasPresentationStamps_; ///< known from the first picture on
    std::unique_ptr<Decoder> prober_;
    std::unordered_map<int, int> badBelow_; ///< by key: the first number that it is an entry to
    std::unordered_set<int> damagedEntries_;
    int ranks_ = 0;
    int confirmations_ = 0;
    bool isIntact_ = true;
    bool isComplete_ = false;
    bool mustResume_ = false; ///< a read was broken off, the reader may stand anywhere
};

} // namespace media
