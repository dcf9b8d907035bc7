#include "capture/CaptureCurrentFrame.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Talk.h"
#include "capture/NewCapture.h"
#include "capture/SavePicture.h"
#include "desktop/Clipboard.h"
#include "video/ltmmPlay.h"

#include <QScopeGuard>

#include <deque>
#include <optional>
#include <utility>

namespace {

/// False when another program holds the clipboard; the still is dropped then.
bool HandOver(Frame& frame, Dib&& still)
{
    Clipboard& clipboard = frame.SystemClipboard();
    if (!clipboard.Open(frame.FrameWindow()))
        return false;
    clipboard.Empty();
    clipboard.SetDib(std::move(still));
    clipboard.Close();
    frame.PumpEvents();
    return true;
}

void TellFailure(Frame& frame)
{
    frame.Errors().Show(frame.FrameWindow(), QStringLiteral("Error!"),
        QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
}

void Deliver(Frame& frame, Dib&& still)
{
    try {
        if (HandOver(frame, std::move(still)))
            ShowNewCapture(frame, Reader::Capture);
        else
            frame.EnableCommand(Command::Save, false);
    } catch (const ControlError&) {
        TellFailure(frame);
    }
}

} // namespace

void CaptureCurrentFrame(Frame& frame)
{
    std::deque<Dib>& stills = frame.State().StillsTaken;
    std::optional<Hourglass> hourglass; // one for all captures that wait for each other
    if (stills.empty())
        hourglass.emplace();
    try {
        stills.push_back(frame.CurrentPlayer().GetStillDIB(StillTimeout));
    } catch (const ControlError&) {
        return TellFailure(frame);
    }
    // A press while another capture lets events run has its still now and its turn on the clipboard later.
    if (stills.size() > 1)
        return;
    const auto end = qScopeGuard([&stills] { stills.clear(); });
    for (; !stills.empty(); stills.pop_front())
        Deliver(frame, std::move(stills.front()));
}
