#include "media/player/Playback.h"

#include <utility>

namespace player {

namespace {

constexpr double HopelessLag = 2; // wall seconds; behind that the clock waits for the pictures
constexpr double Tick = 1e-6; // media seconds; the wall counts in whole nanoseconds
constexpr std::chrono::milliseconds LookAgain { 5 }; // at a clock that is not ready
constexpr double LongestFreeze = 0.25; // wall seconds; then a late picture is better than none

} // namespace

Playback::Playback(PlayPlan plan, double from, double rate, std::unique_ptr<MediaClock> clock, Hands hands)
    : plan_(plan)
    , from_(from)
    , rate_(rate)
    , clock_(std::move(clock))
    , hands_(std::move(hands))
    , lastShown_(from)
{
}

Playback::Time Playback::Work()
{
    if (!clock_->IsRunning())
        return Prime();
    ShowDue();
    if (!isDrawnOut_ && ahead_.size() < PicturesAhead) {
        DecodeNext();
        return AtOnce;
    }
    if (!ahead_.empty())
        return clock_->When(ahead_.front().at);
    isOver_ = clock_->Now() + Tick >= plan_.End();
    return isOver_ ? AtOnce : clock_->When(plan_.End());
}

/// The clock starts when the first pictures are there: what the decoder needs to get going is not lateness.
Playback::Time Playback::Prime()
{
    if (!isDrawnOut_ && ahead_.size() < PicturesAhead)
        DecodeNext();
    else if (clock_->IsReady())
        clock_->Start(from_, rate_);
    else
        return MediaClock::Wall::now() + LookAgain;
    return AtOnce;
}

void Playback::DecodeNext()
{
    const auto step = plan_.Next(Now());
    if (!step)
        return DrawOut();
    if (const auto turn = plan_.NextTurn())
        clock_->Expect(*turn);
    const media::Picture picture = hands_.decode(step->number);
    if (clock_->IsRunning() && Now() - step->due > HopelessLag * rate_)
        clock_->Start(step->due, rate_);
    if (IsTooLate(step->due))
        dropped_ = { picture, step->due };
    else
        Queue(picture, step->due);
}

/// However late it is, the video ends with its last picture on the screen.
void Playback::DrawOut()
{
    isDrawnOut_ = true;
    if (dropped_)
        Queue(dropped_->thing, dropped_->at);
}

bool Playback::IsTooLate(double due) const
{
    return due < Now() && Now() - lastShown_ < LongestFreeze * rate_;
}

void Playback::Queue(const media::Picture& picture, double due)
{
    ahead_.push_back({ hands_.render(picture), due });
    dropped_.reset();
}

void Playback::ShowDue()
{
    std::optional<Shot> newest;
    while (!ahead_.empty() && ahead_.front().at <= clock_->Now() + Tick) {
        newest = std::move(ahead_.front().thing);
        ahead_.pop_front();
    }
    if (!newest)
        return;
    hands_.show(*newest);
    lastShown_ = clock_->Now();
}

} // namespace player
