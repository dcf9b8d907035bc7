// How the visual editor is made up: history, clipboard and filters at the left, the picture, amounts at the
// right.
#include "edit/Visual.h"

#include "app/Lead.h"
#include "edit/EdgeFilters.h"
#include "edit/OptionGroup.h"
#include "edit/PicturePane.h"
#include "edit/SliderRow.h"
#include "toolkit/DigitLabel.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/Style.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>

#include <span>

namespace {

constexpr QSize PreviewSize { 112, 76 };
constexpr QSize LeastPictureSize { 320, 240 };
constexpr int AngleEnd = 3600; // tenths of a degree
constexpr int AngleStep = 50;
constexpr int GaugeEnd = 1000;
constexpr QSize GaugeSize { 120, 8 };

constexpr Option Types[] = { { 0, "Horizontal" }, { 1, "Vertical" } };
constexpr Option Directions[] = { { 0, "East" }, { 1, "West" }, { 2, "North" }, { 3, "South" } };
constexpr Option Fits[] = { { 0, "Tile" }, { 1, "Stretch" } };

void Space(QLayout& layout, int gap = 2 * Grid)
{
    layout.setContentsMargins(0, 0, 0, 0);
    layout.setSpacing(gap);
}

/// The style lets a button become narrower than its caption; a row with those keeps their room.
void KeepWhole(QWidget& row)
{
    row.setMinimumWidth(row.sizeHint().width());
}

/// A heading with a grid of two equal columns below.
QGridLayout* MakeGrid(QGroupBox* box)
{
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(Grid, Grid, Grid, Grid);
    grid->setSpacing(2 * Grid);
    for (const int column : { 0, 1 })
        grid->setColumnStretch(column, 1);
    return grid;
}

/// In two columns below what stands there already.
OptionGroup* AddOptions(QGridLayout& grid, const char* name, std::span<const Option> options)
{
    auto* group = new OptionGroup(QLatin1String(name), options, grid.parentWidget());
    const int top = grid.rowCount();
    int place = 0;
    for (QAbstractButton* const button : group->buttons()) {
        grid.addWidget(button, top + place / 2, place % 2);
        ++place;
    }
    return group;
}

template <typename Row> QAbstractButton* MakeOperationButton(const Row& row, QWidget* parent)
{
    QAbstractButton* button = nullptr;
    if (row.face == Face::None) {
        button = new QPushButton(QLatin1String(row.caption), parent);
    } else {
        auto* const picture = new ToolButtons(parent);
        picture->SetFace(row.face);
        picture->setAccessibleName(QLatin1String(row.caption));
        button = picture;
    }
    button->setObjectName(QLatin1String(row.name));
    button->setProperty("Tag", QLatin1String(row.tip));
    return button;
}

} // namespace

/// A button of the editor: a caption, or a picture for those without one, and what it does.
struct Visual::EditorButton {
    const char* name;
    const char* caption; ///< or, with a picture, the name for those who cannot see it
    const char* tip;
    void (Visual::*act)();
    Face face = Face::None;
};

/// An operation without an amount.
struct Visual::PlainOperation {
    const char* name;
    const char* caption;
    const char* tip;
    void (Lead::*operation)();
    Face face = Face::None;
};

/// A turn that needs no slider.
struct Visual::Turn {
    int index;
    const char* caption;
    const char* title; ///< for those who cannot see it
    int angle; ///< hundredths of a degree
};

const Visual::EditorButton Visual::HistoryCommands[] = {
    { "Command11", "Original", "You can always go back to this original as the 'Undo To'.",
        &Visual::BookmarkOriginal },
    { "Command9", "Undo To", "Go back to this after undesired effect.", &Visual::UndoTo },
    { "Command18", "Back", "Go back to the last change.", &Visual::GoBack },
    { "Command10", "Set", "Set this change as the  'Undo To'. ", &Visual::SetBookmark },
};

