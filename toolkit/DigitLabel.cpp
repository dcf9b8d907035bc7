#include "toolkit/DigitLabel.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

bool IsDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

int WidestDigit(const QFontMetrics& metrics)
{
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest;
}

} // namespace

DigitLabel::DigitLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void DigitLabel::SetSample(const QString& text)
{
    sample_ = text;
    updateGeometry();
}

int DigitLabel::CharacterWidth(QChar character) const
{
    return IsDigit(character) ? WidestDigit(fontMetrics()) : fontMetrics().horizontalAdvance(character);
}

int DigitLabel::TextWidth(const QString& text) const
{
    int width = 0;
    for (const QChar character : text)
        width += CharacterWidth(character);
    return width;
}

QSize DigitLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return { std::max(TextWidth(text()), TextWidth(sample_)) + margins.left() + margins.right(),
        fontMetrics().height() + margins.top() + margins.bottom() };
}

QSize DigitLabel::minimumSizeHint() const
{
    return sizeHint();
}

void DigitLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(isEnabled() ? QPalette::Normal : QPalette::Disabled, foregroundRole()));
    const QSize size(TextWidth(text()), fontMetrics().height());
    const QRect line = QStyle::alignedRect(layoutDirection(), alignment(), size, contentsRect());
    int x = line.x();
    for (const QChar character : text()) {
        const int width = CharacterWidth(character);
        painter.drawText(
            QRect(x, line.y(), width, line.height()), Qt::AlignCenter | Qt::TextDontClip, character);
        x += width;
    }
}
