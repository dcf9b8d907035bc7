#include "media/player/Engine.h"

#include "media/Conveyor.h"
#include "media/player/Deadline.h"
#include "media/player/WithinMemory.h"
#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto OpenLimit = 10s;
constexpr auto AddressLimit = 15s;
constexpr auto PictureLimit = 5s;
constexpr auto PreparationSlice = 10ms; // of decoding for steps to come, between two looks at the commands
constexpr auto SpareTime = 5ms; // a pause this long while playing is used for the index

} // namespace

Engine::Engine(const media::Source& source, Wires& wires)
    : wires_(wires)
    , source_(source)
    , isAddress_(source.kind == media::Source::Kind::Address)
{
    const Deadline deadline(wires.interrupt, isAddress_ ? AddressLimit : OpenLimit);
    server_ = media::FrameServer::Open(source, wires.interrupt);
    index_ = std::make_unique<GrowingIndex>(*server_, wires.interrupt, wires.facts, isAddress_);
    server_->ExtendIndex(1);
    if (server_->KnownFrames() == 0)
        throw media::MediaError(media::Failure::NotAVideo, "no picture in it");
    index_->Tell();
}

Shot Engine::Seek(int number, media::Purpose purpose)
{
    if (purpose == media::Purpose::Step)
        steps_.Stepped(number);
    else
        steps_.Jumped();
    return Show(index_->Reach(number), purpose);
}

Shot Engine::SeekTime(double seconds)
{
    steps_.Jumped();
    return Show(index_->ReachTime(seconds), media::Purpose::Jump);
}

Shot Engine::SeekEnd()
{
    steps_.Jumped();
    return Show(index_->ReachLast(), media::Purpose::Jump);
}

Shot Engine::Show(int number, media::Purpose purpose)
{
    const Deadline deadline(wires_.interrupt, PictureLimit);
    Shot shot = Render(server_->Get(number, purpose));
    index_->Tell();
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
    shot.caption = server_->CaptionAt(picture.Number());
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

PlaySpan Engine::Span()
{
    const Selection& selection = options_.selection;
    PlaySpan span;
    if (selection.start > 0)
        span.first = index_->Near(selection.start);
    // An end before the start selects nothing; then all is played, as without it.
    if (selection.end < selection.start || std::isinf(selection.end))
        return span;
    span.last = index_->Near(selection.end);
    return span;
}

int Engine::Following(int shown, const PlaySpan& span)
{
    return index_->Reaches(shown + 1) ? span.NextAfter(shown) : span.first;
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
        PlayPlan(*index_, span, options_, next, from), from, options_.rate, MakeClock(from), hands);
}

std::unique_ptr<MediaClock> Engine::MakeClock(double from)
{
    if (!sound_ && wires_.makeSound && server_->HasSound()) {
        const auto open = [this, start = server_->Start()] {
            return media::SoundReader::Open(source_, wires_.soundInterrupt, start);
        };
        try {
            sound_ = std::make_unique<SoundPath>(open, wires_.makeSound);
        } catch (const std::system_error&) {
            // No thread to be had: the pictures play without.
        }
    }
    if (!sound_)
        return std::make_unique<WallClock>();
    sound_->SetMute(options_.isMuted);
    return std::make_unique<SoundClock>(*sound_, from, options_.rate);
}

void Engine::Finish()
{
    const bool isMediaEnd = !index_->Reaches(shown_.number + 1); // may fail: then it is not over yet
    playback_.reset();
    Shot last = std::exchange(shown_, {});
    last.turn = turn_;
    Mail mail;
    mail.end = { last, isMediaEnd };
    if (isMediaEnd && index_->Failure())
        mail.fault = { *index_->Failure(), turn_ }; // it ends earlier than it should
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
        return wires_.DropShelf();
    wires_.shelf.Release();
    try {
        WithinMemory([this] { FillShelf(); });
    } catch (const media::MediaError&) {
        wires_.shelf.Drop(); // the caller will come to the place itself and be told there
    }
    wires_.TellOfShelf();
}

void Engine::FillShelf()
{
    for (std::vector<int> wanted = wires_.shelf.Wanted(); !wanted.empty(); wanted = wires_.shelf.Wanted()) {
        media::Conveyor<Shot> stills([this](Shot& shot) {
            Draw(shot);
            shot.still = shot.picture.ToStill();
            const bool isTaken = wires_.shelf.Put(shot);
            wires_.TellOfShelf();
            return isTaken;
        });
        server_->Walk(wanted, [&](const media::Picture& picture) { return stills.Put(ShotOf(picture)); });
        stills.Finish();
    }
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
        index_->Extend(GrowingIndex::PlayingSlice);
    return next;
}

Engine::Time Engine::WorkIdle()
{
    const bool growsIndex = !isAddress_ || wantsWholeIndex_;
    if (PrepareSteps() || (growsIndex && index_->Extend(GrowingIndex::Slice)))
        return Playback::AtOnce;
    return Time::max();
}

bool Engine::PrepareSteps()
{
    const auto isCached = [this](int number) { return !server_->Cached(number).IsNull(); };
    const std::optional<int> wanted = steps_.Wanted(server_->KnownFrames(), server_->Reserve(), isCached);
    if (!wanted)
        return false;
    try {
        const Deadline deadline(wires_.interrupt, PictureLimit);
        const auto until = media::Interrupt::Clock::now() + PreparationSlice;
        const bool isThere = WithinMemory([&] { return server_->Prepare(*wanted, until); });
        // A cache too small for what was wanted would have it decoded over and over.
        if (!isThere || isCached(*wanted))
            return true;
    } catch (const media::MediaError&) {
        // Nobody asked for it yet.
    }
    steps_.Jumped();
    return false;
}

} // namespace player
