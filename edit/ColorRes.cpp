#include "edit/ColorRes.h"

#include "app/ApplicationState.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "edit/OptionGroup.h"
#include "toolkit/HeadButtons.h"

#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int Gap = 4; // the grid
constexpr int MostPaletteBits = 8;

constexpr Option Depths[] = {
    { 1, "&1 Bit" },
    { 4, "&4 Bits" },
    { 8, "&8 Bits" },
    { 16, "1&6 Bits" },
    { 24, "&24 Bits" },
    { 32, "&32 Bits" },
};
constexpr Option Ditherings[] = {
    { 0, "&No Dithering" },
    { 1, "&Floyd Stein" },
    { 2, "&Stucki" },
    { 3, "&Burkes" },
    { 4, "S&ierra" },
    { 5, "S&tevenson Arce" },
    { 6, "&Jarvis" },
    { 7, "&Ordered" },
};
enum PaletteIndex { OrderRgb = 0, Fixed = 1, OrderBgr = 4 };
constexpr Option PaletteKinds[] = {
    { Fixed, "Fi&xed" },
    { 2, "O&ptimized" },
    { 8, "I&dentity" },
};
constexpr Option HighColors[] = {
    { OrderRgb, "Order &RGB" },
    { OrderBgr, "Order &BGR" },
};
enum DitheringIndex { NoDithering = 0, FloydStein = 1 };

/// A box with a heading and a column of options in it.
OptionGroup* AddGroup(QBoxLayout& layout, const char* heading, const char* name,
    std::span<const Option> options, QWidget* parent)
{
    auto* box = new QGroupBox(QLatin1String(heading), parent);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(Gap, Gap, Gap, Gap);
    column->setSpacing(2 * Gap);
    auto* group = new OptionGroup(QLatin1String(name), options, box);
    for (QAbstractButton* const button : group->buttons())
        column->addWidget(button);
    column->addStretch();
    layout.addWidget(box);
    return group;
}

} // namespace

ColorRes::ColorRes(Frame& frame, QWidget* owner, int bitmapBits)
    : DialogForm(owner)
    , frame_(frame)
{
    setObjectName(QStringLiteral("ColorRes"));
    SetTitle(QStringLiteral("Color Resolution"));
    Build();
    AddShadow(*this, frame_.State());
    frame_.State().ApplyToolTips(*this);
    Load(bitmapBits);
    connect(bits_, &QButtonGroup::idClicked, this, &ColorRes::EnableFor);
}

void ColorRes::Build()
{
    static constexpr FormButton<ColorRes> CloseButton { 0, Face::Close, "Cancel and Close. ",
        "Cancel and close", [](ColorRes& form) { form.reject(); } };
    Head().AddButton(MakeFormButton<smallXPbuttons>(CloseButton, *this, this));
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(3 * Gap, 3 * Gap, 3 * Gap, 3 * Gap);
    column->setSpacing(3 * Gap);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * Gap);
    BuildChoices(*row);
    column->addLayout(row);
    column->addWidget(BuildFoot());
    AddBody(body);
    KeepFitting();
}

void ColorRes::BuildChoices(QBoxLayout& row)
{
    bits_ = AddGroup(row, "Pixel Depth", "Bits", Depths, this);
    auto* palettes = new QVBoxLayout;
    palettes->setSpacing(3 * Gap);
    row.addLayout(palettes);
    palettes_ = AddGroup(*palettes, "Palettes", "Palettes", PaletteKinds, this);
    highColor_ = AddGroup(*palettes, "High Color", "Palettes", HighColors, this);
    dithering_ = AddGroup(row, "Dithering Methods", "Dithering", Ditherings, this);
}

QWidget* ColorRes::BuildFoot()
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * Gap);
    auto* accept = new QPushButton(QStringLiteral("Accept"), foot);
    accept->setObjectName(QStringLiteral("Cmd1"));
    accept->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), foot);
    cancel->setObjectName(QStringLiteral("Cmd2"));
    cancel->setAutoDefault(false);
    row->addStretch();
    row->addWidget(accept);
    row->addWidget(cancel);
    connect(accept, &QPushButton::clicked, this, &ColorRes::accept);
    connect(cancel, &QPushButton::clicked, this, &ColorRes::reject);
    return foot;
}

void ColorRes::Load(int bitmapBits)
{
    bits_->Choose(bitmapBits);
    palettes_->Choose(Fixed);
    highColor_->Choose(OrderBgr);
    dithering_->Choose(bitmapBits > MostPaletteBits ? NoDithering : FloydStein);
    EnableFor(bitmapBits);
    bits_->checkedButton()->setFocus();
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
}

void ColorRes::EnableFor(int bits)
{
    const bool hasPalette = bits <= MostPaletteBits;
    dithering_->SetEnabled(hasPalette);
    palettes_->SetEnabled(hasPalette);
    highColor_->SetEnabled(!hasPalette);
}

int ColorRes::GetBits() const
{
    return bits_->Chosen();
}

int ColorRes::GetPalette() const
{
    return GetBits() <= MostPaletteBits ? palettes_->Chosen() : highColor_->Chosen();
}

int ColorRes::GetDither() const
{
    return dithering_->Chosen();
}

void ColorRes::done(int result)
{
    if (FadeAtClosing(*this, frame_.State()))
        DialogForm::done(result);
}
