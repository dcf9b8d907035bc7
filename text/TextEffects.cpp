#include "text/TextEffects.h"

#include "app/TextSettings.h"
#include "imaging/PictureText.h"
#include "text/ColorWell.h"
#include "text/FieldCheck.h"
#include "toolkit/Style.h"
#include "toolkit/SystemColors.h"
#include "toolkit/xpcheckbox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace {

constexpr int NumberColumns = 7; // of a number's box, in average characters
constexpr int LargestAngle = 360; // degrees

/// Where the controls stand, from top to bottom.
enum Row { FontColourRow, ShadowsRow, StyleRow, OffsetRow, AngleRow, BorderRow, ShadowColourRow };

struct NumberBox {
    const char* objectName;
    const char* caption; ///< in front of it; none for one that stands behind another
    const char* name; ///< for those who cannot see it
    const char* tip;
    Row row;
    int column;
    int max;
    qint16 TextSettings::*value;
};
constexpr NumberBox Numbers[] = {
    { "TextShadowX", "Shadow Offset:", "Shadow offset to the right", "Pixels to the right.", OffsetRow, 1,
        imaging::MaxShadowDepth, &TextSettings::TextShadowPosX },
    { "TextShadowY", "", "Shadow offset downwards", "Pixels down.", OffsetRow, 2, imaging::MaxShadowDepth,
        &TextSettings::TextShadowPosY },
    { "TextAngle", "Angle:", "Angle in degrees", "Degrees, against the clock.", AngleRow, 1, LargestAngle,
        &TextSettings::sFontWatermarkTextAngle },
};

struct Well {
    const char* objectName;
    const char* caption;
    const char* tip;
    Row row;
    qint32 TextSettings::*value;
    bool isEffect;
};
constexpr Well Wells[] = {
    { "FontColor", "Font Color", "Font color.", FontColourRow, &TextSettings::sFontColor, false },
    { "BorderBackColor", "Border Color", "Font outline color.", BorderRow, &TextSettings::sFontBorderColor,
        true },
    { "PicBackColor", "Shadow Color", "Font shadow color.", ShadowColourRow, &TextSettings::sFontShadowColor,
        true },
};

/// Begins a row with its caption.
QWidget* AddRow(QGridLayout& grid, Row row, const QString& caption)
{
    auto* label = new QLabel(caption, grid.parentWidget());
    grid.addWidget(label, row, 0);
    return label;
}

} // namespace

TextEffects::TextEffects(AskColor askColor, QWidget* parent)
    : QWidget(parent)
    , askColor_(std::move(askColor))
    , UseShadowYesNo(new xpcheckbox(this))
    , TextStyleCB(new QComboBox(this))
{
    Build();
    connect(UseShadowYesNo, &xpcheckbox::Click, this, [this] {
        SetShadows(UseShadowYesNo->Value() != xpcheckbox::Set); // the box turns over after its click
        Q_EMIT Changed();
    });
    connect(TextStyleCB, &QComboBox::currentIndexChanged, this, &TextEffects::Changed);
}

void TextEffects::Build()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * Grid);
    grid->setVerticalSpacing(2 * Grid);
    UseShadowYesNo->setObjectName(QStringLiteral("UseShadowYesNo"));
    UseShadowYesNo->SetCaption(QStringLiteral("Use Drop Down Shadow?"));
    grid->addWidget(UseShadowYesNo, ShadowsRow, 0, 1, 3);
    TextStyleCB->setObjectName(QStringLiteral("TextStyleCB"));
    TextStyleCB->setAccessibleName(QStringLiteral("Shadow style"));
    for (const imaging::TextStyleRow& row : imaging::TextStyles)
        TextStyleCB->addItem(QLatin1String(row.name));
    effects_ << AddRow(*grid, StyleRow, QStringLiteral("Shadow Style:")) << TextStyleCB;
    grid->addWidget(TextStyleCB, StyleRow, 1, 1, 2);
    AddNumbers(*grid);
    AddWells(*grid);
    grid->setRowStretch(grid->rowCount(), 1);
}

void TextEffects::AddNumbers(QGridLayout& grid)
{
    for (size_t number = 0; number < numbers_.size(); ++number) {
        const NumberBox& row = Numbers[number];
        auto* box = new QLineEdit(this);
        box->setObjectName(QLatin1String(row.objectName));
        box->setAccessibleName(QLatin1String(row.name));
        box->setProperty("Tag", QLatin1String(row.tip));
        box->setFixedWidth(fontMetrics().averageCharWidth() * NumberColumns + 4 * Grid);
        if (*row.caption)
            effects_ << AddRow(grid, row.row, QLatin1String(row.caption));
        effects_ << box;
        grid.addWidget(box, row.row, row.column);
        connect(box, &QLineEdit::textChanged, this, [this, number] { CheckNumber(number); });
        numbers_[number] = box;
    }
}

void TextEffects::AddWells(QGridLayout& grid)
{
    for (size_t well = 0; well < wells_.size(); ++well) {
        const Well& row = Wells[well];
        auto* box = new ColorWell(this);
        box->setObjectName(QLatin1String(row.objectName));
        box->setAccessibleName(QLatin1String(row.caption));
        box->setProperty("Tag", QLatin1String(row.tip));
        QWidget* const caption = AddRow(grid, row.row, QLatin1String(row.caption));
        grid.addWidget(box, row.row, 1, 1, 2);
        if (row.isEffect)
            effects_ << caption << box;
        connect(box, &ColorWell::Click, this, [this, well] { ChooseColor(well); });
        wells_[well] = box;
    }
}

void TextEffects::Show(const TextSettings& text)
{
    const QSignalBlocker silence(this);
    SetShadows(text.UseShadows);
    UseShadowYesNo->SetValue(usesShadows_ ? xpcheckbox::Set : xpcheckbox::Clear);
    for (size_t number = 0; number < numbers_.size(); ++number)
        numbers_[number]->setText(QString::number(text.*Numbers[number].value));
    const bool isStyle = text.WatermarkTextStyle >= 0 && text.WatermarkTextStyle < TextStyleCB->count();
    TextStyleCB->setCurrentIndex(isStyle ? text.WatermarkTextStyle : 0);
    for (size_t well = 0; well < wells_.size(); ++well)
        wells_[well]->SetColor(ColorOf(ColorNumber(text.*Wells[well].value)));
}

void TextEffects::Take(TextSettings& text) const
{
    text.UseShadows = usesShadows_;
    for (size_t number = 0; number < numbers_.size(); ++number)
        text.*Numbers[number].value = qint16(FieldCheck::NumberIn(numbers_[number]->text()));
    text.WatermarkTextStyle = qint16(TextStyleCB->currentIndex());
    for (size_t well = 0; well < wells_.size(); ++well)
        text.*Wells[well].value = qint32(NumberOf(wells_[well]->Color()));
}

/// Setting the text comes back here with one that stands.
void TextEffects::CheckNumber(size_t number)
{
    const QString typed = numbers_[number]->text();
    const QString held = FieldCheck::Within(typed, Numbers[number].max);
    if (held == typed)
        Q_EMIT Changed();
    else
        numbers_[number]->setText(held);
}

void TextEffects::ChooseColor(size_t well)
{
    const QColor color = askColor_(window(), QLatin1String(Wells[well].caption), wells_[well]->Color());
    if (!color.isValid())
        return;
    wells_[well]->SetColor(color);
    Q_EMIT Changed();
}

void TextEffects::SetShadows(bool on)
{
    usesShadows_ = on;
    for (QWidget* effect : effects_)
        effect->setEnabled(on);
}
