#include "frame/Main.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/CaptureCurrentFrame.h"
#include "capture/SaveCapture.h"
#include "desktop/Documents.h"
#include "desktop/WholeFile.h"
#include "frame/CommandTable.h"
#include "frame/DroppedFile.h"
#include "frame/HelpWindow.h"
#include "frame/SecondKeys.h"
#include "toolkit/FrameDrag.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/Twips.h"
#include "video/Opening.h"
#include "video/Transport.h"
#include "video/TransportPane.h"
#include "video/URLfrm.h"
#include "video/VideoList.h"
#include "video/ltmmPlay.h"
#include "viewers/QuickShots.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto WindowText = "TAQ Pro v2.1";
constexpr auto StartPrompt = " Open video to begin capture";
constexpr auto AboutText =
    "TAQ Video Capture Pro takes the best frames out of your videos and turns them into pictures.";
constexpr Twips StartHeight = 8000_twips;
constexpr Twips AddressMargin = 40_twips; ///< between the windows' area and the address window
constexpr int ListWidth = 300; // leaves the video beside the list in sight

} // namespace

Main::Main(const FrameParts& parts)
    : state_(parts.state)
    , clipboard_(parts.clipboard)
    , dialogs_(parts.dialogs)
    , errors_(parts.errors)
    , documents_(parts.documents)
    , makePlayer_(parts.makePlayer)
    , kids_(parts.state)
    , menus_(*this)
{
    Build();
    Bind();
    state_.LoadApplicationState(*this);
    setWindowFlag(Qt::FramelessWindowHint);
    resize(width(), StartHeight.Pixels());
    state_.Reload(Key::ToolTip);
    state_.ApplyToolTips(*this);
    StartTimers();
}

Main::~Main()
{
    UnloadForms();
}

void Main::Bind()
{
    connect(topBack_, &TitleStrip::MoveRequested, drag_, &FrameDrag::StartMove);
    connect(topBack_, &TitleStrip::MaximizeToggled, this, &Main::ToggleMaximized);
    for (const CommandRow& row : CommandTable)
        connect(Cmds[size_t(row.command)], &TAQbutton::Click, this,
            [this, command = row.command] { RunCommand(command); });
    transport_ = new Transport(*bottomPane_, *this, [this] { OpenListed(); });
    bottomPane_->hide();
    BindKeys();
}

void Main::BindKeys()
{
    const auto press = [](QAbstractButton& button) {
        return [&button] {
            if (button.isVisible())
                button.click();
        };
    };
    const auto run = [&](Command command) { return press(*Cmds[size_t(command)]); };
    // A box would bring up the frame over a picture that fills the screen.
    const auto ask = [&](Command command) {
        return [this, &button = *Cmds[size_t(command)]] {
            if (button.isEnabled())
                LeaveFullScreen();
            button.click();
        };
    };
    constexpr auto WhileHeld = SecondKeys::Repeat::WhileHeld;
    const TransportPane& pane = *bottomPane_;
    new SecondKeys(*this,
        {
            { Qt::Key_Space, press(*pane.Cmd2[PauseButton]) },
            { Qt::Key_Comma, press(*pane.Cmd2[FrameBackButton]), WhileHeld },
            { Qt::Key_Period, press(*pane.Cmd2[FrameForwardButton]), WhileHeld },
            { Qt::Key_Home, press(*pane.Cmd3[SeekStartButton]) },
            { Qt::Key_End, press(*pane.Cmd3[SeekEndButton]) },
            { Qt::Key_S, run(Command::Capture) },
            { Qt::CTRL | Qt::Key_S, ask(Command::Save) },
            { Qt::CTRL | Qt::Key_O, ask(Command::Open) },
            { Qt::CTRL | Qt::Key_U, ask(Command::Download) },
            { Qt::CTRL | Qt::Key_P, ask(Command::Print) },
            { Qt::CTRL | Qt::Key_C, [this] { CopyActiveCapture(); } },
            { Qt::CTRL | Qt::Key_W, [this] { CloseActiveForm(); } },
            { Qt::Key_F, [this] { mnuFullScreen_Click(); } },
            { Qt::Key_F11, [this] { mnuFullScreen_Click(); } },
            { Qt::Key_F1,
                [this] {
                    LeaveFullScreen();
                    OpenHelp();
                } },
        });
}

void Main::StartTimers()
{
    Timer1.start(32s);
    connect(&Timer1, &QTimer::timeout, this, [this] {
        if (state_.KidCount < 1)
            EnableCommand(Command::Print, false);
    });
    Timer3.start(3s);
    connect(&Timer3, &QTimer::timeout, this, [this] {
        if (!state_.VideoOpen)
            SetStatus(StatusLabel::FrameNumber, QLatin1String(StartPrompt));
    });
}

