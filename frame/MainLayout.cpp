// How the frame is made up of its parts, from top to bottom.
#include "app/ApplicationState.h"
#include "app/Lead.h"
#include "frame/CommandTable.h"
#include "frame/EmptyState.h"
#include "frame/Main.h"
#include "frame/PaneKeys.h"
#include "toolkit/DigitLabel.h"
#include "toolkit/FrameDrag.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/TitleStrip.h"
#include "video/TransportPane.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int FootHeight = 24;
constexpr int StartWidth = 1120;

/// The status labels from left to right, with the widest text that each must hold without jumping.
struct LabelRow {
    StatusLabel label;
    const char* objectName;
    const char* sample;
};
constexpr LabelRow LabelRows[] {
    { StatusLabel::Operation, "LblMsg1(0)", "" },
    { StatusLabel::Flashing, "Label3", "" },
    { StatusLabel::AutoCapture, "Label2", "" },
    { StatusLabel::Watermark, "LblWatermark", "" },
    { StatusLabel::Position, "LblMsg1(1)", "00:00:00  -  00:00:00  Time" },
    { StatusLabel::FrameNumber, "LblMsg1(2)", "Frame: 000000" },
    { StatusLabel::Percent, "LblMsg1(3)", "100%" },
};

template <typename Button>
Button* MakeHeadButton(const char* objectName, Face face, const char* name, TitleStrip* strip)
{
    auto* button = new Button(strip);
    button->setObjectName(QLatin1String(objectName));
    button->SetFace(face);
    button->setAccessibleName(QLatin1String(name));
    return button;
}

} // namespace

void Main::Build()
{
    setObjectName(QStringLiteral("Main"));
    setAcceptDrops(true);
    resize(qMin(StartWidth, screen()->availableSize().width()), height());
    drag_ = new FrameDrag(this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    BuildHead(column);
    BuildCommands(column);
    BuildArea(column);
    BuildFoot(column);
    thumbHold_ = new Lead(this);
    thumbHold_->setObjectName(QStringLiteral("ThumbHold"));
    thumbHold_->hide();
    new PaneKeys(*this,
        { [this] { return TopBack; }, [this] { return commands_; },
            [this]() -> QWidget* {
                QMdiSubWindow* const child = area_->currentSubWindow();
                return child ? child : static_cast<QWidget*>(emptyState_);
            },
            [this] { return BottomPane; } });
    emptyState_->setFocus();
}

void Main::BuildHead(QVBoxLayout* column)
{
    TopBack = new TitleStrip(this);
    TopBack->setObjectName(QStringLiteral("TopBack"));
    TopBack->SetTitle(QStringLiteral("TAQ Video Capture Pro"));
    Image3 = MakeHeadButton<xptopbuttons>("Image3", Face::Menu, "Menu", TopBack);
    TopBack->AddLeading(Image3);
    front1 = MakeHeadButton<Front>("front1", Face::BringToFront, "Bring video to front", TopBack);
    auto* help = MakeHeadButton<xphelp>("xphelp1", Face::Help, "Help", TopBack);
    auto* minimize = MakeHeadButton<xptopbuttons>("ToolBarPic(2)", Face::Minimize, "Minimize", TopBack);
    maximize_ = MakeHeadButton<xptopbuttons>("ToolBarPic(1)", Face::None, "Maximize or restore", TopBack);
    maximize_->SetValue(WindowButton::Maximize);
    auto* close = MakeHeadButton<xptopbuttons>("ToolBarPic(0)", Face::Close, "Close", TopBack);
    for (StripButton* button : { front1, static_cast<StripButton*>(help), static_cast<StripButton*>(minimize),
             maximize_, static_cast<StripButton*>(close) })
        TopBack->AddButton(button);
    front1->hide();
    connect(Image3, &StripButton::Click, this, &Main::ShowPopup);
    connect(front1, &StripButton::Click, this, [this] { AddChild(&CurrentVideo()); });
    connect(help, &StripButton::Click, this, &Main::OpenHelp);
    connect(minimize, &StripButton::Click, this, &QWidget::showMinimized);
    connect(maximize_, &StripButton::Click, this, &Main::ToggleMaximized);
    connect(close, &StripButton::Click, this, &QWidget::close);
    column->addWidget(TopBack);
}

void Main::BuildCommands(QVBoxLayout* column)
{
    commands_ = new QWidget(this);
    commands_->setObjectName(QStringLiteral("VideoSoftElastic1"));
    auto* row = new QHBoxLayout(commands_);
    row->setContentsMargins(2 * Grid, Grid, 2 * Grid, Grid);
    row->setSpacing(Grid);
    for (const CommandRow& command : CommandTable) {
        auto* button = new TAQbutton(commands_);
        button->setObjectName(QStringLiteral("Cmds(%1)").arg(int(command.command)));
        button->SetFace(command.face);
        button->SetCaption(QLatin1String(command.caption));
        button->setAccessibleName(QLatin1String(command.caption));
        button->setProperty("Tag", QLatin1String(command.tip));
        button->setEnabled(command.isUsableAtStart);
        Cmds[size_t(command.command)] = button;
        row->addWidget(button);
    }
    row->addStretch();
    column->addWidget(commands_);
}

void Main::BuildArea(QVBoxLayout* column)
{
    area_ = new QMdiArea(this);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    // When a window closes, the one used before it comes up.
    area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    area_->viewport()->installEventFilter(this);
    emptyState_ = new EmptyState(area_->viewport());
    connect(emptyState_, &EmptyState::Opens, this, [this] {
        RevealVideoWindow();
        PumpEvents();
    });
    // Between windows the prompt would only stand in the way.
    connect(area_, &QMdiArea::subWindowActivated, emptyState_, [this] {
        const auto forms = area_->subWindowList();
        emptyState_->setVisible(std::ranges::none_of(forms, &QWidget::isVisible));
    });
    column->addWidget(area_, 1);
}

void Main::BuildFoot(QVBoxLayout* column)
{
    BottomPane = new TransportPane(this);
    column->addWidget(BottomPane);
    auto* foot = new QWidget(this);
    foot->setObjectName(QStringLiteral("VideoSoftElastic3"));
    foot->setMinimumHeight(FootHeight);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(2 * Grid, 0, SizeGrip::Side + Grid, 0);
    row->setSpacing(4 * Grid);
    for (const LabelRow& line : LabelRows) {
        auto* label = new DigitLabel(foot);
        label->setObjectName(QLatin1String(line.objectName));
        label->SetSample(QLatin1String(line.sample));
        labels_[size_t(line.label)] = label;
        if (line.label == StatusLabel::Position)
            row->addStretch();
        row->addWidget(label);
    }
    column->addWidget(foot);
    Image2 = new SizeGrip(*drag_, this);
    Image2->setObjectName(QStringLiteral("Image2"));
}
