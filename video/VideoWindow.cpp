#include "video/VideoWindow.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/PopupItem.h"
#include "app/Talk.h"
#include "app/TimeText.h"
#include "desktop/FileName.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/Twips.h"
#include "video/FrameRun.h"
#include "video/MemoryLoad.h"
#include "video/Opening.h"
#include "video/TimedRun.h"
#include "video/Transport.h"
#include "video/VideoNames.h"
#include "video/ltmmPlay.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include <chrono>
#include <cmath>

using namespace std::chrono_literals;

namespace {

/// Room that the window keeps around the player.
constexpr Twips PlayerMarginWidth = 150_twips;
constexpr Twips PlayerMarginHeight = 500_twips;
constexpr Twips SmallestSide = 800_twips;

template <ltmmPlay::DisplayMode mode> constexpr PopupItem<ltmmPlay> SizeItem(const char* caption)
{
    return { caption, [](ltmmPlay& player) { player.SetDisplaySize(mode); },
        [](const ltmmPlay& player) { return player.DisplaySize() == mode; } };
}

constexpr PopupItem<ltmmPlay> SizeItems[] {
    SizeItem<ltmmPlay::Normal>("  Normal Video Size"),
    SizeItem<ltmmPlay::ThreeQuarters>("  Three Quarter"),
    SizeItem<ltmmPlay::Half>("  Half Size"),
    SizeItem<ltmmPlay::Double>("  Double Size"),
    { "  Close Captioning", [](ltmmPlay& player) { player.ToggleClosedCaption(); },
        [](const ltmmPlay& player) { return player.ClosedCaption(); } },
};

} // namespace

VideoWindow::VideoWindow(Frame& frame, Transport& transport, const PlayerFactory& makePlayer)
    : frame_(frame)
    , transport_(transport)
{
    Build(makePlayer);
    Bind();
    BindPlayer();
    AddShadow(*this, frame_.State());
    frame_.State().FirstOfList = true;
    transport_.EnableVideoControls(false, *ltmmPlay1);
    transport_.SetSoundOn();
    frame_.State().ApplyToolTips(*this);
    SetPointer(Pointer::Normal);
}

VideoWindow::~VideoWindow() = default;

void VideoWindow::Build(const PlayerFactory& makePlayer)
{
    setObjectName(QStringLiteral("VideoWindow"));
    Grip().setObjectName(QStringLiteral("Image2"));
    setAttribute(Qt::WA_DeleteOnClose);
    BuildHead();
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    const int side = (PlayerMarginWidth.Pixels() - FrameSize().width()) / 2;
    column->setContentsMargins(side, 0, side, PlayerMarginHeight.Pixels() - FrameSize().height());
    ltmmPlay1 = makePlayer(body);
    ltmmPlay1->setObjectName(QStringLiteral("ltmmPlay1"));
    column->addWidget(ltmmPlay1);
    SetBody(body);
    ltmmPlay1->setFocus();
    setWindowTitle(QStringLiteral("Video Window"));
    resize((6000_twips).Pixels(), (4000_twips).Pixels());
    Timer1.setInterval(2000ms);
    Timer1.setSingleShot(true);
    Timer1.start();
    Timer3.start(1000ms);
    FlashTimer.setInterval(2000ms);
}

void VideoWindow::BuildHead()
{
    static constexpr FormButton<VideoWindow> Buttons[] {
        { 3, Face::Open, " Open Videos ", "Open videos", [](VideoWindow& window) { window.OpenClicked(); } },
        { 2, Face::Minimize, " Minimize Window ", "Minimize window",
            [](VideoWindow& window) { window.ToggleMinimize(); } },
        { 1, ShapeFace, " Restore/Maximize Window ", "Restore or maximize window",
            [](VideoWindow& window) { window.ToggleMaximize(); } },
        { 0, Face::Close, " Close Video Window ", "Close video window",
            [](VideoWindow& window) { window.CloseClicked(); } },
    };
    AddHeadButtons(*this, Buttons);
    sizes_ = AddMenuButton(*this, QStringLiteral("Video size"));
    connect(sizes_, &StripButton::Click, this, &VideoWindow::ShowSizePopup);
}

