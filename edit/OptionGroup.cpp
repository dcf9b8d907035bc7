#include "edit/OptionGroup.h"

#include <QBoxLayout>
#include <QRadioButton>

OptionGroup::OptionGroup(
    const QString& name, std::span<const Option> options, QBoxLayout& layout, QWidget* parent)
    : QButtonGroup(parent)
{
    for (const Option& option : options) {
        auto* button = new QRadioButton(QLatin1String(option.caption), parent);
        button->setObjectName(QStringLiteral("%1(%2)").arg(name).arg(option.index));
        addButton(button, option.index);
        layout.addWidget(button);
    }
    Choose(options.front().index);
}

void OptionGroup::Choose(int index)
{
    if (QAbstractButton* const one = button(index))
        one->setChecked(true);
}

void OptionGroup::SetEnabled(bool enabled)
{
    for (QAbstractButton* const one : buttons())
        one->setEnabled(enabled);
}
