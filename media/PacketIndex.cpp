#include "media/PacketIndex.h"

#include <algorithm>

namespace media {

namespace {

constexpr size_t LongestWait = 512; ///< packets that may wait for the end of their group
constexpr int NearKeys = 3; ///< that are tried for a sound entry, however far they lie apart
constexpr int EnoughConfirmations = 3; ///< groups in which the decoder proved the time stamps wrong

int64_t StartOf(const MediaSource& media)
{
    const int64_t start = media.Format().start_time;
    return start == AV_NOPTS_VALUE ? 0 : av_rescale_q(start, AV_TIME_BASE_Q, media.Stream().time_base);
}

int64_t StepOf(const MediaSource& media)
{
    const AVStream& video = media.Stream();
    const AVRational rate = video.avg_frame_rate.num > 0 ? video.avg_frame_rate : video.r_frame_rate;
    const AVRational step = rate.num > 0 && rate.den > 0 ? av_inv_q(rate) : AVRational { 1, 25 };
    return av_rescale_q(1, step, video.time_base);
}

} // namespace

PacketIndex::PacketIndex(const Source& source, Interrupt& interrupt, int64_t packetBytes)
    : interrupt_(interrupt)
    , media_(source, interrupt)
    , parser_(media_.Parameters())
    , store_(packetBytes)
    , reader_(source, interrupt, store_, facts_, keys_)
    , finder_(facts_)
    , order_(parser_.Order())
    , times_(av_q2d(media_.Stream().time_base), StartOf(media_), StepOf(media_))
    , captionFeed_(CaptionFeed::Of(source, media_))
{
}

std::unique_ptr<Decoder> PacketIndex::MakeDecoder() const
{
    return std::make_unique<Decoder>(media_.Stream(), media_.Parameters(), media_.IsUnpacked());
}

bool PacketIndex::Extend()
{
    if (isComplete_)
        return false;
    if (mustResume_)
        Resume();
    mustResume_ = true;
    const PacketPtr packet = media_.Read();
    mustResume_ = false;
    if (packet) {
        AddPacket(*packet);
        Publish(false);
        return true;
    }
    std::vector<int> shown;
    order_.Finish(shown);
    waiting_.insert(waiting_.end(), shown.begin(), shown.end());
    if (!groups_.empty())
        groups_.back().end = Packets();
    Publish(true);
    isComplete_ = true;
    return true;
}

/// After a read that was broken off in the middle of a packet: to the first packet not yet known.
void PacketIndex::Resume()
{
    for (int attempt = 0; attempt < PlaceFinder::MostAttempts && Packets() > 0; ++attempt) {
        const PlaceFinder::Place place = finder_.Seek(media_, KeyBefore(Packets() - 1), attempt);
        if (place.ordinal >= 0 && ReadOver(place.ordinal + 1))
            return;
    }
    media_.Rewind();
    ReadOver(0);
}

/// Reads from one packet on over those that are known; false when others come.
bool PacketIndex::ReadOver(int next)
{
    for (; next < Packets(); ++next)
        if (const PacketPtr packet = media_.Read(); !packet || !finder_.IsSame(*packet, next))
            return false;
    return true;
}

void PacketIndex::AddPacket(const AVPacket& packet)
{
    const int ordinal = Packets();
    facts_.push_back(parser_.Parse(packet));
    const PacketFact& fact = facts_.back();
    if (!parser_.Captions().isEmpty())
        captionBytes_.emplace(ordinal, parser_.Captions());
    store_.Offer(ordinal, packet);
    if (fact.Has(PacketFact::Key))
        keys_.push_back(ordinal);
    if (groups_.empty() || fact.Has(PacketFact::Key)) {
        if (!groups_.empty())
            groups_.back().end = ordinal;
        groups_.push_back({ .first = ordinal });
    }
    if (fact.IsShown() && fact.dts != NoStamp)
        slots_.push(fact.dts);
    std::vector<int> shown;
    order_.Add(ordinal, fact, shown);
    waiting_.insert(waiting_.end(), shown.begin(), shown.end());
}

void PacketIndex::Judge(size_t at)
{
    Group& group = groups_[at];
    const std::vector<int> order = OrderOf(parser_.Order(), facts_, group.first, group.end);
    if (parser_.Order() == Ordering::ByCount && HasHoles(facts_, order))
        isIntact_ = false;
    group.isDoubtful =
        IsDoubtful(group, order) || (at > 0 && facts_[size_t(group.first) - 1].Has(PacketFact::Lost));
    if (group.isDoubtful)
        Learn(at);
    group.isJudged = true;
}

/// The file's head is doubtful unless it starts with a key and nothing is shown before that.
bool PacketIndex::IsDoubtful(const Group& group, const std::vector<int>& order) const
{
    const PacketFact& first = facts_[size_t(group.first)];
    const bool isIntra = parser_.Order() == Ordering::Straight || first.type == 'I';
    const bool isClean = first.Has(PacketFact::Key) && isIntra && order.front() == group.first;
    return parser_.Order() == Ordering::Unknown || (group.first == 0 && !isClean)
        || (confirmations_ < EnoughConfirmations && !StampsAgree(facts_, order))
        || std::any_of(order.begin(), order.end(),
            [this](int ordinal) { return facts_[size_t(ordinal)].Has(PacketFact::Doubtful); });
}

/// Decodes a group to see which of its packets give a picture, and in which order. Goes on where it was
/// broken off.
void PacketIndex::Learn(size_t at)
{
    if (!prober_)
        prober_ = MakeDecoder();
    Group& group = groups_[at];
    if (group.next < 0) {
        prober_->Restart();
        group.next = at > 0 ? groups_[at - 1].first : group.first;
        for (int ordinal = group.first; ordinal < group.end; ++ordinal)
            FactOf(ordinal).Set(PacketFact::Lost);
    }
    for (; group.next < group.end; ++group.next) {
        interrupt_.ThrowIfDue();
        prober_->Send(*Packet(group.next), group.next);
        Collect(group);
    }
    prober_->Drain();
    Collect(group);
    isIntact_ = false;
    ++confirmations_;
}

void PacketIndex::Collect(Group& group)
{
    while (const FramePtr frame = prober_->Receive()) {
        if (frame->pts < group.first || frame->pts >= group.end)
            continue;
        PacketFact& fact = FactOf(int(frame->pts));
        if (fact.Has(PacketFact::Lost) && fact.number < 0)
            group.decoded.push_back(int(frame->pts));
        fact.Clear(PacketFact::Lost);
    }
}

void PacketIndex::Publish(bool everything)
{
    while (!waiting_.empty()) {
        const int ordinal = waiting_.front();
        const auto after = std::upper_bound(groups_.begin(), groups_.end(), ordinal,
            [](int o, const Group& group) { return o < group.first; });
        publishing_ = size_t(after - groups_.begin()) - 1;
        const bool isClosed = groups_[publishing_].end >= 0;
        const bool mayWait = parser_.Order() == Ordering::Unknown || waiting_.size() <= LongestWait;
        if (!everything && !isClosed && mayWait)
            return;
        if (isClosed && !groups_[publishing_].isJudged)
            Judge(publishing_);
        waiting_.pop_front();
        PublishPacket(ordinal);
    }
}

/// In a group that was decoded the decoder's word replaces the order found so far, slot by slot; what is lost
/// leaves its slot empty.
void PacketIndex::PublishPacket(int ordinal)
{
    PacketFact& fact = FactOf(ordinal);
    fact.rank = ranks_++;
    const int64_t slot = fact.IsShown() ? TakeSlot() : NoStamp;
    Group& group = groups_[publishing_];
    const bool isShown = group.isDoubtful ? !fact.Has(PacketFact::Lost) : fact.IsShown();
    int shown = ordinal;
    if (group.isDoubtful && isShown) {
        shown = group.decoded.front();
        group.decoded.pop_front();
    }
    if (isShown)
        Number(shown, slot);
    TellCaptions(shown);
}

void PacketIndex::Number(int ordinal, int64_t slot)
{
    PacketFact& fact = FactOf(ordinal);
    fact.number = Frames();
    ordinals_.push_back(ordinal);
    if (!hasPresentationStamps_)
        hasPresentationStamps_ = FindsPresentationStamps();
    if (!*hasPresentationStamps_ && slot != NoStamp)
        times_.StartBy(slot);
    times_.Add(*hasPresentationStamps_ ? fact.pts : slot, fact.duration);
    if (captionFeed_)
        captions_.AddOfTrack(fact.number, captionFeed_->UpTo(times_.TimeOf(fact.number)));
}

/// Those of a packet that shows nothing, as a second field, belong to the picture before it.
void PacketIndex::TellCaptions(int ordinal)
{
    if (const auto bytes = captionBytes_.extract(ordinal))
        captions_.Add(std::max(Frames() - 1, 0), bytes.mapped());
}

/// Containers that store no presentation stamps store the slots of a constant clock as decode stamps: the
/// first picture shown takes the first slot. The library makes presentation stamps of its own there, but for
/// B pictures only, and on another clock.
bool PacketIndex::FindsPresentationStamps() const
{
    const auto hasOwn = [](const PacketFact& fact) { return fact.type != 'B' && fact.pts != NoStamp; };
    const auto hasSlot = [](const PacketFact& fact) { return fact.dts != NoStamp; };
    return media_.HasPresentationStamps()
        && (std::any_of(facts_.begin(), facts_.end(), hasOwn)
            || std::none_of(facts_.begin(), facts_.end(), hasSlot));
}

/// NoStamp when all are taken.
int64_t PacketIndex::TakeSlot()
{
    if (slots_.empty())
        return NoStamp;
    const int64_t slot = slots_.top();
    slots_.pop();
    return slot;
}

int PacketIndex::EntryFor(int number, int limit) const
{
    const int ordinal = ordinals_[size_t(number)];
    std::optional<int> damaged;
    int passed = 0;
    for (auto key = std::upper_bound(keys_.begin(), keys_.end(), ordinal); key != keys_.begin();) {
        const int candidate = *--key;
        if (candidate >= limit || !LeadsTo(candidate, number))
            continue;
        if (passed >= NearKeys && ordinal - candidate > Nearness)
            return *damaged;
        if (!IsDamagedEntry(candidate))
            return candidate;
        damaged = damaged.value_or(candidate);
        ++passed;
    }
    return passed >= NearKeys && ordinal > Nearness ? *damaged : 0;
}

/// Pictures that are shown before a key yet stored behind it may refer to pictures before the key.
bool PacketIndex::LeadsTo(int key, int number) const
{
    const PacketFact& fact = facts_[size_t(key)];
    const bool isBefore = fact.number >= 0
        ? fact.number <= number
        : fact.rank >= 0 && fact.rank <= facts_[size_t(ordinals_[size_t(number)])].rank;
    const auto bad = badBelow_.find(key);
    return isBefore && (bad == badBelow_.end() || number >= bad->second);
}

} // namespace media
