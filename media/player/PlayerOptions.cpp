// How the player control is told what to play and how.
#include "app/ControlError.h"
#include "media/player/PlayerControl.h"
#include "media/player/TrackingScale.h"

using namespace player;

void PlayerControl::SetSelectionStart(double seconds)
{
    Selection selection = options_.selection;
    selection.SetStart(seconds, Duration());
    Select(selection);
}

void PlayerControl::SetSelectionEnd(double seconds)
{
    Selection selection = options_.selection;
    selection.SetEnd(seconds, Duration());
    Select(selection);
}

void PlayerControl::MarkSelectionStart()
{
    SetSelectionStart(CurrentPosition());
}

void PlayerControl::MarkSelectionEnd()
{
    SetSelectionEnd(CurrentPosition());
}

void PlayerControl::Select(const Selection& selection)
{
    if (!session_ || options_.selection == selection)
        return;
    options_.selection = selection;
    Apply();
    const double duration = Duration();
    Q_EMIT SelectionChanged(TrackingScale::FromSeconds(selection.start, duration),
        TrackingScale::FromSeconds(std::min(selection.end, duration), duration));
}

void PlayerControl::SetAutoRewind(bool rewind)
{
    options_.rewindsAtEnd = rewind;
    Apply();
}

void PlayerControl::SetPlayCount(int count)
{
    options_.playCount = std::max(count, 0);
    Apply();
}

void PlayerControl::SetMute(bool mute)
{
    options_.isMuted = mute;
    Apply();
}

bool PlayerControl::IsRateSupported(double rate) const
{
    const bool isLive = session_ && session_->Known().isLive;
    return IsPlayableRate(rate) && (!isLive || rate == 1);
}

void PlayerControl::SetRate(double rate)
{
    if (!IsRateSupported(rate))
        throw ControlError(QStringLiteral("The video cannot be played at this rate."));
    options_.rate = rate;
    Apply();
}

void PlayerControl::Apply()
{
    if (state_ != Running)
        return;
    try {
        session_->Change(options_);
    } catch (const media::MediaError& error) {
        Tell(error.failure);
    }
}
