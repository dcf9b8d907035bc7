#include "media/FrameServer.h"

#include "media/LibraryTalk.h"
#include "media/PictureCache.h"
#include "media/PictureDecoder.h"

#include <algorithm>
#include <climits>

namespace media {

namespace {

constexpr auto IndexAtOpen = std::chrono::milliseconds(100);

/// A share of the pictures that the cache has room for.
struct Share {
    int part;
    int of;
    int Of(int room) const { return room * part / of; }
};
constexpr Share DecodedAhead { 1, 4 };
constexpr Share KeptBehindPlay { 5, 8 }; ///< leaves room for what is decoded ahead
constexpr Share KeptBehindStep { 7, 8 };

/// Serves from the cache what is there, decodes what is not, and keeps what is likely to be asked for.
class CachingServer final : public FrameServer {
public:
    CachingServer(const Source& source, Interrupt& interrupt, const Limits& limits);

    int KnownFrames() const override { return index_.Frames(); }
    bool IsComplete() const override { return index_.IsComplete(); }
    void ExtendIndex(int frames) override;
    QSize Size() const override { return size_; }
    double Duration() const override;
    bool TellsDuration() const override { return index_.Media().Format().duration != AV_NOPTS_VALUE; }
    bool HasSound() const override { return index_.Media().HasSound(); }
    double Start() const override { return double(index_.Media().Start()) / AV_TIME_BASE; }
    double TimeOf(int number) const override { return index_.Times().TimeOf(number); }
    int NumberAt(double seconds) const override { return index_.Times().NumberAt(seconds); }
    Caption CaptionAt(int number) const override { return index_.Captions().At(number); }
    Picture Get(int number, Purpose purpose) override;
    bool Prepare(int number, Interrupt::Clock::time_point until) override;
    int Reserve() const override { return DecodedAhead.Of(Room()); }
    void Walk(const std::vector<int>& numbers, const std::function<bool(const Picture&)>& take) override;
    Picture Cached(int number) const override { return cache_.Find(number); }

private:
    void Know(int number);
    int Room() const { return int(std::min<qsizetype>(cache_.Limit() / pictureBytes_, INT_MAX)); }
    Goal GoalFor(int number, Purpose purpose) const;
    bool IsJumpAfter(const std::vector<int>& numbers, size_t at);
    Picture Decode(const Goal& goal);

    Interrupt& interrupt_;
    PacketIndex index_;
    PictureCache cache_;
    PictureDecoder decoder_;
    QSize size_;
    qsizetype pictureBytes_ = 1;
};

CachingServer::CachingServer(const Source& source, Interrupt& interrupt, const Limits& limits)
    : interrupt_(interrupt)
    , index_(source, interrupt, limits.packets)
    , cache_(limits.pictures)
    , decoder_(index_, interrupt, [this](const Picture& picture) { cache_.Put(picture); })
{
    while (index_.Frames() == 0 && index_.Extend()) { }
    if (index_.Frames() == 0)
        throw MediaError(Failure::Damaged, "no picture can be decoded");
    size_ = Get(0, Purpose::Play).Size();
    // A server on the web may be slow: what it sends is needed for the picture first.
    if (source.kind == Source::Kind::Address)
        return;
    const auto until = Interrupt::Clock::now() + IndexAtOpen;
    while (!index_.IsComplete() && Interrupt::Clock::now() < until)
        index_.Extend();
}

void CachingServer::ExtendIndex(int frames)
{
    try {
        while (index_.Frames() < frames && !interrupt_.IsDue() && index_.Extend()) { }
    } catch (const MediaError& error) {
        if (error.failure != Failure::TimedOut)
            throw;
    }
}

double CachingServer::Duration() const
{
    if (index_.IsComplete() || !TellsDuration())
        return index_.Times().End();
    return double(index_.Media().Format().duration) / AV_TIME_BASE;
}

Picture CachingServer::Get(int number, Purpose purpose)
{
    Know(number);
    if (Picture kept = cache_.Use(number); !kept.IsNull())
        return kept;
    Picture picture = Decode(GoalFor(number, purpose));
    cache_.Put(picture);
    return picture;
}

bool CachingServer::Prepare(int number, Interrupt::Clock::time_point until)
{
    Know(number);
    for (int other = std::min(number + Reserve(), KnownFrames() - 1); other >= number; --other)
        cache_.Use(other); // what was passed already makes room, not what still waits
    if (!Cached(number).IsNull())
        return true;
    const Picture picture =
        decoder_.Approach({ .number = number, .keepFrom = number - KeptBehindPlay.Of(Room()) }, until);
    if (!picture.IsNull())
        cache_.Put(picture);
    return !picture.IsNull();
}

void CachingServer::Walk(const std::vector<int>& numbers, const std::function<bool(const Picture&)>& take)
{
    for (size_t i = 0; i < numbers.size(); ++i) {
        Know(numbers[i]);
        Picture picture = cache_.Find(numbers[i]);
        if (picture.IsNull())
            picture = Decode({ .number = numbers[i], .isLast = IsJumpAfter(numbers, i), .others = &numbers });
        if (!take(picture))
            return;
    }
}

Picture CachingServer::Decode(const Goal& goal)
{
    Picture picture = decoder_.Reach(goal);
    pictureBytes_ = std::max<qsizetype>(picture.Bytes(), 1);
    return picture;
}

/// Whether the decoder's place is of no use for the number after this one.
bool CachingServer::IsJumpAfter(const std::vector<int>& numbers, size_t at)
{
    if (at + 1 == numbers.size())
        return true;
    Know(numbers[at + 1]);
    return decoder_.IsRestartedFor(numbers[at + 1], index_.OrdinalOf(numbers[at]));
}

void CachingServer::Know(int number)
{
    ExtendIndex(number + 1);
    if (number < 0 || number >= index_.Frames()) {
        interrupt_.ThrowIfDue();
        throw MediaError(Failure::Damaged, "no such picture");
    }
}

Goal CachingServer::GoalFor(int number, Purpose purpose) const
{
    switch (purpose) {
    case Purpose::Jump:
        // A decoder that can go on to this picture may go on to the next as well: jumps often come in a row.
        return { .number = number, .keepFrom = number, .isLast = !decoder_.CanContinue(number) };
    case Purpose::Play:
        return { .number = number, .keepFrom = number };
    case Purpose::Step:
        break;
    }
    return { .number = number, .keepFrom = number - KeptBehindStep.Of(Room()) };
}

} // namespace

std::unique_ptr<FrameServer> FrameServer::Open(
    const Source& source, Interrupt& interrupt, const Limits& limits)
{
    LibraryTalk::Silence();
    LibraryTalk::Forget();
    try {
        return std::make_unique<CachingServer>(source, interrupt, limits);
    } catch (const MediaError& error) {
        const bool cannotShow = error.failure == Failure::Damaged || error.failure == Failure::NotAVideo;
        if (cannotShow && LibraryTalk::ToldOfHugePicture())
            throw MediaError(Failure::TooLarge, error.what());
        throw;
    }
}

} // namespace media
