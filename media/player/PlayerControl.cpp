#include "media/player/PlayerControl.h"

#include "media/player/AsPlayerFailure.h"
#include "media/player/PaintShot.h"
#include "media/player/TrackingScale.h"
#include "toolkit/Style.h"
#include <QPointer>
#include <system_error>
#include <utility>

using namespace player;
using namespace std::chrono_literals;

namespace {

constexpr auto OpeningPoll = 10ms; // between two looks whether a source has opened
constexpr auto CountPatience = 30s; // for the index of a large file
constexpr auto DurationPatience = 2s; // only where the container tells nothing

media::Source SourceOf(const QString& file)
{
    if (file.contains(QLatin1String("://")))
        return { media::Source::Kind::Address, file.toUtf8() };
    return { media::Source::Kind::File, FileName::ToBytes(file) };
}

} // namespace

PlayerControl::PlayerControl(QWidget* parent, OpeningWait awaitOpening, SoundDeviceMaker makeSound)
    : ltmmPlay(parent)
    , awaitOpening_(std::move(awaitOpening))
    , makeSound_(std::move(makeSound))
    , running_(std::make_shared<std::atomic<int>>(0))
    , progress_([this] { ReportProgress(); })
{
    openingWatch_.setInterval(OpeningPoll);
    connect(&openingWatch_, &QTimer::timeout, this, [this] {
        if (!opening_->HasOpened())
            return;
        openingWatch_.stop();
        Finish();
        Q_EMIT SourceOpened();
    });
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    QPalette ground = palette();
    ground.setColor(QPalette::Window, StyleColor(Token::Ground));
    setPalette(ground);
}

PlayerControl::~PlayerControl()
{
    Drop();
}

void PlayerControl::SetSourceFile(const QString& file)
{
    ResetSource();
    if (file.isEmpty())
        return;
    file_ = file;
    kind_ = FileSource;
    Open(SourceOf(file));
}

void PlayerControl::SetSourceMemory(const QByteArray& block)
{
    ResetSource();
    memory_ = block;
    kind_ = MemorySource;
    Open({ media::Source::Kind::Memory, block });
}

void PlayerControl::ResetSource()
{
    const bool hadSource = session_ != nullptr;
    Drop();
    if (hadSource)
        Q_EMIT SelectionChanged(0, 0);
}

void PlayerControl::BeginSourceFile(const QString& file)
{
    ResetSource();
    file_ = file;
    kind_ = FileSource;
    if (Begin(SourceOf(file)))
        openingWatch_.start();
    else
        QMetaObject::invokeMethod(this, &PlayerControl::SourceOpened, Qt::QueuedConnection);
}

void PlayerControl::Open(const media::Source& source)
{
    if (!Begin(source))
        return;
    if (source.kind != media::Source::Kind::Address || !awaitOpening_ || IsStillWanted())
        Finish();
}

/// False when the means are lacking, which is told.
bool PlayerControl::Begin(const media::Source& source)
{
    try {
        if (*running_ >= MaxOrphans)
            throw media::MediaError(media::Failure::NoResources, "too many sources hang");
        mail_ = std::make_shared<Mailbox>(this, [this](const Mail& mail) { Read(mail); });
        opening_ = Session::Start(source, view_, mail_, running_, makeSound_);
        return true;
    } catch (const media::MediaError& error) {
        Fail(error.failure);
    } catch (const std::system_error&) { // no thread to be had
        Fail(media::Failure::NoResources);
    }
    return false;
}

/// Waits for an address under the user's eyes. Events are handled meanwhile: the player may go, or be given
/// another source.
bool PlayerControl::IsStillWanted()
{
    const std::shared_ptr<Session> opening = opening_;
    const QPointer<PlayerControl> self(this);
    const bool isOver = awaitOpening_(*this, [opening] { return opening->HasOpened(); });
    if (!self || opening_ != opening)
        return false;
    if (!isOver) {
        Drop();
        wasCancelled_ = true;
    }
    return isOver;
}

/// Takes what was opened into use, waiting for it if need be.
void PlayerControl::Finish()
{
    try {
        const Shot first = opening_->First();
        session_ = std::move(opening_);
        Adopt(first);
    } catch (const media::MediaError& error) {
        return Fail(error.failure);
    }
    if (session_->Known().isLive)
        SetRate(1); // that of the video before may be another
    natural_ = session_->Known().size;
    Look(); // the window may have changed meanwhile
    TakeOwnSize();
    Q_EMIT SelectionChanged(0, TrackingScale::Max);
    Q_EMIT PositionChanged();
    progress_.Force();
}

void PlayerControl::Fail(media::Failure failure)
{
    Drop();
    Tell(failure);
}

void PlayerControl::Drop()
{
    openingWatch_.stop();
    for (std::shared_ptr<Session>* session : { &opening_, &session_ })
        if (const std::shared_ptr<Session> gone = std::exchange(*session, nullptr))
            gone->Close();
    progress_.Cancel();
    strides_.Forget();
    trackingPut_.reset();
    shown_ = {};
    natural_ = QSize(0, 0);
    file_.clear();
    memory_.clear();
    kind_ = NoSource;
    wasCancelled_ = false;
    state_ = Stopped;
    stoppedByCall_ = false;
    options_.selection = {};
    update();
}

