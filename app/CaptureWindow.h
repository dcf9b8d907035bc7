#pragma once

#include <QImage>

class Lead;

/// What other windows may do with the window of one capture.
class CaptureWindow {
public:
    virtual ~CaptureWindow() = default;

    /// The control that holds the capture and shows it.
    virtual Lead& Picture() = 0;
    /// The capture as it was taken or last edited: what the printer, the thumbnails and the previews of the
    /// edit tools begin from.
    virtual QImage ClipPic() const = 0;
    /// What Picture holds becomes ClipPic; the window keeps its size.
    virtual void KeepEdit() = 0;
    /// Prints ClipPic as the settings say; tells when that fails. The window may close meanwhile.
    virtual void PrintMe() = 0;
    /// Takes another picture for its capture, and the size that this needs.
    virtual void ShowPicture(const QImage& picture) = 0;
};
