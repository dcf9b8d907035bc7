#include "video/URLfrm.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Talk.h"
#include "toolkit/LineRow.h"
#include "toolkit/TAQbutton.h"
#include "video/Opening.h"
#include "video/VideoNames.h"
#include "video/VideoWindow.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

namespace {

constexpr int ShortestAddress = 11;
constexpr auto Prompt = "Enter full path of video URL";
constexpr auto Example = "Enter URL      Example:   http://www.example.com/videos/holiday.mpg";

} // namespace

URLfrm::URLfrm(Frame& frame, VideoWindow& window, QWidget* owner)
    : FormDialog(frame.State(), owner, QStringLiteral("URLfrm"))
    , frame_(frame)
    , window_(&window)
    , edtURL(new QLineEdit(this))
    , CmdOK(new TAQbutton(this))
{
    Build();
    connect(edtURL, &QLineEdit::textChanged, this, &URLfrm::ShowWhetherEnough);
    connect(CmdOK, &TAQbutton::Click, this, &URLfrm::Download);
    ShowWhetherEnough();
    Dress();
}

void URLfrm::Build()
{
    AddCloseButton(" Close Download Window ", "Close download window");

    edtURL->setAccessibleName(QStringLiteral("Address of the video"));
    CmdOK->SetFace(Face::Download);
    CmdOK->SetCaption(QStringLiteral("Download"));
    CmdOK->setAccessibleName(CmdOK->Caption());
    CmdOK->setProperty("Tag", QStringLiteral("Enter Download URL"));
    AddLineRow(*this, *edtURL, *CmdOK);
}

void URLfrm::ShowWhetherEnough()
{
    const bool isEnough = edtURL->text().size() >= ShortestAddress;
    SetTitle(QLatin1String(isEnough ? Prompt : Example));
    CmdOK->setEnabled(isEnough);
}

void URLfrm::Try(const QString& address)
{
    edtURL->setText(address);
    if (CmdOK->isEnabled())
        QTimer::singleShot(0, this, &URLfrm::Download);
}

void URLfrm::Download()
{
    // While the form fades it lets events through, the second press of a double click among them.
    if (isLoading_)
        return;
    const QScopedValueRollback loading(isLoading_, true);
    ApplicationState& state = frame_.State();
    // The address of the last success goes before what was typed, which takes its place for the next time.
    const QString address = (state.LastAddress.isEmpty() ? edtURL->text() : state.LastAddress).trimmed();
    // The name is shown; in what logs in, a "\" may stand before the user's own.
    TakeNameAndFolder(state, WithoutLogIn(address));
    // The player's own message would say the same once more.
    const QScopedValueRollback silence(state.ShowPlayerErrors, false);
    try {
        if (!Load(address))
            LeaveNoVideo();
    } catch (const ControlError&) {
        LeaveNoVideo();
        frame_.Errors().Show(this, QStringLiteral("Error Downloading Video!"),
            QStringLiteral(
                "\nError downloading video. Check URL address and try again. Also, server may be slow or "
                "down. Are you connected to the Internet?"));
    }
}

void URLfrm::LeaveNoVideo()
{
    if (window_)
        window_->ShowNoVideo();
    frame_.EnableCommand(Command::Cancel, false);
    frame_.ShowStatus(StatusLabel::Operation, false);
}

/// False when the user did not wait: they know, and may try another address.
bool URLfrm::Load(const QString& address)
{
    if (!window_)
        throw ControlError(QStringLiteral("The video window is gone."));
    window_->ResetPlayer();
    const Hourglass waiting(Pointer::ArrowWithHourglass);
    if (!window_->LoadAddress(address))
        return false;
    frame_.State().LastAddress = edtURL->text();
    frame_.EnableCommand(Command::Cancel, true);
    frame_.SetStatus(StatusLabel::Operation, QStringLiteral("Downloading Video"));
    frame_.ShowStatus(StatusLabel::Operation, true);
    frame_.RepaintStatus(StatusLabel::Operation);
    window_->ShowLoadedAddress();
    accept();
    return true;
}
