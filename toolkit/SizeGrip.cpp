#include "toolkit/SizeGrip.h"

#include "toolkit/FrameDrag.h"
#include "toolkit/Strip.h"
#include "toolkit/Style.h"

#include <QMouseEvent>
#include <QPainter>

SizeGrip::SizeGrip(FrameDrag& drag, QWidget* parent)
    : QWidget(parent)
    , drag_(drag)
{
    setFixedSize(Side, Side);
    setCursor(Qt::SizeFDiagCursor);
}

void SizeGrip::MoveToCorner(int margin)
{
    const QSize room = parentWidget()->size();
    move(room.width() - Side - margin, room.height() - Side - margin);
    raise();
}

void SizeGrip::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        drag_.StartResize(event->globalPosition().toPoint());
}

void SizeGrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // The cell's strokes end at the grip's corner.
    Strip::Paint(painter,
        QRect(
            QPoint(Side - Strip::CellSize, Side - Strip::CellSize), QSize(Strip::CellSize, Strip::CellSize)),
        Face::Grip, StyleColor(Token::TextSecondary));
}
