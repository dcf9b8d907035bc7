#include "viewers/ThumbPanel.h"

#include "toolkit/Style.h"
#include "viewers/ThumbPanelAccess.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto FlashTime = 150ms;
constexpr int TintAlpha = 96;
constexpr int HighlightWidth = 2;

} // namespace

ThumbPanel::ThumbPanel(QWidget* parent)
    : QWidget(parent)
{
    InstallThumbPanelAccess();
    setFocusPolicy(Qt::StrongFocus);
    flashTimer_.setSingleShot(true);
    flashTimer_.setInterval(FlashTime);
    connect(&flashTimer_, &QTimer::timeout, this, [this] {
        tinted_ = -1;
        update();
    });
}

void ThumbPanel::Add(const QImage& picture)
{
    cells_.push_back({ picture, layout_.Next(width()) });
    setMinimumHeight(layout_.PanelHeight());
    update(CellRect(Count() - 1));
    TellThumbAdded(*this, Count() - 1);
}

void ThumbPanel::SetBitmap(int index, const QImage& picture)
{
    cells_.at(size_t(index)).picture = picture;
    scaled_.remove(index);
    update(CellRect(index));
}

void ThumbPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        PlaceAgain();
}

void ThumbPanel::PlaceAgain()
{
    layout_ = ThumbLayout(CellSize);
    for (Cell& cell : cells_)
        cell.place = layout_.Next(width());
    setMinimumHeight(layout_.PanelHeight());
    update();
}

int ThumbPanel::FirstBelow(int top) const
{
    const auto isAbove = [top](const Cell& cell) { return cell.place.y() + CellSize.height() <= top; };
    return int(std::ranges::partition_point(cells_, isAbove) - cells_.begin());
}

int ThumbPanel::IndexAt(QPoint place) const
{
    for (int index = FirstBelow(place.y()); index < Count() && CellRect(index).top() <= place.y(); ++index)
        if (CellRect(index).contains(place))
            return index;
    return -1;
}

void ThumbPanel::Select(int index)
{
    selected_ = index;
    update();
    TellThumbSelected(*this, index);
    Q_EMIT CurrentMoved(CellRect(index));
}

void ThumbPanel::Flash(int index)
{
    tinted_ = index;
    repaint(CellRect(index));
    flashTimer_.start();
}

void ThumbPanel::mousePressEvent(QMouseEvent* event)
{
    const int index = event->button() == Qt::LeftButton ? IndexAt(event->position().toPoint()) : -1;
    if (index >= 0)
        Q_EMIT Clicked(index);
    else
        QWidget::mousePressEvent(event);
}

void ThumbPanel::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int index = event->button() == Qt::LeftButton ? IndexAt(event->position().toPoint()) : -1;
    if (index >= 0)
        Q_EMIT DoubleClicked(index);
}

void ThumbPanel::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const int index = Neighbour(event->key());
    if (isEnter && selected_ >= 0)
        Q_EMIT DoubleClicked(selected_);
    else if (index >= 0)
        Q_EMIT Clicked(index);
    else
        QWidget::keyPressEvent(event);
}

int ThumbPanel::CellsInRow() const
{
    const auto isInFirstRow = [this](const Cell& cell) { return cell.place.y() == cells_[0].place.y(); };
    return int(std::ranges::partition_point(cells_, isInFirstRow) - cells_.begin());
}

int ThumbPanel::Neighbour(int key) const
{
    const int last = Count() - 1;
    if (last < 0)
        return -1;
    const int from = std::max(selected_, 0);
    const bool isFirstPick = selected_ < 0;
    switch (key) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return from;
    case Qt::Key_Left:
        return isFirstPick ? 0 : std::max(from - 1, 0);
    case Qt::Key_Right:
        return isFirstPick ? 0 : std::min(from + 1, last);
    case Qt::Key_Up:
        return isFirstPick ? 0 : from >= CellsInRow() ? from - CellsInRow() : from;
    case Qt::Key_Down:
        return isFirstPick ? 0 : std::min(from + CellsInRow(), last);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return last;
    }
    return -1;
}

void ThumbPanel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect dirty = event->rect();
    for (int index = FirstBelow(dirty.top()); index < Count() && CellRect(index).top() <= dirty.bottom();
         ++index)
        if (CellRect(index).intersects(dirty))
            PaintCell(painter, index);
}

void ThumbPanel::PaintCell(QPainter& painter, int index)
{
    const QRect cell = CellRect(index);
    painter.fillRect(cell, StyleColor(Token::Panel));
    const QPixmap picture = Scaled(index);
    QRect place(QPoint(), picture.deviceIndependentSize().toSize());
    place.moveCenter(cell.center());
    painter.drawPixmap(place.topLeft(), picture);
    if (index == tinted_) {
        QColor tint = StyleColor(Token::Accent);
        tint.setAlpha(TintAlpha);
        painter.fillRect(cell, tint);
    }
    const bool isWaiting = selected_ < 0 && index == 0 && hasFocus(); // the keys begin here
    if (index == selected_ || isWaiting) {
        painter.setPen(QPen(StyleColor(isWaiting ? Token::Text : Token::Accent), HighlightWidth));
        painter.drawRect(cell.adjusted(1, 1, -1, -1));
    }
}

QPixmap ThumbPanel::Scaled(int index)
{
    const qreal ratio = devicePixelRatioF();
    if (const QPixmap* kept = scaled_.object(index); kept && kept->devicePixelRatio() == ratio)
        return *kept;
    QPixmap picture;
    if (!Bitmap(index).isNull())
        picture = QPixmap::fromImage(
            Bitmap(index).scaled(CellSize * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    picture.setDevicePixelRatio(ratio);
    scaled_.insert(index, new QPixmap(picture), qsizetype(picture.width()) * picture.height() * 4 + 1);
    return picture;
}
