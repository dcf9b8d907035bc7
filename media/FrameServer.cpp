#include "media/FrameServer.h"

#include "media/DecodedFrame.h"
#include "media/LibraryTalk.h"
#include "media/PacketIndex.h"
#include "media/PictureCache.h"
#include <algorithm>
#include <climits>
#include <unordered_set>

namespace media {

namespace {

constexpr auto IndexAtOpen = std::chrono::milliseconds(100);
constexpr int RestartCost =
    4; ///< packets that a restarted decoder takes in before the first picture comes out
constexpr int MostEntries = 8; ///< tried for one picture
constexpr int MostStandIns = 64; ///< pictures looked at for one that stands in for a lost one
constexpr int Everything = INT_MAX;

/// A picture that is wanted, and what may be left out and kept on the way to it.
struct Goal {
    int number = 0;
    int keepFrom = 0; ///< pictures from here on are wanted for the cache
    bool isLast = false; ///< nothing behind it is wanted, the decoder's place may be given up
    const std::vector<int>* others = nullptr; ///< rising; wanted too, while none besides them is kept

    bool Wants(int other) const
    {
        if (others)
            return std::binary_search(others->begin(), others->end(), other);
        return other == number || (other >= keepFrom && (other < number || !isLast));
    }
};

QTransform TurnOf(const int32_t* matrix)
{
    const auto part = [](int32_t value) { return value > 0 ? 1.0 : value < 0 ? -1.0 : 0.0; };
    const bool swaps = std::abs(matrix[1]) > std::abs(matrix[0]);
    return swaps ? QTransform(0, part(matrix[1]), part(matrix[3]), 0, 0, 0)
                 : QTransform(part(matrix[0]), 0, 0, part(matrix[4]), 0, 0);
}

} // namespace

class FrameServerPrivate final : public FrameServer {
public:
    FrameServerPrivate(const Source& source, Interrupt& interrupt, const Limits& limits);

    int KnownFrames() const override { return index_.Frames(); }
    bool IsComplete() const override { return index_.IsComplete(); }
    void ExtendIndex(int frames) override;
    QSize Size() const override { return size_; }
    double Duration() const override;
    bool HasSound() const override { return index_.Media().HasSound(); }
    double TimeOf(int number) const override { return index_.Times().TimeOf(number); }
    int NumberAt(double seconds) const override { return index_.Times().NumberAt(seconds); }
    Picture Get(int number, Purpose purpose) override;
    void Walk(const std::vector<int>& numbers, const std::function<bool(const Picture&)>& take) override;
    Picture Cached(int number) const override { return cache_.Find(number); }

private:
    void Know(int number);
    void ThrowIfDue() const;
    Goal GoalFor(int number, Purpose purpose) const;
    bool IsJumpAfter(const std::vector<int>& numbers, size_t at);
    Picture Reach(const Goal& goal);
    Picture NearestBefore(const Goal& goal);
    bool CanContinue(int number) const;
    void RestartAt(int entry);
    Picture Pursue(const Goal& goal, bool mayDrain);
    Picture Receive(const Goal& goal);
    bool IsTainting(int ordinal);
    bool Feed(const Goal& goal, bool mayDrain);
    Picture MakePicture(FramePtr frame, int number) const;

    Interrupt& interrupt_;
    PacketIndex index_;
    std::unique_ptr<Decoder> decoder_;
    PictureCache cache_;
    QSize size_;
    std::shared_ptr<PictureMemory> memory_ = std::make_shared<PictureMemory>();
    qsizetype pictureBytes_ = 1;

