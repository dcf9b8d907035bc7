#include "settingsui/NumberLine.h"

#include "text/FieldCheck.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <limits>

namespace {

QString DigitsOf(const QString& text)
{
    QString digits;
    std::ranges::copy_if(
        text, std::back_inserter(digits), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits;
}

/// As if it had been typed.
void Retype(QLineEdit& box, const QString& text)
{
    const int behind = int(box.text().size()) - box.cursorPosition();
    box.setText(text);
    box.setModified(true);
    box.setCursorPosition(std::max(0, int(text.size()) - behind));
}

} // namespace

NumberLine::NumberLine(QLineEdit& box, QSlider& slider)
    : QObject(&box)
    , box_(box)
    , slider_(slider)
{
    box_.setInputMethodHints(Qt::ImhDigitsOnly);
    connect(&box_, &QLineEdit::textEdited, this, &NumberLine::TakeTyped);
    connect(&box_, &QLineEdit::textChanged, this, &NumberLine::TakeText);
    connect(&box_, &QLineEdit::editingFinished, this, &NumberLine::EndTyping);
    connect(&slider_, &QSlider::valueChanged, this, [this](int value) {
        box_.setText(QString::number(value));
        Q_EMIT Moved(value);
    });
}

void NumberLine::Show(int number)
{
    box_.setText(QString::number(number));
}

qint16 NumberLine::Value() const
{
    using Bounds = std::numeric_limits<qint16>;
    if (box_.text().isEmpty())
        return qint16(slider_.value());
    const int least = box_.isModified() ? slider_.minimum() : int(Bounds::min());
    return qint16(std::clamp(FieldCheck::NumberIn(box_.text()), least, int(Bounds::max())));
}

void NumberLine::TakeTyped(const QString& typed)
{
    const QString held = FieldCheck::Within(DigitsOf(typed), slider_.maximum());
    if (held != typed)
        Retype(box_, held);
}

void NumberLine::TakeText()
{
    const QString text = box_.text(); // the signal's own may be one that was mended meanwhile
    if (text.isEmpty())
        return;
    {
        const QSignalBlocker silence(slider_); // its number would replace what is being typed
        slider_.setValue(FieldCheck::NumberIn(text));
    }
    Q_EMIT Moved(slider_.value());
}

void NumberLine::EndTyping()
{
    if (box_.isModified())
        box_.setText(QString::number(slider_.value()));
}
