#include "capture/NewCapture.h"

#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Lead.h"

#include <functional>
#include <optional>
#include <vector>

namespace {

void OpenEdited(Frame& frame, const QImage& edited)
{
    frame.OpenViewer();
    CaptureWindow* const viewer = frame.ActiveCaptureWindow();
    if (!viewer)
        throw ControlError(QStringLiteral("The new capture window was closed."));
    viewer->ShowPicture(edited);
}

/// Without an edited picture the window takes what the clipboard holds.
void OpenViewer(Frame& frame, const QImage& edited)
{
    if (edited.isNull())
        frame.OpenViewer();
    else
        OpenEdited(frame, edited);
    frame.EnableCommand(Command::Save, true);
}

/// No capture window takes the picture from the clipboard here, so the frame's own control does.
void HoldForThumbnail(Frame& frame)
{
    Lead& hold = frame.ThumbHold();
    if (hold.Paste(frame.SystemClipboard(), Lead::PasteTest) == 0)
        frame.EnableCommand(Command::Save, false);
    else
        hold.Paste(frame.SystemClipboard(), Lead::PasteTake);
}

using Step = std::function<void()>;

/// What is to be done, in its order.
std::vector<Step> Steps(Frame& frame, int opThumb, const QImage& edited)
{
    const Step openViewer = [&frame, edited] { OpenViewer(frame, edited); };
    const Step addToStrip = [&frame, edited] {
        frame.AddThumbnail();
        if (!edited.isNull())
            frame.ShowThumbnails();
    };
    switch (opThumb) {
    case ThumbnailOnly:
        return { [&frame] { HoldForThumbnail(frame); }, addToStrip };
    case ViewerAndThumbnail:
        return { openViewer, addToStrip, [&frame] { frame.ShowFront(true); } };
    case ViewerOnly:
        return { openViewer };
    default:
        return {};
    }
}

int StoredOpThumb(ApplicationState& state, Reader reader)
{
    state.Reload(Key::OpThumb, reader);
    return state.OpThumb;
}

} // namespace

void ShowNewCapture(Frame& frame, Reader reader)
{
    for (const Step& step : Steps(frame, StoredOpThumb(frame.State(), reader), QImage()))
        step();
}

void ShowEdited(Frame& frame, Reader reader, const QImage& edited)
{
    std::optional<ControlError> first;
    for (const Step& step : Steps(frame, StoredOpThumb(frame.State(), reader), edited)) {
        try {
            step();
        } catch (const ControlError& error) {
            if (!first)
                first = error;
        }
    }
    if (first)
        throw ControlError(*first);
}
