#include "edit/ColorRes.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "edit/OptionGroup.h"
#include "imaging/ColorResolution.h"
#include "toolkit/Style.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QScreen>
#include <QVBoxLayout>

using imaging::Dithering;
using imaging::PaletteKind;

namespace {

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
    { int(Dithering::None), "&No Dithering" },
    { int(Dithering::FloydSteinberg), "&Floyd Stein" },
    { int(Dithering::Stucki), "&Stucki" },
    { int(Dithering::Burkes), "&Burkes" },
    { int(Dithering::Sierra), "S&ierra" },
    { int(Dithering::StevensonArce), "S&tevenson Arce" },
    { int(Dithering::Jarvis), "&Jarvis" },
    { int(Dithering::Ordered), "&Ordered" },
};
constexpr Option PaletteKinds[] = {
    { int(PaletteKind::Fixed), "Fi&xed" },
    { int(PaletteKind::Optimized), "O&ptimized" },
    { int(PaletteKind::Identity), "I&dentity" },
};
constexpr Option HighColors[] = {
    { int(PaletteKind::OrderRgb), "Order &RGB" },
    { int(PaletteKind::OrderBgr), "Order &BGR" },
};

/// A box with a heading and a column of options in it.
OptionGroup* AddGroup(QBoxLayout& layout, const char* heading, const char* name,
    std::span<const Option> options, QWidget* parent)
{
    auto* box = new QGroupBox(QLatin1String(heading), parent);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(Grid, Grid, Grid, Grid);
    column->setSpacing(2 * Grid);
    auto* group = new OptionGroup(QLatin1String(name), options, box);
    for (QAbstractButton* const button : group->buttons())
        column->addWidget(button);
    column->addStretch();
    layout.addWidget(box);
    return group;
}

} // namespace

ColorRes::ColorRes(Frame& frame, QWidget* owner, int bitmapBits)
    : FormDialog(frame.State(), owner, QStringLiteral("ColorRes"))
{
    SetTitle(QStringLiteral("Color Resolution"));
    Build();
    Dress();
    Load(bitmapBits);
    connect(bits_, &QButtonGroup::idClicked, this, &ColorRes::EnableFor);
}

void ColorRes::Build()
{
    AddCloseButton();
    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(3 * Grid, 3 * Grid, 3 * Grid, 3 * Grid);
    column->setSpacing(3 * Grid);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * Grid);
    BuildChoices(*row);
    column->addLayout(row);
    column->addWidget(MakeFoot("Cmd1", "Cmd2"));
    AddBody(body);
    KeepFitting();
}

void ColorRes::BuildChoices(QBoxLayout& row)
{
    bits_ = AddGroup(row, "Pixel Depth", "Bits", Depths, this);
    auto* palettes = new QVBoxLayout;
    palettes->setSpacing(3 * Grid);
    row.addLayout(palettes);
    palettes_ = AddGroup(*palettes, "Palettes", "Palettes", PaletteKinds, this);
    highColor_ = AddGroup(*palettes, "High Color", "Palettes", HighColors, this);
    dithering_ = AddGroup(row, "Dithering Methods", "Dithering", Ditherings, this);
}

void ColorRes::Load(int bitmapBits)
{
    bits_->Choose(bitmapBits);
    palettes_->Choose(int(PaletteKind::Fixed));
    highColor_->Choose(int(PaletteKind::OrderBgr));
    dithering_->Choose(int(bitmapBits > MostPaletteBits ? Dithering::None : Dithering::FloydSteinberg));
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

int ColorRes::GetColours() const
{
    return GetBits() <= MostPaletteBits ? 1 << GetBits() : 0;
}

int ColorRes::GetPalette() const
{
    return GetBits() <= MostPaletteBits ? palettes_->Chosen() : highColor_->Chosen();
}

int ColorRes::GetDither() const
{
    return dithering_->Chosen();
}
