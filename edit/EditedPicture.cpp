#include "edit/EditedPicture.h"

#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/Frame.h"
#include "app/Lead.h"

namespace {

enum OpThumb { ThumbnailOnly = 0, ViewerAndThumbnail = 1, ViewerOnly = 2 };

void OpenInViewer(Frame& frame, const QImage& picture)
{
    frame.OpenViewer();
    if (CaptureWindow* const viewer = frame.ActiveCaptureWindow())
        viewer->ShowPicture(picture);
    frame.EnableCommand(Command::Save, true);
}

void HoldClipboard(Frame& frame)
{
    Lead& hold = frame.ThumbHold();
    if (hold.Paste(frame.SystemClipboard(), Lead::PasteTest) == 0)
        frame.EnableCommand(Command::Save, false);
    else
        hold.Paste(frame.SystemClipboard(), Lead::PasteTake);
}

void AddToStrip(Frame& frame)
{
    frame.AddThumbnail();
    frame.ShowThumbnails();
}

} // namespace

void OpenEdited(Frame& frame, Reader reader, const QImage& picture)
{
    ApplicationState& state = frame.State();
    state.Reload(Key::OpThumb, reader);
    switch (state.OpThumb) {
    case ThumbnailOnly:
        HoldClipboard(frame);
        return AddToStrip(frame);
    case ViewerAndThumbnail:
        OpenInViewer(frame, picture);
        AddToStrip(frame);
        return frame.ShowFront(true);
    case ViewerOnly:
        return OpenInViewer(frame, picture);
    default:
        return;
    }
}
