#include "media/player/Engine.h"

#include "media/Conveyor.h"
#include "media/player/Deadline.h"
#include "media/player/WithinMemory.h"
#include <algorithm>
#include <cmath>
#include <utility>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto OpenLimit = 10s;
constexpr auto AddressLimit = 15s;
constexpr auto PictureLimit = 5s;
constexpr auto IndexLimit = 5s; // for the index to reach the place that a call asks for
constexpr int IndexSlice = 512; // pictures, read between two looks at the commands
constexpr int PlayingSlice = 32;
constexpr auto SpareTime = 5ms; // a pause this long while playing is used for the index
constexpr double LongestLastPicture = 10; // seconds; durations in files are no promise

} // namespace

/// Extends the index as the playing comes near its end.
class Engine::ServerTimeline : public Timeline {
public:
    explicit ServerTimeline(Engine& engine)
        : engine_(engine)
        , server_(*engine.server_)
    {
    }
    bool Reaches(int number) override
    {
        if (number >= server_.KnownFrames() && !server_.IsComplete()) {
            const Deadline deadline(engine_.wires_.interrupt, IndexLimit);
            engine_.ExtendIndex(number + PlayingSlice);
        }
        const bool isUnknown = number >= server_.KnownFrames() && !engine_.IsIndexWhole();
        if (isUnknown)
            throw media::MediaError(media::Failure::TimedOut, "the rest of the media does not come");
        return number < server_.KnownFrames();
    }
    double TimeOf(int number) override { return server_.TimeOf(number); }
    std::optional<int> Last() override
    {
        return server_.IsComplete() ? std::optional(server_.KnownFrames() - 1) : std::nullopt;
    }
    double EndOf(int number) override
    {
        const double start = TimeOf(number);
        if (Reaches(number + 1))
            return TimeOf(number + 1);
        return std::clamp(server_.Duration(), start, start + LongestLastPicture);
    }

private:
    Engine& engine_;
    media::FrameServer& server_;
};

Engine::Engine(const media::Source& source, Wires& wires)
    : wires_(wires)
    , source_(source)
    , isAddress_(source.kind == media::Source::Kind::Address)
{
    const Deadline deadline(wires.interrupt, isAddress_ ? AddressLimit : OpenLimit);
    server_ = media::FrameServer::Open(source, wires.interrupt);
    timeline_ = std::make_unique<ServerTimeline>(*this);
    server_->ExtendIndex(1);
    if (server_->KnownFrames() == 0)
        throw media::MediaError(media::Failure::NotAVideo, "no picture in it");
    TellFacts();
}

Shot Engine::Seek(int number, media::Purpose purpose)
{
    if (purpose == media::Purpose::Step)
        steps_.Stepped(number);
    else
        steps_.Jumped();
    return Show(Reach(number), purpose);
}

Shot Engine::SeekTime(double seconds)
{
    steps_.Jumped();
    ReachTime(seconds);
    return Show(server_->NumberAt(seconds), media::Purpose::Jump);
}

Shot Engine::SeekEnd()
{
    steps_.Jumped();
    return Show(LastWithin(IndexLimit), media::Purpose::Jump);
}

Shot Engine::Show(int number, media::Purpose purpose)
{
    const Deadline deadline(wires_.interrupt, PictureLimit);
    Shot shot = Render(server_->Get(number, purpose));
    TellFacts();
    if (playback_) {
        shown_ = shot;
        PlayFrom(number, number + 1);
    }
    return shot;
}

Shot Engine::Render(const media::Picture& picture) const
{
    Shot shot = ShotOf(picture);
    Draw(shot);
    return shot;
}

Shot Engine::ShotOf(const media::Picture& picture) const
{
    Shot shot;
    shot.number = picture.Number();
    shot.seconds = server_->TimeOf(picture.Number());
    shot.picture = picture;
    shot.turn = turn_;
    return shot;
}

void Engine::Draw(Shot& shot) const
{
    const View view = wires_.LookedAt();
    const QSize size = ShownSize(view, shot.picture.Size());
    if (!size.isEmpty() && (view.isVisible || !playback_))
        shot.screen = shot.picture.ToScreen(size);
}