void VideoWindow::Bind()
{
    connect(this, &ChildForm::Activated, this, [this] { frame_.State().VideoOpen = true; });
    connect(&Timer1, &QTimer::timeout, this, &VideoWindow::GrowToMinimum);
    connect(&Timer3, &QTimer::timeout, this, [this] { frame_.ShowStatus(StatusLabel::Flashing, false); });
    connect(&FlashTimer, &QTimer::timeout, this, [this] {
        frame_.ShowStatus(StatusLabel::Flashing, true);
        frame_.ShowStatus(StatusLabel::Watermark, false);
        Timer3.start();
    });
}

void VideoWindow::BindPlayer()
{
    connect(ltmmPlay1, &ltmmPlay::PlaybackProgress, this, &VideoWindow::ShowProgress);
    connect(ltmmPlay1, &ltmmPlay::PositionChanged, this,
        [this] { frame_.SetStatus(StatusLabel::Position, PositionText(*ltmmPlay1)); });
    connect(ltmmPlay1, &ltmmPlay::SelectionChanged, this,
        [this](int start, int end) { transport_.ShowSelection(start, end); });
    connect(ltmmPlay1, &ltmmPlay::KeyUp, this, [this](int key) {
        if (key == Qt::Key_Escape)
            ltmmPlay1->ToggleFullScreen();
    });
    connect(ltmmPlay1, &ltmmPlay::MousePressed, this, [this] {
        if (!ltmmPlay1->FullScreen())
            Q_EMIT Head().MoveRequested(QCursor::pos());
    });
    connect(ltmmPlay1, &ltmmPlay::PlayerError, this, [this](int code) {
        if (run_)
            run_->PlayerFailed();
        TellError(code);
    });
}

void VideoWindow::OpenVideo()
{
    ApplicationState& state = frame_.State();
    frame_.EnableCommand(Command::Cancel, false); // there is no download left to cancel
    ResetPlayer();
    transport_.ForgetMarks();
    if (!state.FromList && StartsRun())
        return;
    if (!state.FromList)
        KeepVideos(state);
    if (!state.OpenVidList && !state.VideoPath.isEmpty() && state.VideoCount >= 2)
        Q_EMIT ListWanted();
    state.VideoExt = VideoExtension(state.VideoPath);
    state.FromList = false;
    GiveSource();
    const bool hasPath = !state.VideoPath.trimmed().isEmpty();
    // A video that could not be loaded has no size; its window keeps the one it had, so that it stays in
    // reach.
    if (!hasPath || ltmmPlay1->VideoWidth() > 0)
        SizeAround(ltmmPlay1->VideoWidth(), ltmmPlay1->VideoHeight());
    Timer1.start(); // the resize above may be the one that an open lets pass
    transport_.StartVideo();
    transport_.ReleasePause();
    state.MarksSet = false;
    frame_.ShowStatus(StatusLabel::Operation, true);
    frame_.ShowStatus(StatusLabel::Position, true);
    transport_.EnableVideoControls(hasPath, *ltmmPlay1);
    if (state.VideoExt == QLatin1String(".wmv")) {
        frame_.SetStatus(StatusLabel::Operation, QStringLiteral("Streaming video"));
        frame_.SetStatus(StatusLabel::Position, QStringLiteral(", please wait for video to play"));
    }
    SwapCaptureCommands();
    UpdateVideoTitle();
}

void VideoWindow::SwapCaptureCommands()
{
    const bool noCap = frame_.State().NoCap;
    frame_.EnableCommand(Command::Capture, !noCap);
    frame_.EnableCommand(Command::Save, noCap);
}

bool VideoWindow::StartsRun()
{
    const ApplicationState& state = frame_.State();
    if (!state.AutoCapture)
        return false;
    frame_.SetEnabled(false);
    if (state.CaptureTime)
        CaptureTimeYes();
    else if (state.AutoFrame)
        CaptureFrame();
    return state.CaptureTime || state.AutoFrame;
}

void VideoWindow::CaptureTimeYes()
{
    StartRun<TimedRun>();
}

void VideoWindow::CaptureFrame()
{
    StartRun<FrameRun>();
}

template <typename Run> void VideoWindow::StartRun()
{
    StopCapture();
    run_ = std::make_unique<Run>(AutoRun::Parts { frame_, transport_, *ltmmPlay1, writer_ });
    connect(run_.get(), &AutoRun::VideoLoaded, this, [this] {
        if (ltmmPlay1->VideoWidth() > 0)
            SizeAround(ltmmPlay1->VideoWidth(), ltmmPlay1->VideoHeight());
        UpdateVideoTitle();
    });
    connect(run_.get(), &AutoRun::TitleChanged, this, &VideoWindow::UpdateVideoTitle);
    connect(run_.get(), &AutoRun::PictureTaken, this, [this] {
        if (!FlashTimer.isActive())
            FlashTimer.start();
    });
    connect(run_.get(), &AutoRun::Over, this, &VideoWindow::ShowRunOver);
    run_->Start();
}

