#include "edit/SliderRow.h"

#include "toolkit/Style.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace {

constexpr int LeastBarWidth = 120;
constexpr int ButtonPadding = 9 * Grid;
constexpr auto WidestNumber = "-10000";

} // namespace

int SliderRow::ButtonWidth(const QFontMetrics& metrics)
{
    int widest = 0;
    for (const EffectRow& row : EffectRows())
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1String(row.label)));
    return widest + ButtonPadding;
}

SliderRow::SliderRow(int index, QWidget* parent)
    : QWidget(parent)
    , row_(EffectRows()[size_t(index)])
    , button_(new QPushButton(QLatin1String(row_.label), this))
    , TScrolls(new QSlider(Qt::Horizontal, this))
    , Answer(new QLineEdit(this))
{
    Build(index);
    TScrolls->setRange(row_.min, row_.max);
    TScrolls->setPageStep(row_.largeStep);
    TScrolls->setValue(row_.start);
    Bind();
    ShowAnswer();
}

void SliderRow::Build(int index)
{
    button_->setObjectName(QLatin1String(row_.button));
    button_->setProperty("Tag", QStringLiteral("Click to Apply"));
    const QString label = QLatin1String(row_.label);
    TScrolls->setObjectName(QStringLiteral("TScrolls(%1)").arg(index));
    TScrolls->setAccessibleName(label + QStringLiteral(" slider"));
    TScrolls->setMinimumWidth(LeastBarWidth);
    Answer->setObjectName(QStringLiteral("Answer(%1)").arg(index));
    Answer->setAccessibleName(label + QStringLiteral(" amount"));
    Answer->setAlignment(Qt::AlignRight);
    Answer->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1String(WidestNumber)) + 4 * Grid);
    auto* line = new QGridLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setHorizontalSpacing(2 * Grid);
    line->setColumnMinimumWidth(0, ButtonWidth(button_->fontMetrics()));
    line->setColumnStretch(1, 1);
    line->addWidget(button_, 0, 0);
    line->addWidget(TScrolls, 0, 1);
    line->addWidget(Answer, 0, 2);
}

void SliderRow::Bind()
{
    connect(button_, &QPushButton::clicked, this, &SliderRow::Apply);
    // The box is still at work when it tells of the key, and the operation may end with the editor closed.
    connect(Answer, &QLineEdit::returnPressed, this, &SliderRow::Apply, Qt::QueuedConnection);
    connect(Answer, &QLineEdit::textChanged, this, &SliderRow::TakeText);
    connect(Answer, &QLineEdit::editingFinished, this, [this] {
        if (Answer->isModified())
            ShowValue();
    });
    connect(TScrolls, &QSlider::valueChanged, this, &SliderRow::ShowValue);
}

void SliderRow::ShowValue()
{
    Answer->setText(QString::number(Value()));
}

void SliderRow::TakeText(const QString& text)
{
    // What is being typed stands until that is over; the slider's number would replace it.
    const bool isTyped = Answer->isModified();
    const bool isBeginning = isTyped && AnswerText::IsBeginning(text, row_);
    if (const QString held = AnswerText::Held(text, row_); held != text && !isBeginning)
        return Answer->setText(held); // which comes back here
    const QSignalBlocker silence(isTyped ? TScrolls : nullptr);
    TScrolls->setValue(AnswerText::Number(text));
}

int SliderRow::Value() const
{
    return TScrolls->value();
}

void SliderRow::SetValue(int value)
{
    TScrolls->setValue(value);
}

void SliderRow::SetText(const QString& text)
{
    Answer->setText(text);
}

void SliderRow::ShowAnswer()
{
    ShowValue();
    default_ = Value();
}

void SliderRow::SelectAnswer()
{
    Answer->selectAll();
}

void SliderRow::ReAnswer()
{
    Answer->setText(QString::number(default_));
    TScrolls->setValue(default_);
}