/// Not at once: who hears of it may open a box, in the middle of what the caller is doing.
void PlayerControl::Tell(media::Failure failure)
{
    QMetaObject::invokeMethod(
        this, [this, failure] { Q_EMIT PlayerError(int(failure)); }, Qt::QueuedConnection);
}

void PlayerControl::Read(const Mail& mail)
{
    const QPointer<PlayerControl> self(this);
    const std::shared_ptr<Session> session = session_ ? session_ : opening_;
    if (mail.redrawn && mail.redrawn->number == shown_.number) {
        shown_.screen = mail.redrawn->screen;
        update();
    }
    const bool isOver = (mail.end && session->IsOfLastPlay(mail.end->lastShown.turn))
        || (mail.fault && session->IsOfLastPlay(mail.fault->turn));
    if (isOver)
        state_ = Stopped;
    if (mail.end && mail.end->lastShown.turn == session->Turn()) {
        Adopt(mail.end->lastShown);
        if (mail.end->isMediaEnd)
            trackingPut_ = TrackingScale::Max;
        progress_.Force();
    }
    // Who listened may have dropped the source, or the player.
    if (self && session_ == session && mail.shot && mail.shot->turn == session->Turn()
        && mail.shot->number != shown_.number) {
        Adopt(*mail.shot);
        progress_.Offer();
    }
    if (self && mail.shelfChanged)
        Q_EMIT FramesReady();
    if (self && mail.fault)
        Q_EMIT PlayerError(int(mail.fault->failure));
}

void PlayerControl::Run()
{
    if (!session_ || state_ == Running)
        return;
    strides_.Forget();
    try {
        session_->Play(shown_, options_);
        state_ = Running;
        stoppedByCall_ = false;
    } catch (const media::MediaError& error) {
        Tell(error.failure);
    }
}

void PlayerControl::Pause()
{
    if (state_ != Stopped)
        Halt(Paused);
}

void PlayerControl::Stop()
{
    Halt(Stopped);
    stoppedByCall_ = true;
}

void PlayerControl::Halt(PlayState state)
{
    if (std::exchange(state_, state) != Running)
        return;
    progress_.Cancel();
    try {
        const Shot last = session_->Pause();
        if (!last.IsNull())
            Adopt(last);
    } catch (const media::MediaError& error) {
        Tell(error.failure);
    }
    progress_.Force();
}

void PlayerControl::Adopt(const Shot& shot)
{
    const QRectF before = VisiblePlace(view_, shown_.picture.Size());
    shown_ = shot;
    trackingPut_.reset();
    // The ground around the picture stands already.
    update((before | VisiblePlace(view_, shown_.picture.Size())).toAlignedRect());
    if (IsOutdated(shown_, view_) && view_.isVisible)
        session_->Redraw(shown_);
}

/// put is the place on the scale that was asked for.
void PlayerControl::Arrive(const Shot& shot, std::optional<int> put)
{
    stoppedByCall_ = false;
    Adopt(shot);
    trackingPut_ = put;
    Q_EMIT PositionChanged();
    progress_.Force();
}

void PlayerControl::ReportProgress()
{
    Q_EMIT PlaybackProgress(TrackingPosition());
}

double PlayerControl::Duration() const
{
    if (!session_)
        return 0;
    const Facts facts = session_->Known();
    return facts.duration > 0 ? facts.duration : session_->AwaitWhole(DurationPatience).duration;
}

int PlayerControl::FrameCount() const
{
    return session_ ? session_->AwaitWhole(CountPatience).frames : 0;
}

int PlayerControl::TrackingPosition() const
{
    return trackingPut_ ? *trackingPut_ : TrackingScale::FromSeconds(CurrentPosition(), Duration());
}

int PlayerControl::TrackingMax() const
{
    return session_ ? TrackingScale::Max : 0;
}

int PlayerControl::CheckSeeking(int mask) const
{
    // What is sent as it happens has no end, and nobody sends its start again.
    return session_ && !session_->Known().isLive ? mask & EveryCapability : 0;
}

QImage PlayerControl::GetStillPicture(int)
{
    if (!session_ || shown_.picture.IsNull())
        throw NoVideo();
    if (stoppedByCall_)
        throw ControlError(QStringLiteral("The video is stopped."));
    QImage still = shown_.still.isNull() ? shown_.picture.ToStill() : shown_.still;
    if (still.isNull())
        throw ControlError(QStringLiteral("The frame could not be had in time."));
    strides_.StillTaken();
    if (const int stride = strides_.Stride(); stride > 0 && state_ != Running)
        session_->WalkAhead(shown_.number + stride, stride);
    return still;
}

QString PlayerControl::ErrorText(int code) const
{
    return media::FailureText(media::Failure(code));
}
