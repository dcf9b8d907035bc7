#include "toolkit/TAQbutton.h"

#include "toolkit/Strip.h"
#include "toolkit/Style.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int Margin = 6;
constexpr int Gap = 3;
constexpr int MinimumWidth = 64;

} // namespace

TAQbutton::TAQbutton(QWidget* parent)
    : StripControl(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TAQbutton::SetState(int state)
{
    state_ = state;
    update();
}

void TAQbutton::SetCaption(const QString& caption)
{
    caption_ = caption;
    NameAfter(caption.trimmed());
    updateGeometry();
    update();
}

QColor TAQbutton::ForeColor() const
{
    return foreColor_.isValid() ? foreColor_ : StyleColor(Token::Text);
}

void TAQbutton::SetForeColor(const QColor& color)
{
    foreColor_ = color;
    update();
}

void TAQbutton::SetFace(Face face)
{
    face_ = face;
    update();
}

ButtonLook TAQbutton::ShownLook() const
{
    return LookWhen(state_ != 0);
}

QSize TAQbutton::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int width = std::max(MinimumWidth, metrics.horizontalAdvance(caption_) + 2 * Margin + 2);
    return { width, Margin + Strip::CellSize + Gap + metrics.height() + Margin };
}

void TAQbutton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ButtonLook look = ShownLook();
    const QColor mark = PaintButtonGround(painter, rect().adjusted(1, 1, -1, -1), FactsOf(face_).tone, look);
    const bool ownColor = foreColor_.isValid() && look != ButtonLook::Disabled;
    const QRect inside = rect().translated(0, look == ButtonLook::Pressed ? 1 : 0);
    Strip::Paint(painter, { inside.x(), inside.y() + Margin, inside.width(), Strip::CellSize }, face_, mark);
    painter.setPen(ownColor ? foreColor_ : mark);
    painter.drawText(inside.adjusted(0, Margin + Strip::CellSize + Gap, 0, -Margin + 1),
        Qt::AlignHCenter | Qt::AlignTop | Qt::TextSingleLine, caption_);
    if (HasFocusRing())
        PaintFocusRing(painter, rect());
}