const Visual::EditorButton Visual::ClipboardCommands[] = {
    { "Command5", "C&opy", "Copy the effect to the clipboard.", &Visual::CopyEffect },
    { "Command3", "&Paste", "Lay the clipboard graphic under the effect.", &Visual::PasteUnder },
    { "ViewClip_Button", "A&dd Clipboard", "Add clipboard graphic to effect.", &Visual::ViewClipboard },
};

const Visual::EditorButton Visual::FootCommands[] = {
    { "Command19", "Load settings", "Load Filters, Effects settings.", &Visual::LoadSliders, Face::Open },
    { "Command20", "Save settings", "Save Image, Filters, Effects settings.", &Visual::SaveSliders,
        Face::SaveCapture },
    { "Command16", "R&esolution", "Change resolution", &Visual::ChangeResolution },
    { "Command17", "View &Full Screen", "View the effect on the full screen.", &Visual::ViewFullScreen },
    { "Command8", "&Cancel", "Cancel effect.", &Visual::Cancel },
    { "Command7", "&Accept", "Accept effect and create it. You must still save it once it's loaded.",
        &Visual::Accept },
};

const Visual::PlainOperation Visual::PlainOperations[] = {
    { "Command1", "Stre&tch", "Stretch", &Lead::StretchIntensity },
    { "Command4", "&Invert", "Invert", &Lead::Invert },
    { "Command6", "&Reverse", "Reverse", &Lead::Reverse },
    { "Command2", "Grayscale", "Black and white - grayscale", &Lead::Grayscale, Face::Grayscale },
    { "Image3", "Flip", "Flip", &Lead::Flip, Face::Flip },
};

const Visual::Turn Visual::Turns[] = {
    { 0, "90°", "Rotate by 90 degrees", 9000 },
    { 1, "270°", "Rotate by 270 degrees", 27000 },
    { 2, "180°", "Rotate by 180 degrees", 18000 },
};

