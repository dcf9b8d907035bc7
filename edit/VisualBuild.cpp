// How the visual editor is made up: history, clipboard and filters at the left, the picture, amounts at the right.
#include "edit/VisualTables.h"

#include "app/Lead.h"
#include "edit/EdgeFilters.h"
#include "edit/OptionGroup.h"
#include "edit/PicturePane.h"
#include "edit/SliderRow.h"
#include "toolkit/DigitLabel.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/HeadButtons.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>

#include <span>
#include <utility>

namespace {

constexpr int Gap = 4; // the grid
constexpr QSize PreviewSize { 112, 76 };
constexpr QSize LeastPictureSize { 320, 240 };
constexpr int LeftWidth = 252;
constexpr int RightWidth = 348;
constexpr int AngleEnd = 3600; // tenths of a degree
constexpr int AngleStep = 50;
constexpr int GaugeEnd = 1000;
constexpr QSize GaugeSize { 120, 8 };

constexpr Option Types[] = { { 0, "Horizontal" }, { 1, "Vertical" } };
constexpr Option Directions[] = { { 0, "East" }, { 1, "West" }, { 2, "North" }, { 3, "South" } };
constexpr Option Fits[] = { { 0, "Tile" }, { 1, "Stretch" } };

void Space(QLayout& layout, int gap = 2 * Gap)
{
    layout.setContentsMargins(0, 0, 0, 0);
    layout.setSpacing(gap);
}

OptionGroup* AddOptions(
    QBoxLayout& column, const char* name, std::span<const Option> options, QWidget* parent)
{
    auto* line = new QHBoxLayout;
    Space(*line);
    auto* group = new OptionGroup(QLatin1String(name), options, *line, parent);
    line->addStretch();
    column.addLayout(line);
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

const Visual::Command Visual::HistoryCommands[] = {
    { "Command18", "Back", "Go back to the last change.", &Visual::GoBack },
    { "Command9", "Undo To", "Go back to this after undesired effect.", &Visual::UndoTo },
    { "Command11", "Original", "You can always go back to this original as the 'Undo To'.",
        &Visual::BookmarkOriginal },
    { "Command10", "Set", "Set this change as the  'Undo To'. ", &Visual::SetBookmark },
};

const Visual::Command Visual::ClipboardCommands[] = {
    { "Command5", "C&opy", "Copy the effect to the clipboard.", &Visual::CopyEffect },
    { "Command3", "&Paste", "Lay the clipboard graphic under the effect.", &Visual::PasteUnder },
    { "ViewClip_Button", "A&dd Clipboard", "Add clipboard graphic to effect.", &Visual::ViewClipboard },
};

const Visual::Command Visual::FootCommands[] = {
    { "Command19", "Load settings", "Load Filters, Effects settings.", &Visual::LoadSliders, Face::Open },
    { "Command20", "Save settings", "Save Image, Filters, Effects settings.", &Visual::SaveSliders,
        Face::SaveCapture },
    { "Command16", "R&esolution", "Change resolution", &Visual::ChangeResolution },
    { "Command17", "View &Full Screen", "View the effect on the full screen.", nullptr },
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
    grid->setContentsMargins(2 * Gap, 2 * Gap, 2 * Gap, 2 * Gap);
    grid->setSpacing(2 * Gap);
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

QAbstractButton* Visual::MakeButton(const Command& command, QWidget* parent)
{
    QAbstractButton* const button = MakeOperationButton(command, parent);
    if (command.act)
        connect(button, &QAbstractButton::clicked, this, command.act);
    return button;
}

QWidget* Visual::BuildLeft()
{
    auto* left = new QWidget(this);
    left->setFixedWidth(LeftWidth);
    auto* column = new QVBoxLayout(left);
    Space(*column);
    column->addWidget(BuildHistory());
    column->addWidget(BuildClipboard());
    column->addWidget(BuildFilters());
    column->addStretch();
    return left;
}

void Visual::PlacePreview(QGridLayout& grid, PicturePane& pane, const QString& caption, int column)
{
    pane.setFixedSize(PreviewSize);
    auto* label = new QLabel(caption, grid.parentWidget());
    label->setAlignment(Qt::AlignHCenter);
    grid.addWidget(&pane, 0, column, Qt::AlignHCenter);
    grid.addWidget(label, 1, column);
}

QWidget* Visual::BuildHistory()
{
    auto* box = new QGroupBox(QStringLiteral("History"), this);
    auto* grid = new QGridLayout(box);
    grid->setSpacing(2 * Gap);
    using enum PicturePane::Small;
    originalPane_ = new PicturePane(Filling, QStringLiteral("Original"), QStringLiteral("Original"), box);
    undosPane_ = new PicturePane(Filling, QStringLiteral("Undos"), QStringLiteral("Undo to"), box);
    Original = &originalPane_->Picture();
    Undos = &undosPane_->Picture();
    PlacePreview(*grid, *originalPane_, QStringLiteral("Original"), 0);
    PlacePreview(*grid, *undosPane_, QStringLiteral("Undo To"), 1);
    int place = 0;
    for (const Command& command : HistoryCommands) {
        grid->addWidget(MakeButton(command, box), 2 + place / 2, place % 2);
        ++place;
    }
    return box;
}

QWidget* Visual::BuildClipboard()
{
    auto* box = new QGroupBox(QStringLiteral("Clipboard"), this);
    auto* row = new QHBoxLayout(box);
    row->setSpacing(2 * Gap);
    clipPane_ = new PicturePane(PicturePane::Small::Filling, QStringLiteral("Lead1"),
        QStringLiteral("Clipboard picture"), box);
    clipPane_->setFixedSize(PreviewSize);
    Lead1 = &clipPane_->Picture();
    row->addWidget(clipPane_, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    Space(*column, Gap);
    row->addLayout(column, 1);
    QAbstractButton* buttons[std::size(ClipboardCommands)] {};
    for (size_t place = 0; place < std::size(ClipboardCommands); ++place) {
        buttons[place] = MakeButton(ClipboardCommands[place], box);
        column->addWidget(buttons[place]);
    }
    Command3 = buttons[1];
    ViewClip_Button = buttons[2];
    Option3 = AddOptions(*column, "Option3", Fits, box);
    return box;
}

QWidget* Visual::BuildFilters()
{
    auto* box = new QGroupBox(QStringLiteral("Filters"), this);
    auto* column = new QVBoxLayout(box);
    column->setSpacing(2 * Gap);
    Option1 = AddOptions(*column, "Option1", Types, box);
    Option2 = AddOptions(*column, "Option2", Directions, box);
    auto* grid = new QGridLayout;
    Space(*grid);
    for (const EdgeFilterRow& row : EdgeFilterRows) {
        auto* button = new QPushButton(QLatin1String(row.label), box);
        button->setObjectName(QLatin1String(row.objectName));
        button->setProperty("Tag", QStringLiteral("Click to Apply - Pick direction first."));
        connect(button, &QPushButton::clicked, this, [this, &row] { ApplyEdgeFilter(row); });
        grid->addWidget(button, int(row.filter) / 2, int(row.filter) % 2);
    }
    column->addLayout(grid);
    return box;
}

QWidget* Visual::BuildRight()
{
    auto* right = new QWidget(this);
    right->setFixedWidth(RightWidth);
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
    column->setSpacing(Gap);
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
    Space(*row, Gap);
    for (const PlainOperation& plain : PlainOperations) {
        QAbstractButton* const button = MakeOperationButton(plain, line);
        connect(button, &QAbstractButton::clicked, this, [this, &plain] {
            Change(Back::Kept, [&plain](Lead& effect) { (effect.*plain.operation)(); });
        });
        row->addWidget(button, plain.face == Face::None ? 1 : 0);
    }
    return line;
}

QWidget* Visual::BuildRotation()
{
    auto* box = new QGroupBox(QStringLiteral("Rotate"), this);
    auto* column = new QVBoxLayout(box);
    column->setSpacing(Gap);
    auto* line = new QHBoxLayout;
    Space(*line);
    auto* apply = new QPushButton(QStringLiteral("Angle"), box);
    apply->setObjectName(QStringLiteral("AngleBut"));
    apply->setProperty("Tag", QStringLiteral("Click to Apply"));
    connect(apply, &QPushButton::clicked, this, &Visual::TurnByAngle);
    Angle = new QSlider(Qt::Horizontal, box);
    Angle->setObjectName(QStringLiteral("Angle"));
    Angle->setAccessibleName(QStringLiteral("Angle slider"));
    Angle->setProperty("Tag", QStringLiteral("Tenths of a degree, clockwise."));
    Angle->setRange(-AngleEnd, AngleEnd);
    Angle->setPageStep(AngleStep);
    auto* readOut = new DigitLabel(box);
    readOut->setObjectName(QStringLiteral("AnswerAngle"));
    readOut->SetSample(QStringLiteral("-3600"));
    readOut->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    readOut->setText(QString::number(Angle->value()));
    AnswerAngle = readOut;
    connect(Angle, &QSlider::valueChanged, readOut,
        [readOut](int value) { readOut->setText(QString::number(value)); });
    line->addWidget(apply);
    line->addWidget(Angle, 1);
    line->addWidget(readOut);
    column->addLayout(line);
    auto* foot = new QHBoxLayout;
    Space(*foot, Gap);
    Check1 = new QCheckBox(QStringLiteral("Resize to fit?"), box);
    Check1->setObjectName(QStringLiteral("Check1"));
    foot->addWidget(Check1, 1);
    for (const Turn& turn : Turns) {
        auto* button = new QPushButton(QString::fromUtf8(turn.caption), box);
        button->setObjectName(QStringLiteral("Rotate(%1)").arg(turn.index));
        button->setAccessibleName(QLatin1String(turn.title));
        button->setProperty("Tag", QLatin1String(turn.title));
        connect(button, &QPushButton::clicked, this, [this, &turn] {
            Change(Back::LeftAsItIs,
                [&turn](Lead& effect) { effect.Rotate(turn.angle, true, Qt::white); });
        });
        foot->addWidget(button);
    }
    column->addLayout(foot);
    return box;
}

QWidget* Visual::BuildFoot()
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    Space(*row);
    constexpr Command open { "VideoSoftElastic6", "Open Different &Graphic File To Edit",
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
    for (const Command& command : FootCommands) {
        QAbstractButton* const button = MakeButton(command, foot);
        button->setEnabled(command.act != nullptr);
        row->addWidget(button);
    }
    return foot;
}