/// Number, brought into the range of the pictures there are.
int Engine::Reach(int number)
{
    if (number >= server_->KnownFrames() && !server_->IsComplete()) {
        const Deadline deadline(wires_.interrupt, IndexLimit);
        ExtendIndex(number + 1);
    }
    return std::clamp(number, 0, std::max(server_->KnownFrames() - 1, 0));
}

int Engine::LastWithin(std::chrono::seconds limit)
{
    const Deadline deadline(wires_.interrupt, limit);
    while (!server_->IsComplete() && ExtendIndex(server_->KnownFrames() + IndexSlice)) { }
    return std::max(server_->KnownFrames() - 1, 0);
}

void Engine::ReachTime(double seconds)
{
    const Deadline deadline(wires_.interrupt, IndexLimit);
    const auto isKnown = [&] {
        const int known = server_->KnownFrames();
        return server_->IsComplete() || (known > 0 && server_->TimeOf(known - 1) > seconds);
    };
    while (!isKnown() && ExtendIndex(server_->KnownFrames() + IndexSlice)) { }
}

/// False when there is nothing to be gained from going on.
bool Engine::ExtendIndex(int frames)
{
    if (IsIndexWhole())
        return false;
    const int known = server_->KnownFrames();
    try {
        WithinMemory([&] { server_->ExtendIndex(frames); });
    } catch (const media::MediaError& error) {
        // What is known can still be played; whoever needs the rest will be told by the decoder.
        if (error.failure != media::Failure::TimedOut)
            indexFailure_ = error.failure;
        TellFacts();
        return false;
    }
    TellFacts();
    return server_->IsComplete() || server_->KnownFrames() > known;
}

void Engine::TellFacts()
{
    const bool isLive = isAddress_ && !IsIndexWhole() && server_->Duration() <= 0;
    wires_.facts.Write(
        { server_->KnownFrames(), IsIndexWhole(), server_->Duration(), server_->Size(), isLive });
}

PlaySpan Engine::Span()
{
    const Selection& selection = options_.selection;
    PlaySpan span;
    if (selection.start > 0) {
        ReachTime(selection.start);
        span.first = server_->NumberAt(selection.start);
    }
    // An end before the start selects nothing; then all is played, as without it.
    if (selection.end < selection.start || std::isinf(selection.end))
        return span;
    ReachTime(selection.end);
    span.last = server_->NumberAt(selection.end);
    return span;
}

int Engine::Following(int shown, const PlaySpan& span)
{
    return timeline_->Reaches(shown + 1) ? span.NextAfter(shown) : span.first;
}

void Engine::Play(const Shot& shown, const PlayOptions& options)
{
    steps_.Jumped();
    options_ = options;
    shown_ = shown;
    PlayFrom(shown.number, Following(shown.number, Span()));
}

void Engine::Change(const PlayOptions& options)
{
    const bool isSamePlay = options.selection == options_.selection && options.rate == options_.rate
        && options.playCount == options_.playCount;
    options_ = options;
    if (sound_)
        sound_->SetMute(options.isMuted);
    if (playback_ && !isSamePlay)
        PlayFrom(shown_.number, shown_.number + 1);
}

Shot Engine::Pause()
{
    playback_.reset();
    return std::exchange(shown_, {});
}

void Engine::PlayFrom(int shown, int next)
{
    PlaySpan span = Span();
    if (next - 1 > span.last)
        span.last = std::numeric_limits<int>::max(); // the user went on behind the selection
    const bool isContinued = next == shown + 1;
    const double from = server_->TimeOf(isContinued ? shown : next);
    const Playback::Hands hands = {
        [this](int number) {
            const Deadline deadline(wires_.interrupt, PictureLimit);
            return server_->Get(number, media::Purpose::Play);
        },
        [this](const media::Picture& picture) { return Render(picture); },
        [this](const Shot& shot) {
            shown_ = shot;
            Mail mail;
            mail.shot = shot;
            wires_.mail->Post(mail);
        },
    };
    playback_.reset(); // before the next one takes the sound
    playback_ = std::make_unique<Playback>(
        PlayPlan(*timeline_, span, options_, next, from), from, options_.rate, MakeClock(from), hands);
}

