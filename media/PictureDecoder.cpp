#include "media/PictureDecoder.h"

#include "media/DecodedFrame.h"
#include <algorithm>
#include <climits>

namespace media {

namespace {

constexpr int RestartCost = 4; // packets that a restarted decoder takes in before the first picture comes out
constexpr int FewestEntries = 2; // tried for one picture, however far they lie apart
constexpr int MostEntries = 8;
constexpr int MostStandIns = 64; // pictures looked at for one that stands in for a lost one
constexpr int Everything = INT_MAX;

QTransform TurnOf(const int32_t* matrix)
{
    const auto part = [](int32_t value) { return value > 0 ? 1.0 : value < 0 ? -1.0 : 0.0; };
    const bool swaps = std::abs(matrix[1]) > std::abs(matrix[0]);
    return swaps ? QTransform(0, part(matrix[1]), part(matrix[3]), 0, 0, 0)
                 : QTransform(part(matrix[0]), 0, 0, part(matrix[4]), 0, 0);
}

} // namespace

bool Goal::Wants(int other) const
{
    if (others)
        return std::binary_search(others->begin(), others->end(), other);
    return other == number || (other >= keepFrom && (other < number || !isLast));
}

PictureDecoder::PictureDecoder(PacketIndex& index, Interrupt& interrupt, Keep keep)
    : index_(index)
    , interrupt_(interrupt)
    , keep_(std::move(keep))
    , decoder_(index.MakeDecoder())
{
}

Picture PictureDecoder::Reach(const Goal& goal)
{
    if (CanContinue(goal.number)) {
        if (Picture picture = Pursue(goal); !picture.IsNull())
            return picture;
    }
    if (Picture picture = StartFor(goal); !picture.IsNull())
        return picture;
    return NearestBefore(goal);
}

/// Starts the decoder at one key after the other, each earlier than the one before, until the goal comes out;
/// null when it never does. Damage that a start comes upon has it started again, which ends: a key is marked
/// but once, and what is left out is left out in the first attempt only.
Picture PictureDecoder::StartFor(const Goal& goal)
{
    const int farthest = index_.OrdinalOf(goal.number) - PacketIndex::Nearness;
    Goal attempt = goal;
    int limit = Everything;
    int misses = 0;
    while (limit > (misses < FewestEntries ? 0 : std::max(farthest, 0))) {
        const bool isLastAttempt = misses + 1 >= MostEntries;
        RestartAt(index_.EntryFor(goal.number, isLastAttempt ? std::max(farthest, 1) : limit));
        if (Picture picture = Pursue(attempt); !picture.IsNull())
            return picture;
        attempt.isThorough = true;
        attempt.isLast = false;
        if (isTainted_)
            continue;
        limit = entry_;
        ++misses;
        if (first_ > goal.number)
            index_.MarkBadEntry(entry_, first_);
    }
    return {};
}

/// A picture that the decoder does not give keeps its number and looks like the one before it.
Picture PictureDecoder::NearestBefore(const Goal& goal)
{
    for (int number = goal.number - 1; number >= std::max(0, goal.number - MostStandIns); --number) {
        const Goal before { .number = number, .keepFrom = number };
        if (const Picture picture = StartFor(before); !picture.IsNull())
            return picture.As(goal.number);
    }
    throw MediaError(Failure::Damaged, "the picture cannot be decoded");
}

bool PictureDecoder::CanContinue(int number) const
{
    const int ordinal = index_.OrdinalOf(number);
    if (isTainted_ || isDrained_ || number <= out_ || dropped_.contains(ordinal))
        return false;
    return !IsRestartedFor(number, fed_);
}

bool PictureDecoder::IsRestartedFor(int number, int ordinal) const
{
    return index_.EntryFor(number, Everything) > ordinal + RestartCost;
}

Picture PictureDecoder::Approach(const Goal& goal, Interrupt::Clock::time_point until)
{
    if (!CanContinue(goal.number))
        RestartAt(index_.EntryFor(goal.number, Everything));
    do {
        if (Picture picture = Receive(goal); !picture.IsNull())
            return picture;
        interrupt_.ThrowIfDue();
        if (out_ >= goal.number || isTainted_ || !Feed(goal))
            return Reach(goal);
    } while (Interrupt::Clock::now() < until);
    return {};
}

void PictureDecoder::RestartAt(int entry)
{
    decoder_->Restart();
    entry_ = fed_ = entry;
    first_ = -1;
    out_ = entry == 0 ? -1 : index_.Fact(entry).number - 1;
    isDrained_ = isTainted_ = false;
    dropped_.clear();
}

/// Decodes on to the goal; null when it does not come out from where the decoder was started.
Picture PictureDecoder::Pursue(const Goal& goal)
{
    do {
        Picture picture = Receive(goal);
        if (!picture.IsNull() || out_ >= goal.number || isTainted_)
            return picture;
        interrupt_.ThrowIfDue();
    } while (Feed(goal));
    return {};
}

/// Takes the pictures that are ready, up to the goal.
Picture PictureDecoder::Receive(const Goal& goal)
{
    while (FramePtr frame = decoder_->Receive()) {
        const int64_t ordinal = frame->pts;
        if (ordinal < 0 || ordinal >= index_.Packets())
            continue;
        const int number = index_.Fact(int(ordinal)).number;
        if (number < 0 || number <= out_) // shown before the entry: not decodable from here
            continue;
        out_ = number;
        if (first_ < 0)
            first_ = number;
        if (decoder_->TakePatched() && NoteDamage(int(ordinal), fed_ - 1))
            return {};
        if (frame->decode_error_flags && NoteDamage(int(ordinal), int(ordinal)))
            return {};
        const Picture picture = MakePicture(std::move(frame), number);
        if (!goal.others && goal.Wants(number))
            keep_(picture);
        if (number >= goal.number)
            return number == goal.number ? picture : Picture();
    }
    return {};
}

/// The decoder patches damage, which lies in one of these packets, with what it decoded before, so the same
/// must be decoded before as in one pass through the file: nothing may be left out, and a key is no entry to
/// damage behind it, unless it is the last resort. True when the decoder must be started again for that.
bool PictureDecoder::NoteDamage(int from, int last)
{
    int key = index_.KeyBefore(last);
    damaged_.insert(key);
    while (key > 0 && key > from) {
        key = index_.KeyBefore(key - 1);
        damaged_.insert(key);
    }
    const bool isBehindEntry = entry_ > 0 && key == entry_ && !index_.IsDamagedEntry(entry_);
    if (isBehindEntry)
        index_.MarkDamagedEntry(entry_);
    return isTainted_ = decoder_->ExpectDamage() || isBehindEntry || !dropped_.empty();
}

/// What no other picture needs and nobody wants is not even given to the decoder: a packet that it only looks
/// at keeps one of its threads from working all the same.
bool PictureDecoder::MayDrop(int ordinal, const Goal& goal) const
{
    const PacketFact& fact = index_.Fact(ordinal);
    if (fact.Has(PacketFact::SecondField))
        return dropped_.contains(ordinal - 1);
    return !goal.isThorough && fact.Has(PacketFact::Unreferenced) && fact.number >= 0
        && !goal.Wants(fact.number) && decoder_->CanDrop() && index_.IsIntact() && !IsNearDamage(ordinal);
}

/// Whether there is damage between the key before a packet and the next key but one.
bool PictureDecoder::IsNearDamage(int ordinal) const
{
    const int key = index_.KeyBefore(ordinal);
    const auto damaged = damaged_.lower_bound(key);
    return damaged != damaged_.end() && (*damaged == key || index_.KeyBefore(*damaged - 1) == key);
}

/// Gives the decoder one more packet, or tells it that none follows; false when that was told before.
bool PictureDecoder::Feed(const Goal& goal)
{
    if (isDrained_)
        return false;
    const bool isEnough = goal.isLast && fed_ > index_.OrdinalOf(goal.number);
    while (!isEnough && fed_ == index_.Packets() && index_.Extend()) { }
    if (isEnough || fed_ == index_.Packets()) {
        decoder_->Drain();
        isDrained_ = true;
        return true;
    }
    if (MayDrop(fed_, goal))
        dropped_.insert(fed_);
    else
        decoder_->Send(*index_.Packet(fed_), fed_);
    ++fed_;
    return true;
}

Picture PictureDecoder::MakePicture(FramePtr frame, int number) const
{
    const MediaSource& media = index_.Media();
    auto decoded = std::make_shared<DecodedFrame>();
    decoded->memory = memory_;
    decoded->pixelAspect = av_guess_sample_aspect_ratio(
        const_cast<AVFormatContext*>(&media.Format()), const_cast<AVStream*>(&media.Stream()), frame.get());
    const AVFrameSideData* own = av_frame_get_side_data(frame.get(), AV_FRAME_DATA_DISPLAYMATRIX);
    const uint8_t* matrix =
        own ? own->data : av_stream_get_side_data(&media.Stream(), AV_PKT_DATA_DISPLAYMATRIX, nullptr);
    if (matrix)
        decoded->turn = TurnOf(reinterpret_cast<const int32_t*>(matrix));
    decoded->frame = std::move(frame);
    return { std::move(decoded), number };
}

} // namespace media