/// What is on the screen of a picture that was taken goes with the timer that would have taken it off.
void VideoWindow::StopFlashing()
{
    if (!FlashTimer.isActive())
        return;
    FlashTimer.stop();
    frame_.ShowStatus(StatusLabel::Watermark, false);
}

/// What stands in the player is the user's again.
void VideoWindow::ShowRunOver()
{
    const bool hasVideo = ltmmPlay1->SourceKind() != ltmmPlay::NoSource;
    StopFlashing();
    transport_.ObeyLoop();
    transport_.EnableVideoControls(hasVideo, *ltmmPlay1);
    frame_.SetEnabled(hasVideo);
    if (hasVideo && frame_.State().NoCap)
        SwapCaptureCommands();
}

void VideoWindow::StopCapture()
{
    StopFlashing();
    const std::unique_ptr<AutoRun> run = std::move(run_);
    const bool isGoing = run && !run->IsOver();
    // What it has shown at its end may be out of date by now.
    if (isGoing)
        ShowRunOver();
}

int VideoWindow::UserCaptures() const
{
    return run_ ? run_->Tally().CaptureCount() : 0;
}

void VideoWindow::ResetPlayer()
{
    StopCapture();
    ltmmPlay1->Stop();
    ltmmPlay1->SetDisplaySize(ltmmPlay::Normal);
    ltmmPlay1->ResetSource();
}

void VideoWindow::GiveSource()
{
    const ApplicationState& state = frame_.State();
    const Hourglass waiting;
    ltmmPlay1->SetSourceFile(state.VideoPath);
    if (state.LoadVid && (state.VideoExt == QLatin1String(".mpg") || state.VideoExt == QLatin1String("mpeg")))
        LoadIntoMemory(*ltmmPlay1, MemoryLoadPath, frame_, this);
}

bool VideoWindow::LoadAddress(const QString& address)
{
    const QPointer<VideoWindow> alive(this);
    ltmmPlay1->SetSourceFile(address);
    if (alive && ltmmPlay1->WasCancelled())
        return false;
    if (!alive || ltmmPlay1->SourceKind() == ltmmPlay::NoSource)
        throw ControlError(QStringLiteral("The address could not be opened."));
    frame_.State().VideoExt = VideoExtension(address);
    return true;
}

void VideoWindow::ShowLoadedAddress()
{
    transport_.ForgetMarks();
    transport_.ReleasePause();
    transport_.EnableVideoControls(true, *ltmmPlay1);
    transport_.StartVideo();
    Head().SetTitle(FileName::Shown(frame_.State().VideoName));
    Head().repaint();
    SizeAround(ltmmPlay1->VideoWidth(), ltmmPlay1->VideoHeight());
}

void VideoWindow::ShowNoVideo()
{
    transport_.EnableVideoControls(false, *ltmmPlay1);
    transport_.StartVideo(); // other videos of the list stay in reach
    Head().SetTitle(QString());
}

void VideoWindow::SizeAround(double width, double height)
{
    if (CurrentShape() != Shape::Normal)
        return;
    resize(Twips { int(width) + PlayerMarginWidth.value }.Pixels(),
        Twips { int(height) + PlayerMarginHeight.value }.Pixels());
}

void VideoWindow::UpdateVideoTitle()
{
    ApplicationState& state = frame_.State();
    state.VideoPath = state.VideoPath.trimmed();
    TakeNameAndFolder(state, state.VideoPath);
    state.Reload(Key::NameFull);
    Head().SetTitle(FileName::Shown(state.NameFull ? state.VideoName : state.VideoPath));
}

void VideoWindow::mousePressEvent(QMouseEvent* event)
{
    ChildForm::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT Head().MoveRequested(event->globalPosition().toPoint());
}

void VideoWindow::resizeEvent(QResizeEvent* event)
{
    ChildForm::resizeEvent(event);
    if (frame_.State().OpeningNow)
        frame_.State().OpeningNow = false;
    else
        Timer1.start();
}

void VideoWindow::GrowToMinimum()
{
    const int smallest = SmallestSide.Pixels();
    if (CurrentShape() == Shape::Normal && (width() < smallest || height() < smallest))
        resize(smallest, smallest);
}

