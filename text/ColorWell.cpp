#include "text/ColorWell.h"

#include "toolkit/Style.h"

#include <QPainter>

namespace {

constexpr QSizeF Size { 3.5, 1.75 }; // in heights of the font
constexpr double Corner = 4; // as the style's other boxes have
constexpr double DimmedOpacity = 0.35;

} // namespace

ColorWell::ColorWell(QWidget* parent)
    : StripControl(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColorWell::SetColor(const QColor& color)
{
    color_ = color;
    setAccessibleDescription(color.name());
    update();
}

QSize ColorWell::sizeHint() const
{
    return (Size * fontMetrics().height()).toSize();
}

void ColorWell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isLit = HasFocusRing() || ShownState() == State::Pressed;
    const Token edge =
        isLit ? Token::Accent : ShownState() == State::Hover ? Token::TextDisabled : Token::LineInside;
    painter.setPen(StyleColor(edge));
    painter.setBrush(StyleColor(Token::Control));
    const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, Corner, Corner);
    painter.setOpacity(isEnabled() ? 1 : DimmedOpacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color_);
    painter.drawRoundedRect(box.adjusted(3, 3, -3, -3), Corner / 2, Corner / 2);
}
