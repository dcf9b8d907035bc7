#include "capture/CaptureCurrentFrame.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/SavePicture.h"
#include "desktop/Clipboard.h"
#include "video/ltmmPlay.h"

#include <QScopeGuard>

#include <deque>
#include <optional>
#include <utility>

namespace {

enum OpThumb { ThumbnailOnly = 0, ViewerAndThumbnail = 1, ViewerOnly = 2 };

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

void OpenViewer(Frame& frame)
{
    frame.OpenViewer();
    frame.EnableCommand(Command::Save, true);
}

/// No capture window takes the frame from the clipboard here, so the frame's own control does.
void HoldForThumbnail(Frame& frame)
{
    Lead& hold = frame.ThumbHold();
    if (hold.Paste(frame.SystemClipboard(), Lead::PasteTest) == 0)
        frame.EnableCommand(Command::Save, false);
    else
        hold.Paste(frame.SystemClipboard(), Lead::PasteTake);
}

void Show(Frame& frame)
{
    ApplicationState& state = frame.State();
    state.Reload(Key::OpThumb, Reader::Capture);
    switch (state.OpThumb) {
    case ViewerOnly:
        OpenViewer(frame);
        break;
    case ViewerAndThumbnail:
        OpenViewer(frame);
        frame.AddThumbnail();
        frame.ShowFront(true);
        break;
    case ThumbnailOnly:
        HoldForThumbnail(frame);
        frame.AddThumbnail();
        break;
    }
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
            Show(frame);
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