std::unique_ptr<MediaClock> Engine::MakeClock(double from)
{
    if (!sound_ && wires_.makeSound && server_->HasSound()) {
        const auto open = [this] { return media::SoundReader::Open(source_, wires_.soundInterrupt); };
        sound_ = std::make_unique<SoundPath>(open, wires_.makeSound);
    }
    if (!sound_)
        return std::make_unique<WallClock>();
    sound_->SetMute(options_.isMuted);
    return std::make_unique<SoundClock>(*sound_, from, options_.rate);
}

void Engine::Finish()
{
    const bool isMediaEnd = !timeline_->Reaches(shown_.number + 1); // may fail: then it is not over yet
    playback_.reset();
    Shot last = std::exchange(shown_, {});
    last.turn = turn_;
    Mail mail;
    mail.end = { last, isMediaEnd };
    if (isMediaEnd && indexFailure_)
        mail.fault = { *indexFailure_, turn_ }; // it ends earlier than it should
    wires_.mail->Post(mail);
    if (!options_.rewindsAtEnd)
        return;
    mail = {};
    mail.shot = Show(Span().first, media::Purpose::Jump);
    wires_.mail->Post(mail);
}

void Engine::Fail(media::Failure failure)
{
    playback_.reset();
    shown_ = {};
    Mail mail;
    mail.fault = { failure, turn_ };
    wires_.mail->Post(mail);
}

void Engine::WalkAhead()
{
    if (playback_)
        return wires_.shelf.Drop();
    try {
        WithinMemory([this] { FillShelf(); });
    } catch (const media::MediaError&) {
        wires_.shelf.Drop(); // the caller will come to the place itself and be told there
    }
}

void Engine::FillShelf()
{
    const std::vector<int> wanted = wires_.shelf.Wanted();
    if (wanted.empty())
        return wires_.shelf.Drop();
    media::Conveyor<Shot> stills([this](Shot& shot) {
        Draw(shot);
        shot.still = shot.picture.ToStill();
        return wires_.shelf.Put(shot);
    });
    server_->Walk(wanted, [&](const media::Picture& picture) { return stills.Put(ShotOf(picture)); });
    stills.Finish();
}

void Engine::Guard(const std::function<void()>& work)
{
    try {
        WithinMemory(work);
    } catch (const media::MediaError& error) {
        // What was cut short for an order is done anew or not at all, as the order wants it.
        if (!wires_.isHurried || error.failure != media::Failure::TimedOut)
            Fail(error.failure);
    }
}

void Engine::Obey(int turn, const std::function<void(Engine&)>& order)
{
    turn_ = turn;
    wires_.isHurried = false;
    wires_.interrupt.ClearDeadline();
    Guard([&] { order(*this); });
}

Engine::Time Engine::Work()
{
    Time next = Playback::AtOnce;
    Guard([&] {
        Redraw();
        next = playback_ ? WorkPlaying() : WorkIdle();
    });
    return next;
}

void Engine::Redraw()
{
    const std::optional<Shot> order = wires_.TakeRedraw();
    if (!order)
        return;
    Mail mail;
    mail.redrawn = Render(order->picture);
    wires_.mail->Post(mail);
}

Engine::Time Engine::WorkPlaying()
{
    const Time next = playback_->Work();
    if (playback_->IsOver())
        Finish();
    else if (next > MediaClock::Wall::now() + SpareTime && !isAddress_)
        ExtendIndex(server_->KnownFrames() + PlayingSlice);
    return next;
}

Engine::Time Engine::WorkIdle()
{
    const bool growsIndex = !isAddress_ || wantsWholeIndex_;
    if (PrepareSteps() || (growsIndex && ExtendIndex(server_->KnownFrames() + IndexSlice)))
        return Playback::AtOnce;
    return Time::max();
}

bool Engine::PrepareSteps()
{
    const auto isCached = [this](int number) { return !server_->Cached(number).IsNull(); };
    const std::optional<int> wanted = steps_.Wanted(server_->KnownFrames(), isCached);
    if (!wanted)
        return false;
    try {
        const Deadline deadline(wires_.interrupt, PictureLimit);
        WithinMemory([&] { server_->Get(*wanted, media::Purpose::Step); });
        // A cache too small for what was wanted would have it decoded over and over.
        if (isCached(*wanted))
            return true;
    } catch (const media::MediaError&) {
        // Nobody asked for it yet.
    }
    steps_.Jumped();
    return false;
}

} // namespace player
