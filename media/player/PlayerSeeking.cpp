// How the player control goes to a place.
#include "media/player/AsPlayerFailure.h"
#include "media/player/PlayerControl.h"
#include "media/player/TrackingScale.h"

using namespace player;

void PlayerControl::SetCurrentPosition(double seconds)
{
    Go([&] { return session_->SeekTime(seconds); });
}

void PlayerControl::SeekStart()
{
    Go([&] { return session_->Seek(0, media::Purpose::Jump); });
}

void PlayerControl::SeekEnd()
{
    Go([&] { return session_->SeekEnd(); }, TrackingScale::Max);
}

void PlayerControl::SetTrackingPosition(int position)
{
    position = std::clamp(position, 0, TrackingScale::Max);
    Go([&] { return session_->SeekTime(TrackingScale::ToSeconds(position, Duration())); }, position);
}

/// Seeks for a caller that is not told of failures but by PlayerError.
void PlayerControl::Go(const std::function<Shot()>& seek, std::optional<int> put)
{
    if (!session_)
        return;
    strides_.Forget();
    try {
        Arrive(seek(), put);
    } catch (const media::MediaError& error) {
        Tell(error.failure);
    }
}

void PlayerControl::SetCurrentFrame(int frame)
{
    if (!session_)
        throw NoVideo();
    strides_.Sought(frame);
    const std::optional<Shot> ready = state_ == Running ? std::nullopt : session_->FromShelf(frame);
    Arrive(ready ? *ready : AsPlayerFailure([&] { return session_->Seek(frame, media::Purpose::Jump); }));
}

void PlayerControl::ExpectFrames(int first, int stride)
{
    if (session_ && state_ != Running)
        session_->WalkAhead(first, stride);
}

bool PlayerControl::IsFrameReady(int frame) const
{
    return !session_ || session_->IsOnShelf(frame);
}

void PlayerControl::NextFrame()
{
    Step(1);
}

void PlayerControl::PreviousFrame()
{
    Step(-1);
}

void PlayerControl::Step(int frames)
{
    if (!session_)
        throw NoVideo();
    strides_.Forget();
    if (state_ == Running)
        Halt(Paused);
    const int number = std::max(shown_.number + frames, 0);
    Arrive(AsPlayerFailure([&] { return session_->Seek(number, media::Purpose::Step); }));
}
