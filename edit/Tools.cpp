#include "edit/Tools.h"

#include "app/ApplicationState.h"
#include "app/CaptureWindow.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "capture/NewCapture.h"
#include "edit/Resize.h"
#include "toolkit/DigitLabel.h"
#include "toolkit/Face.h"
#include "toolkit/MovedInside.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QPointer>
#include <QScreen>
#include <QSlider>

namespace {

constexpr Twips BelowCapture = 10_twips;
constexpr int QuarterTurn = 9000; // hundredths of a degree
constexpr int SliderEnd = 100;
constexpr int SliderWidth = 200;

void QuarterTurned(Lead& picture)
{
    picture.Rotate(QuarterTurn, true, Qt::white);
}

/// Where the tools may come up, on the screen: over the windows' area.
QRect RoomOf(const QWidget& owner)
{
    const QRect onScreen = owner.screen()->availableGeometry();
    const QWidget* const parent = owner.isWindow() ? nullptr : owner.parentWidget();
    if (!parent)
        return onScreen;
    return onScreen & QRect(parent->mapToGlobal(QPoint(0, 0)), parent->size());
}

} // namespace

struct Tools::Button {
    const char* name;
    Face face;
    const char* caption; ///< for those who cannot see the picture
    const char* tip;
    void (*act)(Tools& tools);
};

template <void (Lead::*operation)()> void Tools::EditBy(Tools& tools)
{
    tools.Edit([](Lead& picture) { (picture.*operation)(); });
}

const Tools::Button Tools::Buttons[] = {
    { "Cmd2(0)", Face::Resize, "Resize Capture", " Resize ",
        [](Tools& tools) { tools.ImageResize_Click(); } },
    { "Cmd2(1)", Face::Flip, "Flip", " Flip ", EditBy<&Lead::Flip> },
    { "Cmd2(2)", Face::Rotate, "Rotate", " Rotate ", [](Tools& tools) { tools.Edit(QuarterTurned); } },
    { "Cmd2(3)", Face::Reverse, "Reverse", " Reverse ", EditBy<&Lead::Reverse> },
    { "Cmd2(4)", Face::Grayscale, "B&W", " Grayscale ", EditBy<&Lead::Grayscale> },
    { "Cmd2(5)", Face::Undo, "Undo", " Undo ", [](Tools& tools) { tools.Undo(); } },
    { "ToolButtons1", Face::VisualEditor, "Visual editor", " Visual Editor ",
        [](Tools& tools) { tools.frame_.OpenVisual(); } },
};

struct Tools::PreviewRow {
    const char* tip;
    const char* readOut;
    void (*preview)(Lead& work, int value);
};

const Tools::PreviewRow Tools::PreviewRows[] = {
    // Brightness drives gamma, whose neutral point is the slider's end: from there it only darkens. Kept so.
    { "Brightness", "LblBright", [](Lead& work, int value) { work.Gamma(value); } },
    { "Contrast", "Label2", [](Lead& work, int value) { work.Contrast(value * 10); } },
};

Tools::Tools(Frame& frame)
    : FormDialog(frame.State(), frame.FrameWindow(), QStringLiteral("Tools"))
    , frame_(frame)
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    SetTitle(QStringLiteral("Graphic Edit Tools"));
    Build();
    Dress();
}

void Tools::Build()
{
    AddCloseButton(" Close Graphic Tools ", "Close graphic tools");
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(3 * Grid, 2 * Grid, 3 * Grid, 3 * Grid);
    column->setSpacing(2 * Grid);
    column->addWidget(BuildButtons());
    column->addWidget(BuildSliders());
    AddBody(body);
    KeepFitting();
}

QWidget* Tools::BuildButtons()
{
    auto* strip = new QWidget(this);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Grid);
    for (const Button& button : Buttons) {
        auto* control = new ToolButtons(strip);
        control->setObjectName(QLatin1String(button.name));
        control->SetFace(button.face);
        control->setAccessibleName(QLatin1String(button.caption));
        control->setProperty("Tag", QLatin1String(button.tip));
        connect(control, &StripButton::Click, this, [this, act = button.act] { act(*this); });
        row->addWidget(control);
    }
    row->insertStretch(row->count() - 1); // the editor stands apart from the edits
    return strip;
}

QWidget* Tools::BuildSliders()
{
    auto* sliders = new QWidget(this);
    auto* grid = new QGridLayout(sliders);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * Grid);
    grid->setVerticalSpacing(Grid);
    for (const Slider slider : { Brightness, Contrast }) {
        const PreviewRow& row = PreviewRows[slider];
        auto* bar = new QSlider(Qt::Horizontal, sliders);
        bar->setObjectName(QStringLiteral("HSlider1(%1)").arg(int(slider)));
        bar->setAccessibleName(QLatin1String(row.tip));
        bar->setProperty("Tag", QLatin1String(row.tip));
        bar->setRange(0, SliderEnd);
        bar->setMinimumWidth(SliderWidth);
        auto* readOut = new DigitLabel(sliders);
        readOut->setObjectName(QLatin1String(row.readOut));
        readOut->SetSample(QStringLiteral("100%"));
        readOut->setText(QStringLiteral("0%"));
        readOut->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(new QLabel(QLatin1String(row.tip), sliders), slider, 0);
        grid->addWidget(bar, slider, 1);
        grid->addWidget(readOut, slider, 2);
        connect(bar, &QSlider::valueChanged, this, [this, slider](int value) { Preview(slider, value); });
        readOuts_[slider] = readOut;
    }
    return sliders;
}

