// What the keys beside the buttons do.
#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/ControlError.h"
#include "app/Lead.h"
#include "frame/KeyTable.h"
#include "frame/Main.h"
#include "toolkit/StripButton.h"
#include "toolkit/TAQbutton.h"
#include "video/TransportPane.h"
#include "video/ltmmPlay.h"

#include <QScopedValueRollback>

namespace {

void Press(QAbstractButton& button)
{
    if (button.isVisible())
        button.click();
}

} // namespace

void Main::ActOnKey(KeyAction action)
{
    const TransportPane& pane = *BottomPane;
    switch (action) {
    case KeyAction::PlayOrPause:
        return Press(*pane.Cmd2[PauseButton]);
    case KeyAction::FrameBack:
        return Press(*pane.Cmd2[FrameBackButton]);
    case KeyAction::FrameForward:
        return Press(*pane.Cmd2[FrameForwardButton]);
    case KeyAction::FirstFrame:
        return Press(*pane.Cmd3[SeekStartButton]);
    case KeyAction::LastFrame:
        return Press(*pane.Cmd3[SeekEndButton]);
    case KeyAction::Capture:
        return Press(*Cmds[size_t(Command::Capture)]);
    case KeyAction::Save:
        return Ask(Command::Save);
    case KeyAction::Print:
        return Ask(Command::Print);
    case KeyAction::Copy:
        return CopyActiveCapture();
    case KeyAction::Open:
        return Ask(Command::Open);
    case KeyAction::Download:
        return Ask(Command::Download);
    case KeyAction::FullScreen:
        return mnuFullScreen_Click();
    case KeyAction::CloseForm:
        return CloseActiveForm();
    case KeyAction::Help:
        LeaveFullScreen();
        return OpenHelp();
    }
}

/// A box would bring up the frame over a picture that fills the screen.
void Main::Ask(Command command)
{
    TAQbutton& button = *Cmds[size_t(command)];
    if (button.isEnabled())
        LeaveFullScreen();
    button.click();
}

void Main::CopyActiveCapture()
{
    // A clipboard that another program holds keeps what it had.
    if (const Lead* capture = ActiveCapture())
        IgnoreErrors([&] { capture->Copy(clipboard_, true); });
}

void Main::PrintActiveCapture()
{
    // A print lets events through while the printer is asked, the second press of a double click among them.
    if (isPrinting_)
        return;
    const QScopedValueRollback printing(isPrinting_, true);
    if (CaptureWindow* const capture = ActiveCaptureWindow())
        return capture->PrintMe();
    SetStatusAlert(StatusLabel::Operation, QStringLiteral("The active window holds no capture."));
}

void Main::mnuFullScreen_Click()
{
    if (state_.VideoOpen)
        CurrentPlayer().ToggleFullScreen();
}

bool Main::IsFullScreen()
{
    return state_.CurrentVideo && CurrentPlayer().FullScreen();
}

void Main::LeaveFullScreen()
{
    if (IsFullScreen())
        CurrentPlayer().SetFullScreen(false);
}
