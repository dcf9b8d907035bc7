#include "text/GetFonts.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "app/Talk.h"
#include "text/FontLists.h"
#include "text/PrintUserText.h"
#include "text/TextEffects.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>

#include <utility>

namespace {

constexpr int SampleHeight = 160;
/// Where the text stands on captures may lie outside the sample.
constexpr float SamplePlace = 16;

/// In the order in which they are read.
constexpr Key Effects[] = { Key::UseShadows, Key::TextShadowPosX, Key::TextShadowPosY,
    Key::WatermarkTextStyle, Key::sFontWatermarkTextAngle, Key::sFontShadowColor, Key::sFontBorderColor };
constexpr Key FontKeys[] = { Key::SFontName, Key::SFontSize, Key::SFontBold, Key::SFontItalic,
    Key::sFontColor, Key::sFontText };

} // namespace

GetFonts::GetFonts(Frame& frame, QWidget* owner, AskColor askColor)
    : FormDialog(frame.State(), owner, QStringLiteral("GetFonts"))
    , frame_(frame)
    , font_(new FontLists(this))
    , effects_(new TextEffects(std::move(askColor), this))
    , Lead1(new Lead(this))
    , Command1(new QPushButton(this))
    , CmdOK(new TAQbutton(this))
{
    SetTitle(QStringLiteral("Get Font"));
    Build();
    Load();
    Bind();
    Dress();
}

void GetFonts::Build()
{
    AddCloseButton();
    Lead1->setObjectName(QStringLiteral("Lead1"));
    Lead1->setAccessibleName(QStringLiteral("Sample"));

    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(3 * Grid, 3 * Grid, 3 * Grid, 3 * Grid);
    column->setSpacing(3 * Grid);
    QWidget* const choice = BuildChoice();
    column->addWidget(choice);
    Lead1->setFixedSize(choice->sizeHint().width(), SampleHeight);
    column->addWidget(Lead1);
    column->addWidget(BuildFoot());
    AddBody(body);
    KeepFitting();
    font_->setFocus();
}

QWidget* GetFonts::BuildChoice()
{
    auto* choice = new QWidget(this);
    auto* row = new QHBoxLayout(choice);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4 * Grid);
    row->addWidget(font_);
    row->addWidget(effects_);
    return choice;
}

QWidget* GetFonts::BuildFoot()
{
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setText(QStringLiteral("Black background"));
    Command1->setProperty("Tag", QStringLiteral("Switch background color from white to black."));
    Command1->setAutoDefault(false);
    CmdOK->setObjectName(QStringLiteral("CmdOK"));
    CmdOK->SetFace(Face::Save);
    CmdOK->SetCaption(QStringLiteral("Save"));
    CmdOK->setProperty("Tag", QStringLiteral("Save font."));

    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(Command1);
    row->addStretch();
    row->addWidget(CmdOK);
    return foot;
}

void GetFonts::Bind()
{
    connect(font_, &FontLists::Changed, this, &GetFonts::TakeChoice);
    connect(effects_, &TextEffects::Changed, this, &GetFonts::TakeChoice);
    connect(Command1, &QPushButton::clicked, this, &GetFonts::SwitchBackground);
    connect(CmdOK, &TAQbutton::Click, this, &GetFonts::Save);
}

void GetFonts::Load()
{
    for (const Key key : Effects)
        frame_.State().Reload(key);
    chosen_ = frame_.State();
    effects_->Show(chosen_);
    font_->Show(chosen_);
    TakeChoice();
}

void GetFonts::TakeChoice()
{
    font_->Take(chosen_);
    effects_->Take(chosen_);
    ShowSample();
}

void GetFonts::SwitchBackground()
{
    isBlack_ = !isBlack_;
    Command1->setText(isBlack_ ? QStringLiteral("White background") : QStringLiteral("Black background"));
    ShowSample();
}

void GetFonts::ShowSample()
{
    TextSettings shown = chosen_;
    shown.PositionX = shown.PositionY = SamplePlace;
    if (shown.sFontText.trimmed().isEmpty())
        shown.sFontText = shown.SFontName;
    QImage ground(Lead1->size(), QImage::Format_BGR888);
    ground.fill(isBlack_ ? Qt::black : Qt::white);
    Lead1->SetBitmap(ground);
    Lead1->Font.Bold = shown.SFontBold;
    IgnoreErrors([&] { PrintUserText(*Lead1, shown); }); // without memory for it the sample stays blank
}

void GetFonts::Save()
{
    static_cast<TextSettings&>(frame_.State()) = chosen_;
    const bool areEffectsStored = frame_.State().Keep(Effects);
    const bool isFontStored = frame_.State().Keep(FontKeys);
    const QPointer<GetFonts> alive(this);
    if (!areEffectsStored || !isFontStored)
        frame_.Errors().Show(this, QStringLiteral("Error!"),
            QStringLiteral("The font could not be stored. It is used until the program ends."));
    if (alive)
        accept();
}