void VideoWindow::ShowSizePopup()
{
    const QPointer<ltmmPlay> player = ltmmPlay1; // the window may close while its popup stands
    frame_.OpenMenus(PopupOwner::VideoWindow, CaptionsOf(SizeItems), CheckedOf(SizeItems, *ltmmPlay1),
        *sizes_, [player](int item) {
            if (player)
                SizeItems[item].act(*player);
        });
}

void VideoWindow::ShowProgress(int position)
{
    ApplicationState& state = frame_.State();
    transport_.FollowProgress(position);
    if (state.VideoPath.isEmpty() && position == 0)
        EndReached = false;
    if (ltmmPlay1->TrackingMax() == 0)
        return;
    const auto percent = std::lround(double(position) / ltmmPlay1->TrackingMax() * 100);
    frame_.SetStatus(StatusLabel::Percent, QString::number(percent) + u'%');
    if (state.CaptureTime) {
        frame_.ShowStatus(StatusLabel::AutoCapture, true);
        EndReached = percent == 100;
        if (EndReached) {
            frame_.ShowStatus(StatusLabel::Flashing, false);
            frame_.ShowStatus(StatusLabel::Watermark, false);
            StopFlashing();
            Timer3.stop();
        }
    }
    if (run_ && percent >= 100)
        run_->VideoEnded();
    frame_.SetStatus(StatusLabel::Position, PositionText(*ltmmPlay1) + QStringLiteral("  Time"));
    frame_.SetStatus(
        StatusLabel::FrameNumber, QStringLiteral("Frame: ") + QString::number(ltmmPlay1->CurrentFrame()));
    if (percent >= 100)
        frame_.EnableCommand(Command::Cancel, false);
    if (state.VideoPath.isEmpty() && position == 0)
        EndReached = false;
}

void VideoWindow::TellError(int code)
{
    Frame& frame = frame_; // the window may go while the box stands
    ApplicationState& state = frame.State();
    if (!state.ShowPlayerErrors)
        return;
    const QString title = QStringLiteral("Error Abort");
    state.MessageText = QStringLiteral("Abort, Error Playing.     Error Code: ") + ltmmPlay1->ErrorText(code)
        + QStringLiteral("  Or file is not complete, or it is corrupt");
    frame.Errors().ShowPlayerError(this, title, state.MessageText);
    frame.SetStatus(StatusLabel::Operation, QStringLiteral("Abort"));
}

void VideoWindow::CloseClicked()
{
    ApplicationState& state = frame_.State();
    state.VideoCount = 0;
    Closing = true;
    StopCapture();
    writer_.Restart();
    const QPointer<VideoWindow> alive(this);
    frame_.PumpEvents();
    if (!alive || isGone_)
        return;
    state.FromList = false;
    frame_.ShowStatus(StatusLabel::AutoCapture, false);
    ltmmPlay1->Stop();
    close();
}

void VideoWindow::OpenClicked()
{
    Closing = false;
    frame_.State().OpeningNow = true;
    Q_EMIT ListUnwanted();
    Timer1.stop();
    StopCapture();
    writer_.Restart();
    frame_.State().FromList = false;
    frame_.ShowStatus(StatusLabel::AutoCapture, false);
    ltmmPlay1->Stop();
    Q_EMIT OpenWanted();
}

void VideoWindow::closeEvent(QCloseEvent* event)
{
    // A closed window lives on until the event loop deletes it, and may be closed once more meanwhile; what
    // is open by then belongs to the next window.
    if (isGone_)
        return;
    ApplicationState& state = frame_.State();
    Timer1.stop();
    Closing = true;
    StopCapture();
    const QPointer<VideoWindow> alive(this);
    frame_.PumpEvents();
    if (!alive || isGone_)
        return;
    if (!FadeAtClosing(*this, state)) {
        // Shown again in the meantime, for another video, it stays.
        if (alive)
            Closing = false;
        return event->ignore();
    }
    if (isGone_)
        return;
    isGone_ = true;
    transport_.ReleaseRepeats();
    state.ExitRequested = true;
    hide();
    frame_.SetEnabled(false);
    frame_.EnableCommand(Command::Cancel, false);
    transport_.ShowPane(false);
    Q_EMIT ListUnwanted();
    state.VideoOpen = false;
    transport_.EnableVideoControls(false, *ltmmPlay1);
    state.FromList = false;
    ltmmPlay1->Stop();
    state.CurrentVideo = nullptr;
    ChildForm::closeEvent(event);
}