void Visual::Build()
{
    static constexpr FormButton<Visual> HeadButtons[] {
        { 2, Face::Minimize, " Minimize Window ", "Minimize window",
            [](Visual& visual) { visual.ToggleMinimize(); } },
        { 1, ShapeFace, " Restore/Maximize Window ", "Restore or maximize window",
            [](Visual& visual) { visual.ToggleMaximize(); } },
        { 0, Face::Close, " Close Visual Editor ", "Close visual editor",
            [](Visual& visual) { visual.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    auto* body = new QWidget(this);
    auto* grid = new QGridLayout(body);
    grid->setContentsMargins(2 * Grid, 2 * Grid, 2 * Grid, 2 * Grid);
    grid->setSpacing(2 * Grid);
    effectPane_ = new PicturePane(
        PicturePane::Small::OwnSize, QStringLiteral("Effect"), QStringLiteral("Picture"), body);
    effectPane_->setMinimumSize(LeastPictureSize);
    Effect = &effectPane_->Picture();
    Effect->setFocusPolicy(Qt::StrongFocus);
    grid->addWidget(BuildLeft(), 0, 0);
    grid->addWidget(effectPane_, 0, 1);
    grid->addWidget(BuildRight(), 0, 2);
    grid->addWidget(BuildFoot(), 1, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
    SetBody(body);
}

QAbstractButton* Visual::MakeButton(const EditorButton& command, QWidget* parent)
{
    QAbstractButton* const button = MakeOperationButton(command, parent);
    connect(button, &QAbstractButton::clicked, this, command.act);
    return button;
}

QWidget* Visual::BuildLeft()
{
    auto* left = new QWidget(this);
    auto* column = new QVBoxLayout(left);
    Space(*column);
    column->addWidget(BuildHistory());
    column->addWidget(BuildClipboard());
    column->addWidget(BuildFilters());
    column->addStretch();
    return left;
}

Lead* Visual::AddPreview(QGridLayout& grid, PicturePane*& pane, const char* name, const char* title)
{
    pane = new PicturePane(
        PicturePane::Small::Filling, QLatin1String(name), QLatin1String(title), grid.parentWidget());
    pane->setFixedSize(PreviewSize);
    return &pane->Picture();
}

/// Each picture stands over the button that goes with it.
QWidget* Visual::BuildHistory()
{
    auto* box = new QGroupBox(QStringLiteral("History"), this);
    QGridLayout* const grid = MakeGrid(box);
    Original = AddPreview(*grid, originalPane_, "Original", "Original");
    Undos = AddPreview(*grid, undosPane_, "Undos", "Undo to");
    grid->addWidget(originalPane_, 0, 0, Qt::AlignHCenter);
    grid->addWidget(undosPane_, 0, 1, Qt::AlignHCenter);
    int place = 2;
    for (const EditorButton& command : HistoryCommands) {
        grid->addWidget(MakeButton(command, box), place / 2, place % 2);
        ++place;
    }
    return box;
}

QWidget* Visual::BuildClipboard()
{
    auto* box = new QGroupBox(QStringLiteral("Clipboard"), this);
    QGridLayout* const grid = MakeGrid(box);
    Lead1 = AddPreview(*grid, clipPane_, "Lead1", "Clipboard picture");
    QAbstractButton* const copy = MakeButton(ClipboardCommands[0], box);
    Command3 = MakeButton(ClipboardCommands[1], box);
    grid->addWidget(clipPane_, 0, 0, 2, 1, Qt::AlignHCenter);
    grid->addWidget(copy, 0, 1);
    grid->addWidget(Command3, 1, 1);
    Option3 = AddOptions(*grid, "Option3", Fits);
    ViewClip_Button = MakeButton(ClipboardCommands[2], box);
    grid->addWidget(ViewClip_Button, grid->rowCount(), 0, 1, 2);
    return box;
}

QWidget* Visual::BuildFilters()
{
    auto* box = new QGroupBox(QStringLiteral("Filters"), this);
    QGridLayout* const grid = MakeGrid(box);
    Option1 = AddOptions(*grid, "Option1", Types);
    Option2 = AddOptions(*grid, "Option2", Directions);
    const int top = grid->rowCount();
    for (const EdgeFilterRow& row : EdgeFilterRows) {
        auto* button = new QPushButton(QLatin1String(row.label), box);
        button->setObjectName(QLatin1String(row.objectName));
        button->setProperty("Tag", QStringLiteral("Click to Apply - Pick direction first."));
        connect(button, &QPushButton::clicked, this, [this, &row] { ApplyEdgeFilter(row); });
        grid->addWidget(button, top + int(row.filter) / 2, int(row.filter) % 2);
    }
    return box;
}

QWidget* Visual::BuildRight()
{
    auto* right = new QWidget(this);
    auto* column = new QVBoxLayout(right);
    Space(*column);
    column->addWidget(BuildRows(EffectGroup::Image, QStringLiteral("Image")));
    column->addWidget(BuildRows(EffectGroup::Effects, QStringLiteral("Effects")));
    column->addWidget(BuildRotation());
    column->addStretch();
    return right;
}

QWidget* Visual::BuildRows(EffectGroup group, const QString& heading)
{
    auto* box = new QGroupBox(heading, this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(Grid, Grid, Grid, Grid);
    column->setSpacing(Grid);
    for (int index = 0; index < EffectRowCount; ++index) {
        if (EffectRows()[size_t(index)].group != group)
            continue;
        auto* row = new SliderRow(index, box);
        connect(row, &SliderRow::Apply, this, [this, index] { ApplyRow(index); });
        rows_[size_t(index)] = row;
        column->addWidget(row);
    }
    if (group == EffectGroup::Image)
        column->addWidget(BuildPlainOperations());
    return box;
}

QWidget* Visual::BuildPlainOperations()
{
    auto* line = new QWidget(this);
    auto* row = new QHBoxLayout(line);
    Space(*row, Grid);
    for (const PlainOperation& plain : PlainOperations) {
        QAbstractButton* const button = MakeOperationButton(plain, line);
        connect(button, &QAbstractButton::clicked, this,
            [this, &plain] { Change(Back::Kept, [&plain](Lead& effect) { (effect.*plain.operation)(); }); });
        row->addWidget(button, plain.face == Face::None ? 1 : 0);
    }
    KeepWhole(*line);
    return line;
}

QWidget* Visual::BuildRotation()
{
    auto* box = new QGroupBox(QStringLiteral("Rotate"), this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(Grid, Grid, Grid, Grid);
    column->setSpacing(2 * Grid);
    column->addLayout(BuildAngle());
    Check1 = new QCheckBox(QStringLiteral("Resize to fit?"), box);
    Check1->setObjectName(QStringLiteral("Check1"));
    column->addWidget(Check1);
    column->addLayout(BuildTurns());
    return box;
}

QLayout* Visual::BuildAngle()
{
    auto* line = new QGridLayout;
    Space(*line);
    line->setColumnMinimumWidth(0, SliderRow::ButtonWidth(fontMetrics()));
    line->setColumnStretch(1, 1);
    auto* apply = new QPushButton(QStringLiteral("Angle"), this);
    apply->setObjectName(QStringLiteral("AngleBut"));
    apply->setProperty("Tag", QStringLiteral("Click to Apply"));
    connect(apply, &QPushButton::clicked, this, &Visual::TurnByAngle);
    Angle = new QSlider(Qt::Horizontal, this);
    Angle->setObjectName(QStringLiteral("Angle"));
    Angle->setAccessibleName(QStringLiteral("Angle slider"));
    Angle->setProperty("Tag", QStringLiteral("Tenths of a degree, clockwise."));
    Angle->setRange(-AngleEnd, AngleEnd);
    Angle->setPageStep(AngleStep);
    auto* readOut = new DigitLabel(this);
    readOut->setObjectName(QStringLiteral("AnswerAngle"));
    readOut->SetSample(QStringLiteral("-3600"));
    readOut->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    readOut->setText(QString::number(Angle->value()));
    connect(Angle, &QSlider::valueChanged, readOut,
        [readOut](int value) { readOut->setText(QString::number(value)); });
    line->addWidget(apply, 0, 0);
    line->addWidget(Angle, 0, 1);
    line->addWidget(readOut, 0, 2);
    return line;
}

QLayout* Visual::BuildTurns()
{
    auto* turns = new QHBoxLayout;
    Space(*turns);
    for (const Turn& turn : Turns) {
        auto* button = new QPushButton(QString::fromUtf8(turn.caption), this);
        button->setObjectName(QStringLiteral("Rotate(%1)").arg(turn.index));
        button->setAccessibleName(QLatin1String(turn.title));
        button->setProperty("Tag", QLatin1String(turn.title));
        connect(button, &QPushButton::clicked, this, [this, &turn] {
            Change(Back::LeftAsItIs, [&turn](Lead& effect) { effect.Rotate(turn.angle, true, Qt::white); });
        });
        turns->addWidget(button);
    }
    return turns;
}

QWidget* Visual::BuildFoot()
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    Space(*row);
    row->setContentsMargins(0, 0, SizeGrip::Side, 0);
    constexpr EditorButton open { "VideoSoftElastic6", "Open Different &Graphic File To Edit",
        "Load new graphic to edit.", &Visual::OpenDifferent };
    row->addWidget(MakeButton(open, foot));
    LblFolder = new ElidedLabel(foot);
    LblFolder->setObjectName(QStringLiteral("LblFolder"));
    row->addWidget(LblFolder, 1);
    StatGauge = new QProgressBar(foot);
    StatGauge->setObjectName(QStringLiteral("StatGauge"));
    StatGauge->setAccessibleName(QStringLiteral("Progress"));
    StatGauge->setRange(0, GaugeEnd);
    StatGauge->setTextVisible(false);
    StatGauge->setFixedSize(GaugeSize);
    row->addWidget(StatGauge);
    for (const EditorButton& command : FootCommands) {
        QAbstractButton* const button = MakeButton(command, foot);
        row->addWidget(button);
    }
    KeepWhole(*foot); // the folder gives way, the captions do not
    return foot;
}
