// How a video comes into the frame: by the dialog, the list, an address, a drop or the command line.
#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/OpenUserPicture.h"
#include "app/Talk.h"
#include "frame/CommandLine.h"
#include "frame/DroppedFile.h"
#include "frame/Main.h"
#include "toolkit/Twips.h"
#include "video/Opening.h"
#include "video/Transport.h"
#include "video/TransportPane.h"
#include "video/URLfrm.h"
#include "video/VideoList.h"
#include "video/ltmmPlay.h"

#include <QDropEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

#include <utility>

namespace {

constexpr Twips AddressMargin = 40_twips; ///< between the windows' area and the address window
constexpr int ListWidth = 300; // leaves the video beside the list in sight

} // namespace

VideoWindow& Main::CurrentVideo()
{
    if (auto* window = qobject_cast<VideoWindow*>(state_.CurrentVideo.data()))
        return *window;
    auto* window = new VideoWindow(*this, *transport_, makePlayer_);
    state_.CurrentVideo = window;
    window->setParent(this, window->windowFlags());
    connect(window, &VideoWindow::ListWanted, this, [this] {
        if (!videoList_)
            ShowVideoList();
    });
    connect(window, &VideoWindow::ListUnwanted, this, &Main::CloseVideoList);
    connect(window, &VideoWindow::OpenWanted, this, &Main::OpenFromVideoWindow);
    CloseVideoList();
    return *window;
}

ltmmPlay& Main::CurrentPlayer()
{
    return CurrentVideo().Player();
}

bool Main::AskForVideos()
{
    ShowOpenDialog(*this, [this] {
        CloseVideoList();
        transport_->EnableList();
    });
    return !std::exchange(state_.OpenCancelled, false);
}

void Main::OpenSelection()
{
    BottomPane->show();
    SetEnabled(true);
    AddChild(&CurrentVideo());
    CurrentVideo().OpenVideo();
}

void Main::OpenListed()
{
    VideoWindow& window = CurrentVideo();
    // One that is closing is in sight too, and stays for the video only when it is shown again.
    if (!window.isVisible() || window.Closing || window.CurrentShape() == ChildForm::Shape::Minimized)
        AddChild(&window);
    SetEnabled(true); // a run over the list may have ended with a broken one
    window.OpenVideo();
}

void Main::OpenVideoNow_Click()
{
    state_.OpeningNow = true;
    auto end = qScopeGuard([this] { state_.OpeningNow = false; });
    if (!AskForVideos())
        return end.dismiss();
    OpenSelection();
}

void Main::OpenGiven(const CommandLine& given)
{
    if (!given.videos.isEmpty()) {
        SelectFiles(state_, given.videos);
        transport_->EnableList();
        OpenSelection();
    } else if (!given.others.isEmpty()) {
        OpenUnlisted(given.others.first());
    } else if (!given.addresses.isEmpty()) {
        Download(given.addresses.first());
    }
    for (const QString& picture : given.pictures)
        OpenPicture(picture);
}

void Main::OpenUnlisted(const QString& file)
{
    SelectFiles(state_, { file });
    state_.VideoPath = file;
    state_.FromList = true;
    OpenSelection();
}

/// As a thumbnail comes into a window of its own.
void Main::OpenPicture(const QString& file)
{
    try {
        const Hourglass waiting;
        const QScopedValueRollback picked(
            state_.SelectedBitmap, OpenUserPicture(file, [this] { PumpPaintEvents(); }));
        const QScopedValueRollback used(state_.UseSelectedBitmap, true);
        OpenViewer();
        EnableCommand(Command::Save, true); // with an empty clipboard too
    } catch (const ControlError& error) {
        errors_.Show(this, QStringLiteral("Error!"), error.Reason());
    }
}

void Main::OpenFromVideoWindow()
{
    const bool hasChosen = AskForVideos();
    for (const Key key : { Key::AutoFrame, Key::CaptureTime, Key::AutoCapture, Key::AutoNumber, Key::Ext })
        state_.Reload(key);
    if (hasChosen)
        OpenSelection();
}

void Main::OpenCommands()
{
    SetEnabled(true);
    if (state_.NoCap)
        CurrentVideo().SwapCaptureCommands();
}

void Main::RevealVideoWindow()
{
    if (!state_.VidWinOnly)
        return OpenVideoNow_Click();
    BottomPane->show();
    AddChild(&CurrentVideo());
    OpenCommands();
}

void Main::Download(const QString& address)
{
    VideoWindow& window = CurrentVideo();
    window.StopCapture();
    window.Player().Stop();
    const QPointer<URLfrm> form = new URLfrm(*this, window, this);
    form->move(area_->mapToGlobal(QPoint(AddressMargin.Pixels(), AddressMargin.Pixels())));
    if (!address.isEmpty())
        form->Try(address);
    const bool isLoaded = form->exec() == QDialog::Accepted;
    delete form;
    if (!isLoaded)
        return;
    BottomPane->show();
    OpenCommands();
    AddChild(&CurrentVideo());
}

void Main::CancelDownload()
{
    EnableCommand(Command::Cancel, false);
    CurrentPlayer().SetSourceFile(QString());
    SetStatus(StatusLabel::Operation, QString());
    SetPointer(Pointer::Normal);
}

void Main::ShowVideoList()
{
    const bool isNew = !videoList_;
    if (isNew) {
        videoList_ = new VideoList(*this);
        connect(videoList_, &VideoList::VideoChosen, this, &Main::OpenListed);
        connect(videoList_, &VideoList::OpenWanted, this, &Main::OpenVideoNow_Click);
    }
    AddChild(videoList_);
    if (isNew)
        videoList_->setGeometry(0, 0, ListWidth, area_->viewport()->height());
}

void Main::ShowVideoListIfVideo()
{
    if (!state_.VideoPath.isEmpty())
        ShowVideoList();
}

void Main::CloseVideoList()
{
    // Let go of at once: a closed list lives on until the event loop deletes it.
    if (VideoList* list = videoList_) {
        videoList_ = nullptr;
        list->close();
    }
}

void Main::dragEnterEvent(QDragEnterEvent* event)
{
    event->acceptProposedAction(); // whatever is dropped stops the video
}

void Main::dropEvent(QDropEvent* event)
{
    CurrentVideo().StopCapture();
    CurrentPlayer().Stop();
    const QString file = FirstFile(*event->mimeData());
    if (file.isEmpty())
        return;
    event->acceptProposedAction();
    ShowDropped(file);
}

void Main::ShowDropped(const QString& file)
{
    const QPointer<ltmmPlay> player = &CurrentPlayer();
    const bool isFirst = player->SourceKind() == ltmmPlay::NoSource;
    AddChild(&CurrentVideo());
    const Hourglass waiting;
    if (player)
        player->SetSourceFile(file);
    // While the player tells that it cannot open the file, its window may be closed.
    if (isFirst && player && state_.CurrentVideo && player->SourceKind() != ltmmPlay::NoSource)
        ShowDroppedVideo();
}

void Main::ShowDroppedVideo()
{
    BottomPane->show();
    OpenCommands();
    transport_->EnableVideoControls(true, CurrentPlayer());
    transport_->StartVideo();
}
