#include "edit/Visual.h"

#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/ControlError.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "desktop/FileName.h"
#include "edit/OptionGroup.h"
#include "edit/PicturePane.h"
#include "edit/SliderRow.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/PathText.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr QSize StartSize { 1240, 780 };

} // namespace

Visual::Visual(Frame& frame)
    : frame_(frame)
{
    setObjectName(QStringLiteral("Visual"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Visual Edit Tools"));
    setWindowTitle(QStringLiteral("Visual Editor"));
    Build();
    AddShadow(*this, frame_.State());
    ClipTimer.setObjectName(QStringLiteral("ClipTimer"));
    ClipTimer.setInterval(4s);
    ClipTimer.setSingleShot(true);
    connect(&ClipTimer, &QTimer::timeout, this, [this] { ShowEffect(Back1); });
    connect(Effect, &Lead::Progress, this, &Visual::ShowProgress);
    // Two notices that the user came back to the picture.
    connect(this, &ChildForm::Activated, this, &Visual::RefreshClipboardState);
    connect(Effect, &Lead::MouseDown, this, &Visual::RefreshClipboardState);
    Load();
}

void Visual::Load()
{
    ApplicationState& state = frame_.State();
    state.VisualReady = false;
    const Hourglass waiting;
    if (const CaptureWindow* const capture = frame_.ActiveCaptureWindow())
        Original->SetPicture(capture->ClipPic());
    if (!TakeOriginal()) {
        const PointerPause pause;
        return frame_.Errors().Show(frame_.FrameWindow(), QStringLiteral("Error Opening Graphic"),
            QStringLiteral(" Is the video window on top?  If so, click on a capture so the visual editor can "
                           "see it."));
    }
    LoadClipboard();
    for (SliderRow* const row : rows_)
        row->SelectAnswer();
    state.Reload(Key::OldFolder2, Reader::Visual);
    ShowFolder();
    state.ApplyToolTips(*this);
    const QRect screenArea = frame_.FrameWindow()->screen()->availableGeometry();
    resize(StartSize.boundedTo(screenArea.size()).expandedTo(minimumSizeHint()));
    move(screenArea.center() - rect().center());
    show();
    Effect->setFocus();
    state.VisualReady = true;
}

void Visual::ComeBack()
{
    if (CurrentShape() == Shape::Minimized)
        Restore();
    show();
    BringToFront();
}

void Visual::ShowFolder()
{
    const QString folder = frame_.State().OldFolder2.trimmed();
    LblFolder->setText(FileName::Shown(folder.isEmpty()
            ? frame_.State().Beside(QStringLiteral("AutoSave")) + PathText::Separator()
            : folder));
}

/// Everything begins anew from Original; false when that is empty.
bool Visual::TakeOriginal()
{
    originalPane_->Arrange();
    Original->ForceRepaint();
    SetUndos(Original->Bitmap());
    if (Original->Bitmap().isNull())
        return false;
    Back1 = Original->Bitmap();
    ShowEffect(Original->Bitmap());
    for (SliderRow* const row : rows_)
        row->ShowAnswer();
    return true;
}

void Visual::LoadClipboard()
{
    const bool hasPicture = Lead1->Paste(frame_.SystemClipboard(), Lead::PasteTest) > 0;
    if (hasPicture)
        IgnoreErrors([&] { Lead1->Paste(frame_.SystemClipboard(), Lead::PasteTake); });
    clipPane_->Arrange();
    EnableClipboard(hasPicture);
}

void Visual::RefreshClipboardState()
{
    EnableClipboard(Effect->Paste(frame_.SystemClipboard(), Lead::PasteTest) > 0);
}

void Visual::EnableClipboard(bool hasPicture)
{
    Option3->SetEnabled(hasPicture);
    Command3->setEnabled(hasPicture);
    ViewClip_Button->setEnabled(hasPicture);
    ViewClip_Button->setText(
        hasPicture ? QStringLiteral("A&dd Clipboard") : QStringLiteral("Clipboard Empt&y"));
}

void Visual::BeginBusy()
{
    SetPointer(Pointer::Busy);
    frame_.State().VisualBusy = true;
    StatGauge->setValue(0);
}

void Visual::EndBusy()
{
    SetPointer(Pointer::Normal);
    frame_.State().VisualBusy = false;
    StatGauge->setValue(0);
}

/// Lets other events through, clicks on the editor's own buttons too.
void Visual::ShowProgress(int part)
{
    StatGauge->setValue(part);
    frame_.PumpEvents();
}

/// Nobody knows how long a file takes: the gauge goes round.
void Visual::ShowWaiting()
{
    constexpr int rounds = 20; // steps
    StatGauge->setValue((StatGauge->value() + StatGauge->maximum() / rounds) % StatGauge->maximum());
}

void Visual::EffectMe()
{
    EndBusy(); // first: the gauge repaints at once, and with it all that waits to be
    effectPane_->Arrange();
}

void Visual::ShowEffect(const QImage& picture)
{
    Effect->SetBitmap(picture);
    EffectMe();
}

void Visual::SetUndos(const QImage& picture)
{
    Undos->SetBitmap(picture);
    undosPane_->Arrange();
}

/// The picture being worked on comes back before anything else is done with it.
void Visual::EndClipboardView()
{
    if (!ClipTimer.isActive())
        return;
    ClipTimer.stop();
    ShowEffect(Back1);
}

void Visual::closeEvent(QCloseEvent* event)
{
    isClosed_ = true;
    frame_.State().VisualBusy = false;
    SetPointer(Pointer::Normal);
    ClipTimer.stop();
    const QPointer<Visual> alive(this);
    if (!FadeAtClosing(*this, frame_.State())) {
        if (!alive)
            return;
        isClosed_ = false; // shown again meanwhile
        return event->ignore();
    }
    Back1 = {};
    for (Lead* const control : { Effect, Undos, Original })
        control->SetBitmap({});
    ChildForm::closeEvent(event);
}
