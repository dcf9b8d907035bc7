#include "capture/NewCapture.h"

#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/Frame.h"
#include "app/Lead.h"

namespace {

/// Without an edited picture the window takes what the clipboard holds.
void OpenViewer(Frame& frame, const QImage& edited)
{
    frame.OpenViewer();
    CaptureWindow* const viewer = edited.isNull() ? nullptr : frame.ActiveCaptureWindow();
    if (viewer)
        viewer->ShowPicture(edited);
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

void AddToStrip(Frame& frame, const QImage& edited)
{
    frame.AddThumbnail();
    if (!edited.isNull())
        frame.ShowThumbnails();
}

void Show(Frame& frame, Reader reader, const QImage& edited)
{
    ApplicationState& state = frame.State();
    state.Reload(Key::OpThumb, reader);
    switch (state.OpThumb) {
    case ThumbnailOnly:
        HoldForThumbnail(frame);
        return AddToStrip(frame, edited);
    case ViewerAndThumbnail:
        OpenViewer(frame, edited);
        AddToStrip(frame, edited);
        return frame.ShowFront(true);
    case ViewerOnly:
        return OpenViewer(frame, edited);
    default:
        return;
    }
}

} // namespace

void ShowNewCapture(Frame& frame, Reader reader)
{
    Show(frame, reader, QImage());
}

void ShowEdited(Frame& frame, Reader reader, const QImage& edited)
{
    Show(frame, reader, edited);
}