QWidget* Main::ActiveForm()
{
    return area_->currentSubWindow();
}

Lead* Main::ActiveCapture()
{
    auto* viewer = qobject_cast<Viewer*>(ActiveForm());
    return viewer ? &viewer->Picture() : nullptr;
}

void Main::AddChild(QWidget* form)
{
    auto* child = qobject_cast<ChildForm*>(form);
    Q_ASSERT(child);
    if (child->CurrentShape() == ChildForm::Shape::Minimized)
        child->Restore();
    ShowInFront(*child);
}

void Main::ShowInFront(ChildForm& child)
{
    if (!area_->subWindowList().contains(&child))
        area_->addSubWindow(&child, child.windowFlags());
    child.show();
    child.BringToFront();
}

void Main::SendToBack(QWidget* form)
{
    if (auto* child = qobject_cast<ChildForm*>(form))
        child->SendToBack();
}

void Main::SetStatus(StatusLabel label, const QString& text)
{
    labels_[size_t(label)]->setText(text);
    labels_[size_t(label)]->setPalette({});
}

void Main::SetStatusAlert(StatusLabel label, const QString& text)
{
    SetStatus(label, text);
    QPalette palette;
    palette.setColor(QPalette::WindowText, StyleColor(Token::Alarm));
    labels_[size_t(label)]->setPalette(palette);
}

void Main::ShowStatus(StatusLabel label, bool visible)
{
    labels_[size_t(label)]->setVisible(visible);
}

void Main::EnableCommand(Command command, bool enabled)
{
    if (CommandTable[size_t(command)].isBuilt)
        Cmds[size_t(command)]->setEnabled(enabled);
}

bool Main::IsCommandEnabled(Command command) const
{
    return Cmds[size_t(command)]->isEnabled();
}

void Main::SetEnabled(bool enabled)
{
    for (const Command command :
        { Command::Stretch, Command::FitToWindow, Command::DefaultSize, Command::Capture })
        EnableCommand(command, enabled);
}

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

void Main::AddKid(quintptr handle)
{
    ++state_.KidCount;
    kids_.RedimKids();
    kids_.AddKid(handle);
}

void Main::RemoveKid(quintptr handle)
{
    kids_.RemoveKid(handle, [this] { ShowStatus(StatusLabel::AutoCapture, false); });
    --state_.KidCount;
}

void Main::MakeKidActive(int index)
{
    kids_.MakeKidActive(
        index, [this] { return quintptr(ActiveForm()); }, [this] { SendToBack(ActiveForm()); });
}

void Main::OpenViewer()
{
    AddChild(new Viewer(*this));
}

void Main::AddThumbnail()
{
    if (!quickShots_ || !state_.QuickShotsOpen) // one that is closing takes no more
        quickShots_ = new QuickShots(*this);
    quickShots_->mnuControlsAdd2();
    auto* const front = qobject_cast<ChildForm*>(ActiveForm());
    ShowInFront(*quickShots_); // a strip put away stays so
    SendToBack(quickShots_);
    if (front && front != quickShots_)
        ShowInFront(*front);
}

void Main::ShowFront(bool visible)
{
    front1_->setVisible(visible);
}

bool Main::StartDoc(const QString& document)
{
    if (!HelpWindow::IsGuide(document))
        return (!QDir::isAbsolutePath(document) || QFileInfo::exists(document)) && documents_.Open(document);
    try {
        if (help_ && help_->Document() != document)
            delete std::exchange(help_, nullptr);
        if (!help_) {
            help_ = new HelpWindow(document, documents_);
            help_->PlaceOver(*this);
        }
    } catch (const FileError&) {
        return false;
    }
    if (help_->CurrentShape() == ChildForm::Shape::Minimized)
        help_->Restore();
    help_->show();
    help_->BringToFront();
    return true;
}

void Main::OpenHelp()
{
    if (!StartDoc(state_.HelpPath))
        errors_.Show(this, QStringLiteral("Error!"), QStringLiteral("Help file \"TAQ.hlp\" missing,"));
}

void Main::PumpEvents()
{
    QCoreApplication::processEvents();
}

void Main::RunCommand(Command command)
{
    switch (command) {
    case Command::Open:
        return OpenVideos();
    case Command::Stretch:
        return CurrentPlayer().SetDisplaySize(ltmmPlay::StretchToWindow);
    case Command::FitToWindow:
        return CurrentPlayer().SetDisplaySize(ltmmPlay::FitToWindow);
    case Command::DefaultSize:
        return CurrentPlayer().SetDisplaySize(ltmmPlay::Normal);
    case Command::Capture:
        return CaptureCurrentFrame(*this);
    case Command::Save:
        return SaveCapture(*this);
    case Command::Download:
        return Download();
    case Command::Cancel:
        return CancelDownload();
    case Command::Print:
    case Command::Options:
    case Command::Count:
        return;
    }
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
    bottomPane_->show();
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
    window.OpenVideo();
}