    // Where the decoder stands.
    int entry_ = 0;
    int fed_ = 0; ///< ordinal of the packet to be fed next
    int out_ = -1; ///< number of the picture that came out last
    bool isDrained_ = false;
    bool isTainted_ = false; ///< what comes out differs from one pass through the file
    bool sawDamage_ = false;
    std::unordered_set<int> dropped_; ///< ordinals not decoded since the restart
};

FrameServerPrivate::FrameServerPrivate(const Source& source, Interrupt& interrupt, const Limits& limits)
    : interrupt_(interrupt)
    , index_(source, interrupt, limits.packets)
    , decoder_(index_.MakeDecoder())
    , cache_(limits.pictures)
{
    while (index_.Frames() == 0 && index_.Extend()) { }
    if (index_.Frames() == 0)
        throw MediaError(Failure::Damaged, "no picture can be decoded");
    size_ = Get(0, Purpose::Play).Size();
    const auto until = Interrupt::Clock::now() + IndexAtOpen;
    while (!index_.IsComplete() && Interrupt::Clock::now() < until)
        index_.Extend();
}

std::unique_ptr<FrameServer> FrameServer::Open(
    const Source& source, Interrupt& interrupt, const Limits& limits)
{
    LibraryTalk::Silence();
    LibraryTalk::Forget();
    try {
        return std::make_unique<FrameServerPrivate>(source, interrupt, limits);
    } catch (const MediaError& error) {
        const bool cannotShow = error.failure == Failure::Damaged || error.failure == Failure::NotAVideo;
        if (cannotShow && LibraryTalk::ToldOfHugePicture())
            throw MediaError(Failure::TooLarge, error.what());
        throw;
    }
}

void FrameServerPrivate::ExtendIndex(int frames)
{
    try {
        while (index_.Frames() < frames && !interrupt_.IsDue() && index_.Extend()) { }
    } catch (const MediaError& error) {
        if (error.failure != Failure::TimedOut)
            throw;
    }
}

double FrameServerPrivate::Duration() const
{
    const int64_t told = index_.Media().Format().duration;
    if (index_.IsComplete() || told == AV_NOPTS_VALUE)
        return index_.Times().End();
    return double(told) / AV_TIME_BASE;
}

Picture FrameServerPrivate::Get(int number, Purpose purpose)
{
    Know(number);
    if (Picture kept = cache_.Take(number); !kept.IsNull())
        return kept;
    Picture picture = Reach(GoalFor(number, purpose));
    cache_.Put(picture);
    return picture;
}

void FrameServerPrivate::Walk(
    const std::vector<int>& numbers, const std::function<bool(const Picture&)>& take)
{
    for (size_t i = 0; i < numbers.size(); ++i) {
        Know(numbers[i]);
        Picture picture = cache_.Find(numbers[i]);
        if (picture.IsNull())
            picture = Reach({ .number = numbers[i], .isLast = IsJumpAfter(numbers, i), .others = &numbers });
        if (!take(picture))
            return;
    }
}

/// Whether the decoder's place is of no use for the number after this one.
bool FrameServerPrivate::IsJumpAfter(const std::vector<int>& numbers, size_t at)
{
    if (at + 1 == numbers.size())
        return true;
    Know(numbers[at + 1]);
    return index_.EntryFor(numbers[at + 1], Everything) > index_.OrdinalOf(numbers[at]) + RestartCost;
}

void FrameServerPrivate::Know(int number)
{
    ExtendIndex(number + 1);
    if (number < 0 || number >= index_.Frames()) {
        ThrowIfDue();
        throw MediaError(Failure::Damaged, "no such picture");
    }
}

void FrameServerPrivate::ThrowIfDue() const
{
    if (interrupt_.IsDue())
        throw MediaError(Failure::TimedOut, "no answer in time");
}

Goal FrameServerPrivate::GoalFor(int number, Purpose purpose) const
{
    switch (purpose) {
    case Purpose::Jump:
        // A decoder that can go on to this picture may go on to the next as well: jumps often come in a row.
        return { .number = number, .keepFrom = number, .isLast = !CanContinue(number) };
    case Purpose::Play:
        return { .number = number, .keepFrom = number };
    case Purpose::Step:
        break;
    }
    const int room = int(std::min<qsizetype>(cache_.Limit() / pictureBytes_, INT_MAX));
    return { .number = number, .keepFrom = number - room * 7 / 8 };
}

Picture FrameServerPrivate::Reach(const Goal& goal)
{
    if (CanContinue(goal.number)) {
        if (Picture picture = Pursue(goal, goal.isLast); !picture.IsNull())
            return picture;
    }
    int limit = Everything;
    for (int attempt = 1; attempt <= MostEntries && limit > 0; ++attempt) {
        RestartAt(index_.EntryFor(goal.number, attempt == MostEntries ? 1 : limit));
        if (Picture picture = Pursue(goal, goal.isLast && attempt == 1); !picture.IsNull())
            return picture;
        if (!isTainted_)
            limit = entry_;
        if (!isTainted_ && out_ > goal.number)
            index_.MarkBadEntry(entry_, out_);
    }
    return NearestBefore(goal);
}

/// A picture that the decoder does not give keeps its number and looks like the one before it.
Picture FrameServerPrivate::NearestBefore(const Goal& goal)
{
    for (int number = goal.number - 1; number >= std::max(0, goal.number - MostStandIns); --number) {
        RestartAt(index_.EntryFor(number, Everything));
        const Goal before { .number = number, .keepFrom = number };
        if (const Picture picture = Pursue(before, false); !picture.IsNull())
            return picture.As(goal.number);
    }
    throw MediaError(Failure::Damaged, "the picture cannot be decoded");
}

bool FrameServerPrivate::CanContinue(int number) const
{
    const int ordinal = index_.OrdinalOf(number);
    if (isDrained_ || number <= out_ || dropped_.contains(ordinal))
        return false;
    return index_.EntryFor(number, Everything) <= fed_ + RestartCost;
}

void FrameServerPrivate::RestartAt(int entry)
{
    decoder_->Restart();
    entry_ = fed_ = entry;
    out_ = entry == 0 ? -1 : index_.Fact(entry).number - 1;
    isDrained_ = isTainted_ = false;
    dropped_.clear();
}

/// Decodes on to the goal; null when it does not come out from where the decoder was started.
Picture FrameServerPrivate::Pursue(const Goal& goal, bool mayDrain)
{
    do {
        Picture picture = Receive(goal);
        if (!picture.IsNull() || out_ >= goal.number || isTainted_)
            return picture;
        ThrowIfDue();
    } while (Feed(goal, mayDrain));
    return {};
}

/// Takes the pictures that are ready, up to the goal.
Picture FrameServerPrivate::Receive(const Goal& goal)
{
    while (FramePtr frame = decoder_->Receive()) {
        const int64_t ordinal = frame->pts;
        if (ordinal < 0 || ordinal >= index_.Packets())
            continue;
        const int number = index_.Fact(int(ordinal)).number;
        if (number < 0 || number <= out_) // shown before the entry: not decodable from here
            continue;
        out_ = number;
        if (frame->decode_error_flags && IsTainting(int(ordinal)))
            return {};
        const Picture picture = MakePicture(std::move(frame), number);
        pictureBytes_ = std::max<qsizetype>(picture.Bytes(), 1);
        if (!goal.others && goal.Wants(number))
            cache_.Put(picture);
        if (number >= goal.number)
            return number == goal.number ? picture : Picture();
    }
    return {};
}

/// The decoder patches damage with what it decoded before, so the same must be decoded before as in one pass
/// through the file: nothing may be left out, and a key is no entry to damage behind it. True when the
/// decoder must be started again for that.
bool FrameServerPrivate::IsTainting(int ordinal)
{
    sawDamage_ = true;
    const bool isBehindEntry = entry_ > 0 && index_.KeyBefore(ordinal) == entry_;
    if (isBehindEntry)
        index_.MarkBadEntry(entry_, Everything);
    return isTainted_ = isBehindEntry || !dropped_.empty();
}

/// Gives the decoder one more packet, or tells it that none follows; false when that was told before.
bool FrameServerPrivate::Feed(const Goal& goal, bool mayDrain)
{
    if (isDrained_)
        return false;
    const bool isEnough = mayDrain && fed_ > index_.OrdinalOf(goal.number);
    while (!isEnough && fed_ == index_.Packets() && index_.Extend()) { }
    if (isEnough || fed_ == index_.Packets()) {
        decoder_->Drain();
        isDrained_ = true;
        return true;
    }
    const int number = index_.Fact(fed_).number;
    const bool mayDrop =
        decoder_->CanDrop() && !sawDamage_ && index_.IsSound() && number >= 0 && !goal.Wants(number);
    decoder_->Send(*index_.Packet(fed_), fed_, mayDrop);
    if (mayDrop)
        dropped_.insert(fed_);
    ++fed_;
    return true;
}

Picture FrameServerPrivate::MakePicture(FramePtr frame, int number) const
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
