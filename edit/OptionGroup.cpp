#include "edit/OptionGroup.h"

#include <QRadioButton>

OptionGroup::OptionGroup(const QString& name, std::span<const Option> options, QWidget* parent)
    : QButtonGroup(parent)
{
    for (const Option& option : options) {
        auto* button = new QRadioButton(QLatin1String(option.caption), parent);
        button->setObjectName(QStringLiteral("%1(%2)").arg(name).arg(option.index));
        addButton(button, option.index);
    }
    Choose(options.front().index);
}

void OptionGroup::Choose(int index)
{
    QAbstractButton* const chosen = button(index);
    if (!chosen)
        return;
    chosen->setChecked(true);
    // The key Tab comes to the chosen one; of itself it follows the user's choices only.
    for (QAbstractButton* const one : buttons())
        one->setFocusPolicy(one == chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

void OptionGroup::SetEnabled(bool enabled)
{
    for (QAbstractButton* const one : buttons())
        one->setEnabled(enabled);
}