void Main::OpenVideos()
{
    state_.OpeningNow = true;
    if (!AskForVideos())
        return;
    OpenSelection();
    state_.OpeningNow = false;
}

void Main::OpenFromVideoWindow()
{
    const bool hasChosen = AskForVideos();
    for (const Key key : { Key::AutoFrame, Key::CaptureTime, Key::AutoCapture, Key::AutoNumber, Key::Ext })
        state_.Reload(key);
    if (hasChosen)
        OpenSelection();
}

void Main::Download()
{
    VideoWindow& window = CurrentVideo();
    window.Player().Stop();
    const QPointer<URLfrm> form = new URLfrm(*this, window, this);
    form->move(area_->mapToGlobal(QPoint(AddressMargin.Pixels(), AddressMargin.Pixels())));
    const bool isLoaded = form->exec() == QDialog::Accepted;
    delete form;
    if (!isLoaded)
        return;
    bottomPane_->show();
    SetEnabled(true);
    CurrentVideo().SwapCaptureCommands();
    AddChild(&CurrentVideo());
}

void Main::CancelDownload()
{
    EnableCommand(Command::Cancel, false);
    CurrentPlayer().SetSourceFile(QString());
    SetStatus(StatusLabel::Operation, QString());
    SetPointer(Pointer::Normal);
}

void Main::RevealVideoWindow()
{
    if (!state_.VidWinOnly)
        return OpenVideos();
    bottomPane_->show();
    AddChild(&CurrentVideo());
    SetEnabled(true);
}

void Main::ShowVideoList()
{
    const bool isNew = !videoList_;
    if (isNew) {
        videoList_ = new VideoList(*this);
        connect(videoList_, &VideoList::VideoChosen, this, &Main::OpenListed);
        connect(videoList_, &VideoList::OpenWanted, this, &Main::OpenVideos);
    }
    AddChild(videoList_);
    if (isNew)
        videoList_->setGeometry(0, 0, ListWidth, area_->viewport()->height());
}

void Main::CloseVideoList()
{
    // Let go of at once: a closed list lives on until the event loop deletes it.
    if (VideoList* list = videoList_) {
        videoList_ = nullptr;
        list->close();
    }
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

void Main::OpenMenus(PopupOwner kind, const QStringList& items, int checkedItems, const QWidget& button,
    std::function<void(int)> chosen)
{
    state_.PopupKind = qint16(kind);
    menus_.Open(items, checkedItems, button, std::move(chosen));
}

void Main::ShowPopup()
{
    const QStringList items { QStringLiteral("  Video List"), QStringLiteral("  View Full Screen"),
        QStringLiteral("  Close All Windows"), QStringLiteral("  About") };
    OpenMenus(PopupOwner::Frame, items, 0, *menu_, [this](int item) {
        constexpr std::array Actions { &Main::ShowVideoListIfVideo, &Main::mnuFullScreen_Click,
            &Main::CloseAllWindows, &Main::ShowAbout };
        (this->*Actions[size_t(item)])();
    });
}

void Main::ShowVideoListIfVideo()
{
    if (!state_.VideoPath.isEmpty())
        ShowVideoList();
}

void Main::ShowAbout()
{
    errors_.Show(this, QStringLiteral("About"), QLatin1String(AboutText));
}

void Main::CopyActiveCapture()
{
    // A clipboard that another program holds keeps what it had.
    if (const Lead* capture = ActiveCapture())
        IgnoreErrors([&] { capture->Copy(clipboard_, true); });
}

void Main::CloseActiveForm()
{
    // Behind a picture that fills the screen nobody sees what would go.
    if (QWidget* form = ActiveForm(); form && !IsFullScreen())
        form->close();
}

void Main::CloseAllWindows()
{
    const Hourglass waiting;
    if (quickShots_)
        SendToBack(quickShots_);
    // Whatever child is active goes, a video in front of the captures too.
    while (state_.KidCount > 0 && HasCaptures()) {
        const QPointer<QWidget> form = ActiveForm();
        const bool isClosed = form && form->close();
        if (!isClosed || form == ActiveForm()) // the last is one that is on its way out already
            break;
    }
    EnableCommand(Command::Print, false);
    if (state_.Tools)
        state_.Tools->close();
    ShowStatus(StatusLabel::AutoCapture, false);
}

/// A capture window counts as a kid before it is a child: while it is being made.
bool Main::HasCaptures() const
{
    return std::ranges::any_of(
        area_->subWindowList(), [](QMdiSubWindow* form) { return qobject_cast<Viewer*>(form) != nullptr; });
}

void Main::UnloadForms()
{
    // With the frame gone from the screen nobody waits for the fades of its forms.
    hide();
    CloseAllFormsExcept(objectName());
    // A form can open or raise another while it closes; the second round takes what the first passed over.
    CloseAllFormsExcept(objectName());
    delete help_;
    // One that was made on demand and never shown; one that is still fading goes by itself.
    if (state_.CurrentVideo && state_.CurrentVideo->parentWidget() == this)
        delete state_.CurrentVideo;
}

void Main::CloseAllFormsExcept(const QString& name)
{
    // Events are handled while a form closes, and others may go meanwhile.
    QList<QPointer<QWidget>> forms;
    for (QMdiSubWindow* form : area_->subWindowList())
        forms << form;
    for (QWidget* form : QApplication::topLevelWidgets())
        if (form->isVisible())
            forms << form;
    for (const QPointer<QWidget>& form : forms)
        if (form && form->objectName() != name)
            form->close();
}

void Main::ToggleMaximized()
{
    isMaximized() ? showNormal() : showMaximized();
}

void Main::ShowWindowState()
{
    maximize_->SetValue(isMaximized() ? WindowButton::Restore : WindowButton::Maximize);
    Image2->setVisible(!isMaximized() && !isMinimized());
    setWindowTitle(QLatin1String(WindowText));
    if (!state_.ToolsOpen || !state_.Tools)
        return;
    if (isMinimized()) {
        state_.Tools->hide();
        state_.Tools->setWindowState(Qt::WindowMinimized);
    } else if (!isMaximized()) {
        state_.Tools->setWindowState(Qt::WindowNoState);
        state_.Tools->show();
    }
}

void Main::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        ShowWindowState();
    if (event->type() != QEvent::ActivationChange)
        return;
    topBack_->SetActive(isActiveWindow());
    if (isActiveWindow())
        setWindowTitle(QLatin1String(WindowText));
}

