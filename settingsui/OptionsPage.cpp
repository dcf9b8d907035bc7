#include "settingsui/OptionsPage.h"

#include "settingsui/NumberLine.h"
#include "settingsui/OptionFields.h"
#include "toolkit/Button_XP.h"
#include "toolkit/Style.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

namespace {

constexpr int NumberColumns = 6; // of a number's box, in average characters
constexpr int PagesOfSlider = 20;

} // namespace

OptionsPage::OptionsPage(OptionFields& fields)
    : fields_(fields)
    , column_(new QVBoxLayout(this))
{
    column_->setContentsMargins(3 * Grid, 3 * Grid, 3 * Grid, 3 * Grid);
    column_->setSpacing(2 * Grid);
}

QVBoxLayout& OptionsPage::AddGroup(QBoxLayout& layout, const char* heading)
{
    auto* group = new QGroupBox(QLatin1String(heading), this);
    auto* column = new QVBoxLayout(group);
    column->setContentsMargins(Grid, Grid, Grid, Grid);
    column->setSpacing(Grid);
    layout.addWidget(group);
    return *column;
}

QBoxLayout& OptionsPage::AddRow(QBoxLayout& layout)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * Grid);
    layout.addLayout(row);
    return *row;
}

void OptionsPage::Name(QWidget& control, const char* name, const char* spoken, const char* tip)
{
    control.setObjectName(QLatin1String(name));
    control.setAccessibleName(QString::fromLatin1(spoken).simplified());
    control.setProperty("Tag", QLatin1String(tip));
}

template <typename Control>
Control* OptionsPage::MakeControl(QBoxLayout& layout, const char* name, const char* caption, const char* tip)
{
    auto* control = new Control(this);
    control->setObjectName(QLatin1String(name));
    control->setProperty("Tag", QLatin1String(tip));
    control->SetCaption(QLatin1String(caption));
    layout.addWidget(control);
    return control;
}

xpcheckbox* OptionsPage::AddBox(QBoxLayout& layout, const BoxRow& row)
{
    auto* box = MakeControl<xpcheckbox>(layout, row.name, row.caption, row.tip);
    fields_.Add(row.key, FieldOf(*box));
    return box;
}

void OptionsPage::AddFlag(QBoxLayout& layout, const BoxRow& row)
{
    fields_.Add(row.key, FieldOf(*MakeControl<xpradiobutton>(layout, row.name, row.caption, row.tip)));
}

void OptionsPage::AddBoxes(std::span<const BoxRow> rows)
{
    for (const BoxRow& row : rows)
        AddBox(*column_, row);
}

std::vector<xpradiobutton*> OptionsPage::AddChoices(
    QBoxLayout& layout, Key key, Kept kept, std::span<const ChoiceRow> rows)
{
    std::vector<xpradiobutton*> buttons;
    std::vector<Choice> choices;
    for (const ChoiceRow& row : rows) {
        auto* button = MakeControl<xpradiobutton>(layout, row.name, row.caption, row.tip);
        const QString text = QLatin1String(row.text);
        if (kept == Kept::AtOnce)
            connect(button, &xpradiobutton::Click, this, [this, key, text] { fields_.Write(key, text); });
        buttons.push_back(button);
        choices.push_back({ button, text });
    }
    fields_.Add(key, FieldOf(choices));
    return buttons;
}

void OptionsPage::AddPair(QBoxLayout& layout, Key key, const PairRow (&rows)[2])
{
    xpcheckbox* boxes[2] {};
    for (int i = 0; i < 2; ++i) {
        boxes[i] = MakeControl<xpcheckbox>(layout, rows[i].name, rows[i].caption, rows[i].tip);
        if (rows[i].spoken)
            boxes[i]->setAccessibleName(QLatin1String(rows[i].spoken));
    }
    fields_.Add(key, FieldOfPair(*boxes[0], *boxes[1]));
}

NumberLine* OptionsPage::AddNumber(QGridLayout& grid, int line, const NumberRow& row)
{
    auto* box = new QLineEdit(this);
    Name(*box, row.box, row.spoken, row.tip);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(fontMetrics().averageCharWidth() * NumberColumns + 4 * Grid);
    auto* slider = new QSlider(Qt::Horizontal, this);
    Name(*slider, row.slider, row.spoken, row.tip);
    slider->setRange(row.min, row.max);
    slider->setPageStep(row.max / PagesOfSlider);
    grid.setHorizontalSpacing(2 * Grid);
    grid.setColumnStretch(3, 1);
    grid.addWidget(new QLabel(QLatin1String(row.before), this), line, 0);
    grid.addWidget(box, line, 1);
    grid.addWidget(new QLabel(QLatin1String(row.after), this), line, 2);
    grid.addWidget(slider, line, 3);
    auto* number = new NumberLine(*box, *slider);
    fields_.Add(row.key, FieldOf(*number));
    return number;
}

Button_XP* OptionsPage::AddCommand(QBoxLayout& layout, const char* name, const char* caption, const char* tip)
{
    auto* button = MakeControl<Button_XP>(layout, name, caption, tip);
    button->Set(&ButtonProperties::XPShowBorderAlways, 1);
    return button;
}
