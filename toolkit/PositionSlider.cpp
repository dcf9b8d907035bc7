#include "toolkit/PositionSlider.h"

#include "toolkit/ButtonPaint.h"
#include "toolkit/Style.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int GrooveHeight = 4;
constexpr int HandleSide = 14;
constexpr int SideMargin = HandleSide / 2 + 2;
constexpr int PreferredHeight = 24;
// A page is a tenth of the scale, an arrow key a hundredth.
constexpr int Pages = 10;
constexpr int Steps = 100;

void FillRounded(QPainter& painter, const QRectF& area, Token token)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(StyleColor(token));
    painter.drawRoundedRect(area, area.height() / 2, area.height() / 2);
}

} // namespace

PositionSlider::PositionSlider(QWidget* parent)
    : QAbstractSlider(parent)
{
    setOrientation(Qt::Horizontal);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // What reaches the slider past its own handlers is an assistive technology acting for the user.
    connect(this, &QAbstractSlider::actionTriggered, this, [this] { MoveByUser(sliderPosition()); });
}

void PositionSlider::SetMax(int max)
{
    setRange(0, std::max(0, max));
    setPageStep(std::max(1, Max() / Pages));
    setSingleStep(std::max(1, Max() / Steps));
    update();
}

void PositionSlider::SetValue(int value)
{
    if (!isSliderDown())
        setValue(value);
}

void PositionSlider::SetSelStart(int start)
{
    selStart_ = start;
    update();
}

void PositionSlider::SetSelLength(int length)
{
    selLength_ = length;
    update();
}

QSize PositionSlider::sizeHint() const
{
    return { 240, PreferredHeight };
}

QSize PositionSlider::minimumSizeHint() const
{
    return { 80, PreferredHeight };
}

void PositionSlider::MoveByUser(int value)
{
    const int bounded = std::clamp(value, 0, Max());
    if (bounded == Value())
        return;
    setValue(bounded);
    Q_EMIT Scroll();
}

QRect PositionSlider::Groove() const
{
    return { SideMargin, (height() - GrooveHeight) / 2, std::max(1, width() - 2 * SideMargin), GrooveHeight };
}

int PositionSlider::XOf(int value) const
{
    const QRect groove = Groove();
    if (Max() == 0)
        return groove.left();
    return groove.left() + static_cast<int>(qint64(groove.width()) * std::clamp(value, 0, Max()) / Max());
}

int PositionSlider::ValueAt(int x) const
{
    const QRect groove = Groove();
    const int along = std::clamp(x - groove.left(), 0, groove.width());
    return static_cast<int>((qint64(along) * Max() + groove.width() / 2) / groove.width());
}

void PositionSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    ring_.TakeMouse();
    setSliderDown(true);
    MoveByUser(ValueAt(event->position().toPoint().x()));
    update();
}

void PositionSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        MoveByUser(ValueAt(event->position().toPoint().x()));
}

void PositionSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(false);
    update();
}

// A wheel turned in passing must not lose the frame that the user looked for.
void PositionSlider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void PositionSlider::keyPressEvent(QKeyEvent* event)
{
    ring_.TakeKey();
    update();
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return MoveByUser(Value() - singleStep());
    case Qt::Key_Right:
    case Qt::Key_Up:
        return MoveByUser(Value() + singleStep());
    case Qt::Key_PageDown:
        return MoveByUser(Value() - pageStep());
    case Qt::Key_PageUp:
        return MoveByUser(Value() + pageStep());
    case Qt::Key_Home:
        return MoveByUser(0);
    case Qt::Key_End:
        return MoveByUser(Max());
    default:
        event->ignore();
    }
}

void PositionSlider::focusInEvent(QFocusEvent* event)
{
    ring_.TakeFocus(event->reason());
    QAbstractSlider::focusInEvent(event);
}

bool PositionSlider::event(QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) {
        hover_ = event->type() == QEvent::Enter;
        update();
    }
    return QAbstractSlider::event(event);
}

void PositionSlider::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGroove(painter);
    PaintSelection(painter);
    if (isEnabled())
        PaintHandle(painter);
    if (hasFocus() && ring_.IsWanted())
        PaintFocusRing(painter, rect());
}

void PositionSlider::PaintGroove(QPainter& painter) const
{
    const QRectF groove = Groove();
    FillRounded(painter, groove.adjusted(-1, -1, 1, 1), Token::LineOutside);
    FillRounded(painter, groove, isEnabled() ? Token::LineInside : Token::Control);
    QRectF fill = groove;
    fill.setRight(XOf(Value()));
    if (isEnabled() && fill.width() > 0)
        FillRounded(painter, fill, Token::Accent);
}

// The range is a bar above the groove with posts at its ends, so that it shows on both parts of the groove. A
// range that is the whole scale selects nothing.
void PositionSlider::PaintSelection(QPainter& painter) const
{
    if (selLength_ <= 0 || selLength_ >= Max())
        return;
    const int left = XOf(selStart_);
    const int right = std::max(XOf(selStart_ + selLength_), left + 2);
    const int top = Groove().top() - 6;
    const QColor color = StyleColor(isEnabled() ? Token::Text : Token::TextDisabled);
    painter.fillRect(left, top, right - left, 2, color);
    painter.fillRect(left, top, 2, GrooveHeight + 12, color);
    painter.fillRect(right - 2, top, 2, GrooveHeight + 12, color);
}

void PositionSlider::PaintHandle(QPainter& painter) const
{
    QRectF handle(0, 0, HandleSide, HandleSide);
    handle.moveCenter(QPointF(XOf(Value()), height() / 2.0));
    FillRounded(painter, handle, Token::LineOutside);
    FillRounded(painter, handle.adjusted(1, 1, -1, -1), Token::Text);
    if (isSliderDown() || hover_)
        FillRounded(painter, handle.adjusted(4, 4, -4, -4), Token::AccentPressed);
}
