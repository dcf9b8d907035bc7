#include "viewers/ThumbCell.h"

#include "toolkit/Style.h"

#include <QPainter>

namespace {

constexpr int TintAlpha = 96;
constexpr int HighlightWidth = 2;

} // namespace

ThumbCell::ThumbCell(const QImage& picture, int number, QWidget* parent)
    : QAbstractButton(parent)
    , bitmap_(picture)
{
    setFixedSize(Size);
    setFocusPolicy(Qt::StrongFocus);
    setObjectName(QStringLiteral("Lead3(%1)").arg(number));
    setAccessibleName(QStringLiteral("Thumbnail %1").arg(number + 1));
}

void ThumbCell::Flash()
{
    isTinted_ = true;
    repaint();
    isTinted_ = false;
    update();
}

void ThumbCell::SetHighlighted(bool highlighted)
{
    isHighlighted_ = highlighted;
    update();
}

void ThumbCell::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), StyleColor(Token::Panel));
    QRect place(QPoint(), bitmap_.size().scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    painter.drawImage(place, bitmap_);
    if (isTinted_) {
        QColor tint = StyleColor(Token::Accent);
        tint.setAlpha(TintAlpha);
        painter.fillRect(rect(), tint);
    }
    if (isHighlighted_ || hasFocus()) {
        painter.setPen(QPen(StyleColor(Token::Accent), HighlightWidth));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}
