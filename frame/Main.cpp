#include "frame/Main.h"

#include "app/ApplicationState.h"
#include "app/Lead.h"
#include "app/PopupItem.h"
#include "app/Talk.h"
#include "capture/CaptureCurrentFrame.h"
#include "capture/SaveCapture.h"
#include "desktop/Documents.h"
#include "desktop/FileName.h"
#include "desktop/Memory.h"
#include "desktop/WholeFile.h"
#include "frame/CommandTable.h"
#include "frame/HelpWindow.h"
#include "frame/SecondKeys.h"
#include "toolkit/FrameDrag.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/Twips.h"
#include "video/Transport.h"
#include "video/TransportPane.h"
#include "video/VideoList.h"
#include "video/ltmmPlay.h"
#include "viewers/QuickShots.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto StartPrompt = " Open video to begin capture";
constexpr auto AboutText =
    "TAQ Video Capture Pro takes the best frames out of your videos and turns them into pictures.";
constexpr Twips StartHeight = 8000_twips;

} // namespace

Main::Main(const FrameParts& parts)
    : state_(parts.state)
    , clipboard_(parts.clipboard)
    , dialogs_(parts.dialogs)
    , errors_(parts.errors)
    , documents_(parts.documents)
    , printers_(parts.printers)
    , wallpaper_(parts.wallpaper)
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
    if (state_.IsHomeNew)
        QTimer::singleShot(0, this, &Main::TellHome); // once the frame stands on the screen
}

Main::~Main()
{
    UnloadForms();
    defaultPrinter_.reset(); // windows are painted while the printers are asked, so this one must stand yet
}

void Main::Bind()
{
    connect(TopBack, &TitleStrip::MoveRequested, drag_, &FrameDrag::StartMove);
    connect(TopBack, &TitleStrip::MaximizeToggled, this, &Main::ToggleMaximized);
    for (const CommandRow& row : CommandTable)
        connect(Cmds[size_t(row.command)], &TAQbutton::Click, this,
            [this, command = row.command] { RunCommand(command); });
    transport_ = new Transport(*BottomPane, *this, [this] { OpenListed(); });
    BottomPane->hide();
    new SecondKeys(*this, [this](KeyAction action) { ActOnKey(action); });
}

void Main::StartTimers()
{
    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setParent(this);
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
    tidying_.setSingleShot(true);
    tidying_.setInterval(1s);
    connect(&tidying_, &QTimer::timeout, this, &GiveBackFreeMemory);
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

void Main::RepaintStatus(StatusLabel label)
{
    labels_[size_t(label)]->repaint();
}

void Main::EnableCommand(Command command, bool enabled)
{
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

void Main::RunCommand(Command command)
{
    switch (command) {
    case Command::Open:
        return OpenVideoNow_Click();
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
        return PrintActiveCapture();
    case Command::Options:
        return OpenOptions();
    case Command::Count:
        return;
    }
}

void Main::ShowFront(bool visible)
{
    front1->setVisible(visible);
}

void Main::PumpEvents()
{
    QCoreApplication::processEvents();
}

void Main::PumpPaintEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
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

void Main::OpenMenus(PopupOwner kind, const QStringList& items, int checkedItems, const QWidget& button,
    std::function<void(int)> chosen)
{
    state_.PopupKind = qint16(kind);
    menus_.Open(items, checkedItems, button, std::move(chosen));
}

void Main::ShowPopup()
{
    static constexpr PopupItem<Main> Items[] {
        { "  Video List", [](Main& main) { main.ShowVideoListIfVideo(); } },
        { "  View Full Screen", [](Main& main) { main.mnuFullScreen_Click(); } },
        { "  Close All Windows", [](Main& main) { main.CloseAllWindows(); } },
        { "  Control Panel", [](Main& main) { main.ShowPower(); } },
        { "  About", [](Main& main) { main.ShowAbout(); } },
    };
    OpenMenus(PopupOwner::Frame, CaptionsOf(Items), 0, *Image3, [this](int item) { Items[item].act(*this); });
}

void Main::TellHome()
{
    errors_.Show(this, QStringLiteral("Captures"),
        QStringLiteral("Nothing can be kept beside the program. Captures are kept in ")
            + FileName::Shown(state_.Folders().Home()));
}

void Main::ShowAbout()
{
    errors_.Show(this, QStringLiteral("About"), QLatin1String(AboutText));
}