void Main::mousePressEvent(QMouseEvent* event)
{
    // The bare ground of the command strip, the foot and the labels leave their presses to the frame.
    if (event->button() == Qt::LeftButton)
        drag_->StartMove(event->globalPosition().toPoint());
}

void Main::closeEvent(QCloseEvent* event)
{
    state_.ExitRequested = true;
    UnloadForms();
    QWidget::closeEvent(event);
}

void Main::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Image2->MoveToCorner();
}

bool Main::eventFilter(QObject* watched, QEvent* event)
{
    // The windows' area changes its size also when the transport comes and goes.
    if (watched == area_->viewport() && event->type() == QEvent::Resize)
        ApplyBackground();
    return QWidget::eventFilter(watched, event);
}

void Main::ApplyBackground()
{
    const QColor ground = StyleColor(Token::Ground);
    area_->setBackground(ground);
    state_.Reload(Key::OpPic);
    if (state_.OpPic == 2)
        return;
    if (state_.OpPic == 0 || state_.OpPic == 1)
        state_.TileBackground = state_.OpPic == 0;
    state_.Reload(Key::PicFolder);
    const QImage& picSource = background_.Of(state_.BackgroundFile);
    if (picSource.isNull())
        return; // without its picture the frame stays plain
    const Placement placement = state_.TileBackground ? Placement::Tiled : Placement::LowerRight;
    area_->setBackground(ComposeBackground(picSource, area_->viewport()->size(), placement, ground));
}

void Main::dragEnterEvent(QDragEnterEvent* event)
{
    event->acceptProposedAction(); // whatever is dropped stops the video
}

void Main::dropEvent(QDropEvent* event)
{
    CurrentVideo().StopCapture();
    ltmmPlay& player = CurrentPlayer();
    player.Stop();
    const QString file = FirstFile(*event->mimeData());
    if (file.isEmpty())
        return;
    const bool isFirst = player.SourceKind() == ltmmPlay::NoSource;
    AddChild(&CurrentVideo());
    player.SetSourceFile(file);
    event->acceptProposedAction();
    if (isFirst && player.SourceKind() != ltmmPlay::NoSource)
        ShowDroppedVideo();
}

void Main::ShowDroppedVideo()
{
    bottomPane_->show();
    SetEnabled(true);
    CurrentVideo().SwapCaptureCommands();
    transport_->EnableVideoControls(true, CurrentPlayer());
    transport_->StartVideo();
}
