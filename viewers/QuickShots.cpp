#include "viewers/QuickShots.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/RaiseUnderMouse.h"
#include "app/Talk.h"
#include "capture/AutoName.h"
#include "capture/FormatInForce.h"
#include "text/PrintUserText.h"
#include "toolkit/HeadButtons.h"
#include "viewers/Backgrounds.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QLabel>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollArea>
#include <QScrollBar>

namespace {

constexpr QSize StartSize { 560, 330 };

void ProgramWallpaper(Frame& frame, const Lead& capture)
{
    MakeProgramWallpaper(frame, &capture);
}

} // namespace

QuickShots::QuickShots(Frame& frame)
    : frame_(frame)
{
    setObjectName(QStringLiteral("QuickShots"));
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Captured Thumbnails"));
    Build();
    AddShadow(*this, frame_.State());
    RaiseUnderMouse(*this, frame_.State());
    frame_.State().QuickShotsOpen = true;
    frame_.State().SelectedBitmap = {};
}

void QuickShots::Build()
{
    static constexpr FormButton<QuickShots> HeadButtons[] {
        { 2, Face::OpenCapture, " Open Highlighted Capture ", "Open highlighted capture",
            [](QuickShots& strip) { strip.OpenHighlighted(); } },
        { 3, Face::ProgramWallpaper, "Make highlighted picture the programs wallpaper",
            "Save as program wallpaper", [](QuickShots& strip) { strip.WithHighlighted(ProgramWallpaper); } },
        { 4, Face::SystemWallpaper, " Save as System Wallpaper ", "Save as system wallpaper",
            [](QuickShots& strip) { strip.WithHighlighted(MakeSystemWallpaper); } },
        { 5, Face::SaveAll, "Save ALL pictures to the AutoFolder", "Save all pictures",
            [](QuickShots& strip) { strip.SaveAll(); } },
        { 1, Face::Minimize, " Minimize Window ", "Minimize window",
            [](QuickShots& strip) { strip.ToggleMinimize(); } },
        { 0, Face::Close, " Close Thumbnail Window ", "Close thumbnail window",
            [](QuickShots& strip) { strip.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    picOuter_ = new QScrollArea(this);
    picOuter_->setObjectName(QStringLiteral("PicOuter"));
    picOuter_->setFocusPolicy(Qt::NoFocus);
    picOuter_->setFrameShape(QFrame::NoFrame);
    // One that came and went would change the width that the rows are made for.
    picOuter_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    picOuter_->verticalScrollBar()->setObjectName(QStringLiteral("Vbar"));
    picInner_ = new ThumbPanel;
    picInner_->setObjectName(QStringLiteral("PicInner"));
    picInner_->setAccessibleName(QStringLiteral("Thumbnails"));
    connect(picInner_, &ThumbPanel::Clicked, this, &QuickShots::Select);
    connect(picInner_, &ThumbPanel::DoubleClicked, this, &QuickShots::View);
    connect(picInner_, &ThumbPanel::CurrentMoved, this, [this](const QRect& cell) {
        const QSize room = cell.size() / 2 + QSize(ThumbLayout::Gap, ThumbLayout::Gap);
        picOuter_->ensureVisible(cell.center().x(), cell.center().y(), room.width(), room.height());
    });
    hint_ = new QLabel(QStringLiteral("Captures gather here."), picInner_);
    hint_->move(ThumbLayout::Left, ThumbLayout::Top);
    picOuter_->setWidget(picInner_);
    picOuter_->setWidgetResizable(true);
    SetBody(picOuter_);
    resize(StartSize);
}

QImage QuickShots::NewCapture() const
{
    if (frame_.State().OpThumb == ThumbnailOnly)
        return frame_.ThumbHold().Bitmap();
    auto* viewer = qobject_cast<Viewer*>(frame_.ActiveForm());
    return viewer ? viewer->ClipPic() : QImage();
}

int QuickShots::Count() const
{
    return picInner_->Count();
}

void QuickShots::mnuControlsAdd2()
{
    hint_->hide();
    picInner_->Add(NewCapture());
    frame_.State().ApplyToolTips(*this);
}

void QuickShots::Select(int index)
{
    frame_.State().SelectedBitmap = picInner_->Bitmap(index);
    picInner_->Select(index);
    picInner_->Flash(index);
}

void QuickShots::View(int index)
{
    frame_.State().SelectedBitmap = picInner_->Bitmap(index);
    picInner_->Select(index);
    const QPointer<QuickShots> alive(this);
    frame_.ShowFullScreen(frame_.State().SelectedBitmap);
    if (alive)
        picInner_->Flash(index);
}

void QuickShots::OpenHighlighted()
{
    if (frame_.State().SelectedBitmap.isNull())
        return;
    frame_.State().UseSelectedBitmap = true;
    frame_.OpenViewer();
}

/// With none picked, nothing happens.
void QuickShots::WithHighlighted(void (*act)(Frame& frame, const Lead& capture))
{
    const QImage picture = frame_.State().SelectedBitmap;
    if (picture.isNull())
        return;
    Lead capture;
    capture.SetBitmap(picture);
    act(frame_, capture);
}

void QuickShots::SaveAll()
{
    if (isSaving_)
        return;
    const Hourglass waiting;
    Frame& frame = frame_; // the strip may close while others are handled
    const QPointer<QuickShots> alive(this);
    isSaving_ = true;
    try {
        if (SaveEach())
            frame.SetStatus(StatusLabel::Operation, QStringLiteral("All Thumbs Saved"));
    } catch (const ControlError&) {
        frame.Errors().Show(frame.FrameWindow(), QStringLiteral("Error!"),
            QStringLiteral("Error saving captured video frame."));
    }
    if (alive)
        isSaving_ = false;
}

bool QuickShots::SaveEach()
{
    ApplicationState& state = frame_.State();
    const imaging::SaveValues values = FormatInForce(state);
    const AutoName names(
        state.Beside(QStringLiteral("AutoSave")), state.CurrentExt, QStringLiteral("AutoThumb"));
    const QPointer<QuickShots> alive(this);
    int number = 0;
    Lead writer;
    for (int index = 0; index < Count(); ++index) {
        if (picInner_->Bitmap(index).isNull())
            continue; // its capture never reached the clipboard
        ThumbIndex = index;
        // A text whose picture was not written would be drawn once more at the next saving.
        auto takeBack =
            qScopeGuard([this, index, before = picInner_->Bitmap(index)] { SetPicture(index, before); });
        if (state.UseWatermark)
            AllThumbWatermark();
        writer.SetBitmap(picInner_->Bitmap(index));
        number = names.Write(
            [&](const QString& path) {
                state.CurrentFile = path;
                return writer.SaveNew(path, values.format, values.bits, values.quality);
            },
            number);
        takeBack.dismiss();
        frame_.PumpEvents(); // a long strip takes its time
        if (!alive || !state.QuickShotsOpen)
            return false;
    }
    return true;
}

void QuickShots::AllThumbWatermark()
{
    if (!frame_.State().UseWatermark)
        return;
    Lead lead;
    lead.SetBitmap(picInner_->Bitmap(ThumbIndex));
    PrintUserText(lead, frame_.State());
    SetPicture(ThumbIndex, lead.Bitmap());
}

void QuickShots::SetPicture(int index, const QImage& picture)
{
    picInner_->SetBitmap(index, picture);
    if (picInner_->Selected() == index)
        frame_.State().SelectedBitmap = picture;
}

void QuickShots::closeEvent(QCloseEvent* event)
{
    frame_.State().QuickShotsOpen = false;
    frame_.State().SelectedBitmap = {};
    const QPointer<QuickShots> alive(this);
    FadeAtClosing(*this, frame_.State()); // shown again or not: what comes next goes to a strip of its own
    if (alive)
        ChildForm::closeEvent(event);
}
