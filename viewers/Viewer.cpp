#include "viewers/Viewer.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/PopupItem.h"
#include "app/RaiseUnderMouse.h"
#include "app/Talk.h"
#include "capture/SaveCapture.h"
#include "print/AAPrintPicture.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/Style.h"
#include "toolkit/Twips.h"
#include "viewers/Backgrounds.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>

#include <utility>

namespace {

/// Room that the window keeps around the picture: the column of tools and the edges; the title strip and the
/// edges.
constexpr Twips RoomBeside = 950_twips;
constexpr Twips RoomAbove = 510_twips;
constexpr int ZoomStep = 10; // percent

} // namespace

Viewer::Viewer(Frame& frame)
    : frame_(frame)
    , AAPrintPicture1(std::make_shared<AAPrintPicture>(frame))
{
    ApplicationState& state = frame_.State();
    setObjectName(QStringLiteral("Viewer"));
    setAttribute(Qt::WA_DeleteOnClose);
    Build();
    Bind();
    AddShadow(*this, state);
    RaiseUnderMouse(*this, state);
    ++state.CaptureWindowCount;
    frame_.AddKid(quintptr(this));
    SetTitle(QStringLiteral("Capture Window %1").arg(state.CaptureWindowCount));
    LoadPicture();
    SetPointer(Pointer::Normal);
    frame_.EnableCommand(Command::Save, !Lead1->Bitmap().isNull());
}

