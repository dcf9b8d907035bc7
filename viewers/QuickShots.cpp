#include "viewers/QuickShots.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/AutoName.h"
#include "capture/FormatInForce.h"
#include "text/PrintUserText.h"
#include "toolkit/HeadButtons.h"
#include "viewers/ThumbCell.h"
#include "viewers/Viewer.h"

#include <QLabel>
#include <QPointer>
#include <QScrollArea>

namespace {

constexpr QSize StartSize { 560, 330 };

}

QuickShots::QuickShots(Frame& frame)
    : frame_(frame)
    , layout_(ThumbCell::Size)
{
    setObjectName(QStringLiteral("QuickShots"));
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Captured Thumbnails"));
    Build();
    AddShadow(*this, frame_.State());
    frame_.State().QuickShotsOpen = true;
    frame_.State().SelectedBitmap = {};
}

QuickShots::~QuickShots() = default;

void QuickShots::Build()
{
    static constexpr FormButton<QuickShots> HeadButtons[] {
        { 2, Face::OpenCapture, " Open Highlighted Capture ", "Open highlighted capture",
            [](QuickShots& strip) { strip.OpenHighlighted(); } },
        { 5, Face::SaveAll, "Save ALL pictures to the AutoFolder", "Save all pictures",
            [](QuickShots& strip) { strip.SaveAll(); } },
        { 1, Face::Minimize, " Minimize Window ", "Minimize window",
            [](QuickShots& strip) { strip.Minimize(); } },
        { 0, Face::Close, " Close Thumbnail Window ", "Close thumbnail window",
            [](QuickShots& strip) { strip.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    picOuter_ = new QScrollArea(this);
    picOuter_->setObjectName(QStringLiteral("PicOuter"));
    picOuter_->setAccessibleName(QStringLiteral("Thumbnails"));
    picOuter_->setFrameShape(QFrame::NoFrame);
    picInner_ = new QWidget;
    picInner_->setObjectName(QStringLiteral("PicInner"));
    hint_ = new QLabel(QStringLiteral("Captures gather here."), picInner_);
    hint_->move(ThumbLayout::Left, ThumbLayout::Top);
    picOuter_->setWidget(picInner_);
    picOuter_->setWidgetResizable(true);
    SetBody(picOuter_);
    resize(StartSize);
}

QImage QuickShots::NewCapture() const
{
    if (frame_.State().OpThumb == 0)
        return frame_.ThumbHold().Bitmap();
    auto* viewer = qobject_cast<Viewer*>(frame_.ActiveForm());
    return viewer ? viewer->ClipPic() : QImage();
}

void QuickShots::mnuControlsAdd2()
{
    hint_->hide();
    auto* cell = new ThumbCell(NewCapture(), Count(), picInner_);
    cell->move(layout_.Next(picOuter_->viewport()->width()));
    picInner_->setMinimumHeight(layout_.PanelHeight());
    cell->show();
    cell->raise();
    Lead3.push_back(cell);
    connect(cell, &QAbstractButton::clicked, this, [this, cell] { Select(*cell); });
    frame_.State().ApplyToolTips(*this);
}

void QuickShots::Select(ThumbCell& cell)
{
    frame_.State().SelectedBitmap = cell.Bitmap();
    for (ThumbCell* each : Lead3)
        each->SetHighlighted(each == &cell);
    cell.Flash();
}

void QuickShots::OpenHighlighted()
{
    if (frame_.State().SelectedBitmap.isNull())
        return;
    frame_.State().UseSelectedBitmap = true;
    frame_.OpenViewer();
}

void QuickShots::SaveAll()
{
    ApplicationState& state = frame_.State();
    const Hourglass waiting;
    const imaging::FormatRow& row = FormatInForce(state);
    try {
        const AutoName names(
            state.Beside(QStringLiteral("AutoSave")), state.CurrentExt, QStringLiteral("AutoThumb"));
        int number = 0;
        Lead writer;
        for (const ThumbCell* cell : Lead3) {
            if (cell->Bitmap().isNull())
                continue; // its capture never reached the clipboard
            writer.SetBitmap(cell->Bitmap());
            if (state.UseWatermark)
                PrintUserText(writer, state);
            number = names.Write(
                [&](const QString& path) { return writer.SaveNew(path, row.format, row.bits, row.quality); },
                number);
        }
        frame_.SetStatus(StatusLabel::Operation, QStringLiteral("All Thumbs Saved"));
    } catch (const ControlError&) {
        frame_.Errors().Show(frame_.FrameWindow(), QStringLiteral("Error!"),
            QStringLiteral("Error saving captured video frame."));
    }
}

void QuickShots::closeEvent(QCloseEvent* event)
{
    frame_.State().QuickShotsOpen = false;
    frame_.State().SelectedBitmap = {};
    const QPointer<QuickShots> alive(this);
    FadeAtClosing(*this, frame_.State());
    if (alive)
        ChildForm::closeEvent(event);
}
