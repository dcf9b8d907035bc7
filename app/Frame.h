#pragma once

#include <QStringList>
#include <QtGlobal>

#include <functional>

class ApplicationState;
class CaptureWindow;
class Clipboard;
class ErrorBox;
class FileDialogs;
class Lead;
class Printers;
class QImage;
class QWidget;
class Wallpaper;
class ltmmPlay;

/// The frame's command buttons, Cmds(0) to Cmds(9).
enum class Command {
    Open,
    Stretch,
    FitToWindow,
    DefaultSize,
    Download,
    Cancel,
    Print,
    Options,
    Capture,
    Save,
    Count
};

/// The frame's status labels by role.
enum class StatusLabel {
    Operation, ///< LblMsg1(0): operation text and the slider's percent
    Position, ///< LblMsg1(1): position and length
    FrameNumber, ///< LblMsg1(2): frame number, or the start prompt
    Percent, ///< LblMsg1(3)
    AutoCapture, ///< Label2: progress of an automatic capture
    Flashing, ///< Label3: "Paused", "Auto"
    Watermark, ///< LblWatermark
    Count
};

/// Whose popup stands open, as PopupKind tells it.
enum class PopupOwner { Frame = 0, VideoWindow = 1, Viewer = 2 };

/// What a window may ask of the frame it stands in. Main implements it; a window never knows Main.
class Frame {
public:
    virtual ~Frame() = default;

    virtual ApplicationState& State() = 0;
    virtual Clipboard& SystemClipboard() = 0;
    virtual Printers& SystemPrinters() = 0;
    virtual FileDialogs& Dialogs() = 0;
    virtual ErrorBox& Errors() = 0;
    virtual Wallpaper& DesktopWallpaper() = 0;

    /// The frame's own window, for owned boxes.
    virtual QWidget* FrameWindow() = 0;
    /// The active child window of the frame, null when there is none.
    virtual QWidget* ActiveForm() = 0;
    /// The picture of the active capture window, null when the active window holds none.
    virtual Lead* ActiveCapture() = 0;
    /// The active window as one of a capture, null when it is none.
    virtual CaptureWindow* ActiveCaptureWindow() = 0;
    /// Puts a window among the frame's children, shows it and makes it the active one.
    virtual void AddChild(QWidget* form) = 0;
    virtual void SendToBack(QWidget* form) = 0;

    virtual void SetStatus(StatusLabel label, const QString& text) = 0;
    /// The same in a colour that catches the eye, until the label's next text.
    virtual void SetStatusAlert(StatusLabel label, const QString& text) = 0;
    virtual void ShowStatus(StatusLabel label, bool visible) = 0;
    /// Puts a label's text on the screen at once, for a step that lets no events through.
    virtual void RepaintStatus(StatusLabel label) = 0;
    virtual void EnableCommand(Command command, bool enabled) = 0;
    virtual bool IsCommandEnabled(Command command) const = 0;
    /// Enabled of the commands that need a video: Stretch, FitToWindow, DefaultSize, Capture.
    virtual void SetEnabled(bool enabled) = 0;

    /// The player of the current video; makes a video window when there is none.
    virtual ltmmPlay& CurrentPlayer() = 0;

    /// The table of open capture windows; handle is the window's identity.
    virtual void AddKid(quintptr handle) = 0;
    virtual void RemoveKid(quintptr handle) = 0;

    /// Opens a new capture window, which takes the picture from the clipboard.
    virtual void OpenViewer() = 0;
    /// Adds a thumbnail of the picture on the clipboard to the strip, opening it when needed, and puts it
    /// behind.
    virtual void AddThumbnail() = 0;
    /// Brings the strip of thumbnails to the front, if there is one.
    virtual void ShowThumbnails() = 0;
    /// The hidden control that holds a frame which no capture window takes from the clipboard.
    virtual Lead& ThumbHold() = 0;
    /// Shows front1, the button that brings the video window to the front.
    virtual void ShowFront(bool visible) = 0;

    /// Shows the one window of edit tools, which work on the active capture.
    virtual void OpenTools() = 0;
    /// Opens the one visual editor on the active capture, or shows the one that is open.
    virtual void OpenVisual() = 0;
    /// The picture behind the frame's windows as its file has it, null when there is none.
    virtual QImage PicSource() = 0;
    /// Shows a picture on the whole screen until the user ends it; whatever can go meanwhile must be looked
    /// at again afterwards.
    virtual void ShowFullScreen(const QImage& picture) = 0;
    /// Opens the user's guide, or tells that it is missing.
    virtual void OpenHelp() = 0;
    /// Opens the one popup below a button; chosen gets the number of the item.
    /// checkedItems is a bit mask of the items that show a check. kind is kept in PopupKind.
    virtual void OpenMenus(PopupOwner kind, const QStringList& items, int checkedItems, const QWidget& button,
        std::function<void(int)> chosen) = 0;

    /// Lets what waits in the window system happen, as fades and boxes do too: whatever can go meanwhile must
    /// be looked at again afterwards.
    virtual void PumpEvents() = 0;
    /// The same without keys and clicks, which wait: windows are painted in the middle of a step that takes
    /// its time.
    virtual void PumpPaintEvents() = 0;
};