void Tools::LTools(QWidget* owner)
{
    ApplicationState& state = frame_.State();
    if (!state.ToolsOpen && owner)
        PlaceBelow(owner);
    state.Tools = this;
    state.ToolsOpen = true;
    setWindowState(
        windowState() & ~Qt::WindowMinimized); // a maximized frame leaves them so when it comes back
    show();
    raise();
}

void Tools::PlaceBelow(const QWidget* owner)
{
    adjustSize();
    const QRect above(owner->mapToGlobal(QPoint(0, 0)), owner->size());
    // A large capture reaches to the end of its area; the tools stay in sight and off the transport.
    const QPoint below(
        above.left() + above.width() / 2 - width() / 2, above.top() + above.height() + BelowCapture.Pixels());
    move(MovedInside(RoomOf(*owner), QRect(below, size())).topLeft());
}

CaptureWindow* Tools::Capture()
{
    CaptureWindow* const capture = frame_.ActiveCaptureWindow();
    if (!capture || capture->Picture().Bitmap().isNull()) {
        frame_.SetStatusAlert(StatusLabel::Operation, QStringLiteral("Click on a capture first"));
        return nullptr;
    }
    return capture;
}

void Tools::CopyLast()
{
    if (CaptureWindow* const capture = frame_.ActiveCaptureWindow())
        undo_.CopyLast(capture->Picture().Bitmap());
}

void Tools::Edit(void (*operation)(Lead&))
{
    CaptureWindow* const capture = Capture();
    if (!capture)
        return;
    CopyLast();
    try {
        operation(capture->Picture());
    } catch (const ControlError& error) {
        return frame_.Errors().Show(this, QStringLiteral("Error!"), error.Reason());
    }
    Refresh(*capture);
}

void Tools::Undo()
{
    CaptureWindow* const capture = Capture();
    if (!capture)
        return;
    const QImage before = undo_.Undo();
    if (before.isNull())
        return;
    capture->Picture().SetBitmap(before);
    const QPointer<Tools> alive(this);
    Refresh(*capture);
    if (alive)
        undo_.CountUndone();
}

/// Lets other events through, so the capture and these tools may be gone afterwards.
void Tools::Refresh(CaptureWindow& capture)
{
    capture.Picture().ForceRepaint();
    capture.KeepEdit();
    frame_.PumpEvents();
}

/// Begins from ClipPic each time: what the other slider had shown is gone, and nothing is kept.
void Tools::Preview(Slider slider, int value)
{
    CaptureWindow* const capture = Capture();
    Lead work;
    if (capture) {
        work.SetPicture(capture->ClipPic());
        IgnoreErrors([&] { PreviewRows[slider].preview(work, value); });
    }
    readOuts_[slider]->setText(QString::number(value) + QLatin1Char('%'));
    if (!capture)
        return;
    // Within the frame alone: the slider keeps the keyboard.
    frame_.ActiveForm()->setFocus();
    capture->Picture().SetBitmap(work.Bitmap());
    frame_.PumpEvents();
}

void Tools::ImageResize_Click()
{
    CaptureWindow* const capture = Capture();
    if (!capture)
        return;
    const QPointer<Resize> form = new Resize(frame_, this, capture->Picture().Bitmap().size());
    form->exec();
    if (!form)
        return;
    const Resize::Results results = form->GetResults();
    delete form;
    if (results.accepted)
        OpenResized(results.width, results.height, results.resample ? Lead::SizeSmooth : Lead::SizePlain);
}

void Tools::OpenResized(int width, int height, int flags)
{
    CaptureWindow* const capture = Capture();
    if (!capture)
        return;
    const QPointer<Tools> alive(this);
    const Hourglass waiting;
    Lead Lead4;
    Lead4.SetBitmap(capture->Picture().Bitmap());
    try {
        Lead4.Size(width, height, flags);
    } catch (const ControlError&) {
        return TellTooLarge();
    }
    IgnoreErrors([&] { ShowEdited(frame_, Reader::Tools, Lead4.Bitmap()); });
    if (alive)
        readOuts_[Contrast]->clear();
}

void Tools::TellTooLarge()
{
    const QPointer<Tools> alive(this);
    frame_.Errors().Show(
        this, QStringLiteral("Error"), QStringLiteral("Not enough memory available.  Try a smaller size."));
    if (!alive)
        return;
    frame_.EnableCommand(Command::Save, false);
    readOuts_[Contrast]->clear();
}

void Tools::done(int result)
{
    const QPointer<Tools> alive(this);
    ApplicationState& state = frame_.State();
    FormDialog::done(result);
    if (!alive || !isVisible()) // shown again while they faded, they stay
        state.ToolsOpen = false;
}
