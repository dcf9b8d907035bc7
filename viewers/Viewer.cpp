#include "viewers/Viewer.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/SaveCapture.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/Twips.h"

#include <QHBoxLayout>
#include <QPointer>

#include <array>
#include <utility>

namespace {

/// Room that the window keeps around the picture: the column of tools and the edges; the title strip and the
/// edges.
constexpr Twips RoomBeside = 950_twips;
constexpr Twips RoomAbove = 510_twips;
constexpr int Gap = 4; // the grid
constexpr int ZoomStep = 10; // percent

/// Cmds of the window's head from left to right, and of its column of tools from top to bottom.
struct ViewerButton {
    int index;
    Face face;
    const char* tip;
    const char* name;
};
constexpr std::array<ViewerButton, 3> HeadButtons { {
    { 2, Face::Minimize, " Minimize Window ", "Minimize window" },
    { 1, Face::None, " Restore/Maximize Window ", "Restore or maximize window" },
    { 0, Face::Close, " Close Capture Window ", "Close capture window" },
} };
constexpr std::array<ViewerButton, 1> ToolColumn { {
    { 6, Face::SaveCapture, " Save Capture ", "Save capture" },
} };

template <typename Button> StripButton* MakeButton(const ViewerButton& row, QWidget* parent)
{
    auto* button = new Button(parent);
    button->setObjectName(QStringLiteral("Cmds(%1)").arg(row.index));
    button->SetFace(row.face);
    button->setAccessibleName(QLatin1String(row.name));
    button->setProperty("Tag", QLatin1String(row.tip));
    return button;
}

} // namespace

Viewer::Viewer(Frame& frame)
    : frame_(frame)
{
    ApplicationState& state = frame_.State();
    setObjectName(QStringLiteral("Viewer"));
    setAttribute(Qt::WA_DeleteOnClose);
    Build();
    Bind();
    ++state.CaptureWindowCount;
    frame_.AddKid(quintptr(this));
    SetTitle(QStringLiteral("Capture Window %1").arg(state.CaptureWindowCount));
    LoadPicture();
    SetPointer(Pointer::Normal);
    frame_.EnableCommand(Command::Save, !Lead1->Bitmap().isNull());
}

void Viewer::Build()
{
    auto* menu = new smallXPbuttons(this);
    menu->setObjectName(QStringLiteral("Image1"));
    menu->SetFace(Face::Menu);
    menu->setAccessibleName(QStringLiteral("Capture menu"));
    Head().AddLeading(menu);
    for (const ViewerButton& row : HeadButtons)
        Head().AddButton(MakeButton<smallXPbuttons>(row, this));

    auto* body = new QWidget(this);
    auto* row = new QHBoxLayout(body);
    auto* tools = new QWidget(body);
    Lead1 = new Lead(body);
    Lead1->setObjectName(QStringLiteral("Lead1"));
    Lead1->setAccessibleName(QStringLiteral("Captured picture"));
    row->addWidget(tools);
    row->addWidget(Lead1, 1);
    row->setContentsMargins(0, 0, Gap, RoomAbove.Pixels() - FrameSize().height());
    row->setSpacing(0);
    tools->setFixedWidth(RoomBeside.Pixels() - FrameSize().width() - Gap);
    BuildTools(tools);
    SetBody(body);
    Lead1->setFocusPolicy(Qt::StrongFocus);
    Lead1->setFocus();
}

void Viewer::BuildTools(QWidget* column)
{
    auto* stack = new QVBoxLayout(column);
    stack->setContentsMargins(Gap, Gap, Gap, Gap);
    stack->setSpacing(Gap);
    for (const ViewerButton& row : ToolColumn)
        stack->addWidget(MakeButton<VideoEditButtons>(row, column), 0, Qt::AlignHCenter);
    stack->addStretch();
}

void Viewer::Bind()
{
    const auto onClick = [this](const char* name, auto action) {
        connect(findChild<StripButton*>(QLatin1String(name)), &StripButton::Click, this, action);
    };
    onClick("Image1", &Viewer::ShowPopup);
    onClick("Cmds(0)", [this] { close(); });
    onClick("Cmds(1)", &Viewer::ToggleMaximize);
    onClick("Cmds(2)", &Viewer::Minimize);
    onClick("Cmds(6)", &Viewer::Save);
    auto* maximise = findChild<StripButton*>(QStringLiteral("Cmds(1)"));
    maximise->SetValue(WindowButton::Maximise);
    connect(this, &ChildForm::ShapeChanged, this, [this, maximise] {
        maximise->SetValue(
            CurrentShape() == Shape::Maximized ? WindowButton::Restore : WindowButton::Maximise);
    });
    connect(this, &ChildForm::Activated, this, [this] { setWindowTitle(QStringLiteral("Capture Window")); });
    connect(Lead1, &Lead::MouseDown, this, &Viewer::Zoom);
}

void Viewer::LoadPicture()
{
    ApplicationState& state = frame_.State();
    try {
        if (state.NoCap)
            ImmediateSave(frame_);
        Clipboard& clipboard = frame_.SystemClipboard();
        const bool canPaste = Lead1->Paste(clipboard, Lead::PasteTest) > 0;
        if (canPaste)
            Lead1->Paste(clipboard, Lead::PasteTake);
        frame_.EnableCommand(Command::Save, canPaste);
        if (state.UseSelectedBitmap) {
            Lead1->SetBitmap(state.SelectedBitmap);
            state.UseSelectedBitmap = false;
        }
        frame_.EnableCommand(Command::Print, true);
        ClipPic_ = Lead1->GetPicture();
        SizeToPicture();
        frame_.PumpEvents();
        state.ApplyToolTips(*this);
    } catch (const ControlError&) {
        frame_.Errors().Show(frame_.FrameWindow(), QStringLiteral("Error Opening Capture!"),
            QStringLiteral("Error opening clipboard capture."));
    }
}

void Viewer::SizeToPicture()
{
    const QSizeF picture = ClipPic_.deviceIndependentSize();
    resize(qCeil(picture.width()) + RoomBeside.Pixels(), qCeil(picture.height()) + RoomAbove.Pixels());
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
    const auto* button = findChild<QWidget*>(QStringLiteral("Image1"));
    const QStringList items { QStringLiteral("  Save"), QStringLiteral("  Help"),
        QStringLiteral("  Exit Viewer") };
    const QPointer<Viewer> alive(this);
    frame_.OpenMenus(
        PopupOwner::Viewer, items, 0, button->mapToGlobal(QPoint(0, button->height())), [alive](int item) {
            constexpr std::array Actions { +[](Viewer& viewer) { viewer.Save(); },
                +[](Viewer& viewer) { viewer.frame_.OpenHelp(); }, +[](Viewer& viewer) { viewer.close(); } };
            if (alive)
                Actions[size_t(item)](*alive);
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
    if (!std::exchange(isGone_, true))
        frame_.RemoveKid(quintptr(this));
    ChildForm::closeEvent(event);
}