void Viewer::Build()
{
    static constexpr FormButton<Viewer> HeadButtons[] {
        { 2, Face::Minimize, " Minimize Window ", "Minimize window",
            [](Viewer& viewer) { viewer.ToggleMinimize(); } },
        { 1, ShapeFace, " Restore/Maximize Window ", "Restore or maximize window",
            [](Viewer& viewer) { viewer.ToggleMaximize(); } },
        { 0, Face::Close, " Close Capture Window ", "Close capture window",
            [](Viewer& viewer) { viewer.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    menu_ = AddMenuButton(*this, QStringLiteral("Capture menu"));
    connect(menu_, &StripButton::Click, this, &Viewer::ShowPopup);

    auto* body = new QWidget(this);
    auto* row = new QHBoxLayout(body);
    auto* tools = new QWidget(body);
    Lead1 = new Lead(body);
    Lead1->setObjectName(QStringLiteral("Lead1"));
    Lead1->setAccessibleName(QStringLiteral("Captured picture"));
    row->addWidget(tools);
    row->addWidget(Lead1, 1);
    row->setContentsMargins(0, 0, Grid, RoomAbove.Pixels() - FrameSize().height());
    row->setSpacing(0);
    tools->setFixedWidth(RoomBeside.Pixels() - FrameSize().width() - Grid);
    BuildTools(tools);
    SetBody(body);
    Lead1->setFocusPolicy(Qt::StrongFocus);
    Lead1->setFocus();
}

void Viewer::BuildTools(QWidget* column)
{
    auto* grid = new QGridLayout(column); // of two columns, for small captures leave no height for one
    grid->setContentsMargins(0, Grid, 0, Grid);
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(Grid);
    static constexpr FormButton<Viewer> SaveButton { 6, Face::SaveCapture, " Save Capture ", "Save capture",
        [](Viewer& viewer) { viewer.Save(); } };
    static constexpr FormButton<Viewer> ToolsButton { 3, Face::EditTools, " Open Graphic Tools ",
        "Open graphic tools", [](Viewer& viewer) { viewer.frame_.OpenTools(); } };
    static constexpr FormButton<Viewer> ProgramButton { 4, Face::ProgramWallpaper,
        " Save as Program Wallpaper ", "Save as program wallpaper",
        [](Viewer& viewer) { MakeProgramWallpaper(viewer.frame_, viewer.frame_.ActiveCapture()); } };
    static constexpr FormButton<Viewer> SystemButton { 5, Face::SystemWallpaper, " Save as System Wallpaper ",
        "Save as system wallpaper",
        [](Viewer& viewer) { MakeSystemWallpaper(viewer.frame_, *viewer.Lead1); } };
    int place = 0;
    for (const auto& row : { ToolsButton, SaveButton, ProgramButton, SystemButton }) {
        auto* const button = MakeFormButton<VideoEditButtons>(row, *this, column);
        grid->addWidget(button, place / 2, place % 2, place % 2 == 0 ? Qt::AlignRight : Qt::AlignLeft);
        ++place;
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

void Viewer::Bind()
{
    connect(this, &ChildForm::Activated, this, [this] {
        DropShadow(*this, frame_.State());
        setWindowTitle(QStringLiteral("Capture Window"));
    });
    connect(Lead1, &Lead::MouseDown, this, &Viewer::Zoom);
}

void Viewer::LoadPicture()
{
    ApplicationState& state = frame_.State();
    const bool usesSelected = std::exchange(state.UseSelectedBitmap, false);
    try {
        if (state.NoCap)
            ImmediateSave(frame_);
        TakePicture(usesSelected);
    } catch (const ControlError&) {
        frame_.Errors().Show(frame_.FrameWindow(), QStringLiteral("Error Opening Capture!"),
            QStringLiteral("Error opening clipboard capture."));
        // If it was the file that failed, the capture itself is still to be had.
        IgnoreErrors([&] { TakePicture(usesSelected); });
    }
    state.ApplyToolTips(*this);
}

void Viewer::TakePicture(bool usesSelected)
{
    ApplicationState& state = frame_.State();
    Clipboard& clipboard = frame_.SystemClipboard();
    const bool canPaste = Lead1->Paste(clipboard, Lead::PasteTest) > 0;
    if (canPaste)
        Lead1->Paste(clipboard, Lead::PasteTake);
    frame_.EnableCommand(Command::Save, canPaste);
    if (usesSelected)
        Lead1->SetBitmap(state.SelectedBitmap);
    frame_.EnableCommand(Command::Print, true);
    ClipPic_ = Lead1->GetPicture();
    SizeToPicture();
    frame_.PumpEvents();
}

void Viewer::SizeToPicture()
{
    const QSizeF picture = ClipPic_.deviceIndependentSize();
    resize(qCeil(picture.width()) + RoomBeside.Pixels(), qCeil(picture.height()) + RoomAbove.Pixels());
}

void Viewer::KeepEdit()
{
    ClipPic_ = Lead1->GetPicture();
    update();
}

void Viewer::ShowPicture(const QImage& picture)
{
    Lead1->SetBitmap(picture);
    KeepEdit();
    SizeToPicture();
}

void Viewer::PrintMe()
{
    const Hourglass waiting;
    Frame& frame = frame_; // the window may close while it is printed
    const auto print = AAPrintPicture1;
    try {
        ApplicationState& state = frame.State();
        state.Reload(Key::HighQ);
        state.Reload(Key::BW);
        state.PrintCall = true;
        print->SetAlign(state.PPosition);
        print->SetPicture(ClipPic_);
        print->PrintPicture();
        frame.SetStatus(StatusLabel::Operation, QStringLiteral("Page sent to the printer"));
    } catch (const ControlError& error) {
        frame.SetStatusAlert(StatusLabel::Operation, error.Reason()); // what the box does not say
        frame.Errors().Show(frame.FrameWindow(), QStringLiteral("Print Error!"),
            QStringLiteral("Error with printing. Check printer, cables, and printer settings."));
    }
    print->SetPicture({}); // the pixels of a capture that is edited later are needed once only
}

void Viewer::Zoom(Qt::MouseButton button)
{
    const int step = button == Qt::LeftButton ? ZoomStep : button == Qt::RightButton ? -ZoomStep : 0;
    if (step == 0)
        return;
    Lead1->SetScaleMode(Lead::ScaleTwips);
    Lead1->SetPaintSizeMode(Lead::ZoomSize);
    Lead1->SetPaintZoomFactor(Lead1->PaintZoomFactor() + step);
    Lead1->ForceRepaint();
    Lead1->SetScaleMode(Lead::ScalePixels);
}

void Viewer::ShowPopup()
{
    static constexpr PopupItem<Viewer> Items[] {
        { "  Save", [](Viewer& viewer) { viewer.Save(); } },
        { "  Edit Tools", [](Viewer& viewer) { viewer.frame_.OpenTools(); } },
        { "  Help", [](Viewer& viewer) { viewer.frame_.OpenHelp(); } },
        { "  Exit Viewer", [](Viewer& viewer) { viewer.close(); } },
    };
    const QPointer<Viewer> alive(this);
    frame_.OpenMenus(PopupOwner::Viewer, CaptionsOf(Items), 0, *menu_, [alive](int item) {
        if (alive)
            Items[item].act(*alive);
    });
}

void Viewer::Save()
{
    Frame& frame = frame_; // the window may close when the capture is saved
    SaveCapture(frame);
    frame.SetStatus(StatusLabel::Operation, QStringLiteral("Frame Saved"));
}

void Viewer::closeEvent(QCloseEvent* event)
{
    // A closed window lives on until the event loop deletes it, and may be closed once more meanwhile.
    if (!std::exchange(isGone_, true)) {
        frame_.RemoveKid(quintptr(this));
        if (ApplicationState& state = frame_.State(); state.KidCount == 0 && state.Tools)
            state.Tools->close(); // they have nothing left to work on
    }
    const QPointer<Viewer> alive(this);
    FadeAtClosing(
        *this, frame_.State()); // its answer is known: nobody shows one again that is on its way out
    if (alive)
        ChildForm::closeEvent(event);
}
