#include "settingsui/Field.h"

#include "app/SettingValue.h"
#include "settingsui/NumberLine.h"
#include "text/FieldCheck.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QComboBox>
#include <QPlainTextEdit>

namespace {

bool IsTrue(const QString& text)
{
    return SettingValue::Parse<bool>(text).value_or(false);
}

int ValueOf(bool isSet)
{
    return isSet ? xpcheckbox::Set : xpcheckbox::Clear;
}

bool EndsAlike(const QString& one, const QString& other)
{
    constexpr int Letters = 3;
    return one.right(Letters).compare(other.right(Letters), Qt::CaseInsensitive) == 0;
}

void ClearWith(const xpcheckbox& clicked, xpcheckbox& other)
{
    QObject::connect(&clicked, &xpcheckbox::Click, &other, [&other] { other.SetValue(xpcheckbox::Clear); });
}

} // namespace

Field FieldOf(xpcheckbox& box)
{
    return { [&box](const QString& text) { box.SetValue(ValueOf(IsTrue(text))); },
        [&box] { return SettingValue::Text(box.Value() == xpcheckbox::Set); } };
}

Field FieldOfPair(xpcheckbox& yes, xpcheckbox& no)
{
    ClearWith(yes, no);
    ClearWith(no, yes);
    return { [&yes, &no](const QString& text) {
                yes.SetValue(ValueOf(IsTrue(text)));
                no.SetValue(ValueOf(!IsTrue(text)));
            },
        FieldOf(yes).text };
}

Field FieldOf(xpradiobutton& flag)
{
    return { [&flag](const QString& text) { flag.SetValue(IsTrue(text)); },
        [&flag] { return SettingValue::Text(flag.Value()); } };
}

Field FieldOf(const std::vector<Choice>& choices)
{
    const auto show = [choices](const QString& text) {
        for (const Choice& choice : choices)
            choice.button->SetValue(EndsAlike(choice.text, text));
    };
    const auto chosen = [choices]() -> std::optional<QString> {
        for (const Choice& choice : choices)
            if (choice.button->Value())
                return choice.text;
        return {};
    };
    return { show, chosen };
}

Field FieldOf(NumberLine& line)
{
    return { [&line](const QString& text) { line.Show(FieldCheck::NumberIn(text)); },
        [&line] { return QString::number(line.Value()); } };
}

Field FieldOf(QPlainTextEdit& box)
{
    return { [&box](const QString& text) { box.setPlainText(text); },
        [&box] { return box.toPlainText().trimmed(); } };
}

Field FieldOf(QComboBox& list)
{
    const auto chosen = [&list]() -> std::optional<QString> {
        return list.currentIndex() < 0 ? std::nullopt : std::optional(QString::number(list.currentIndex()));
    };
    return { [&list](const QString& text) { list.setCurrentIndex(FieldCheck::NumberIn(text)); }, chosen };
}
