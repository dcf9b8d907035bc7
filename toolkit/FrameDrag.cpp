#include "toolkit/FrameDrag.h"

#include "toolkit/WindowMessage.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {

// How much of a form's head stays inside the parent, so that it can be fetched back.
constexpr int ReachableWidth = 64;
constexpr int ReachableHeight = 28;

int Bounded(int value, int low, int high)
{
    return std::clamp(value, low, std::max(low, high));
}

} // namespace

FrameDrag::FrameDrag(QWidget* form)
    : QObject(form)
    , form_(*form)
{
}

void FrameDrag::StartMove(QPoint screenPlace)
{
    if (form_.isWindow() && form_.windowHandle() && form_.windowHandle()->startSystemMove())
        WaitForSystem({});
    else
        Begin(screenPlace, {});
}

void FrameDrag::StartResize(QPoint screenPlace, Qt::Edges edges)
{
    if (form_.isWindow() && form_.windowHandle() && form_.windowHandle()->startSystemResize(edges))
        WaitForSystem(edges);
    else
        Begin(screenPlace, edges);
}

// The application's events are watched for as long as the button is held, because the press belongs to a part
// of the form, and its moves go there.
void FrameDrag::Begin(QPoint screenPlace, Qt::Edges edges)
{
    start_ = screenPlace;
    startGeometry_ = form_.geometry();
    edges_ = edges;
    QCoreApplication::instance()->installEventFilter(this);
}

// The window system keeps the pointer to itself during its own drag; the first thing heard of a pointer
// without a button tells that the drag is over.
void FrameDrag::WaitForSystem(Qt::Edges edges)
{
    edges_ = edges;
    isSystems_ = true;
    Announce();
    QCoreApplication::instance()->installEventFilter(this);
}

void FrameDrag::Announce()
{
    WindowMessage::Send(form_, edges_ ? Message::Sizing : Message::Moving);
}

void FrameDrag::End()
{
    isSystems_ = false;
    QCoreApplication::instance()->removeEventFilter(this);
    WindowMessage::Send(form_, Message::EndOfSizeOrMove);
}

bool FrameDrag::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType())
        return false;
    if (event->type() == QEvent::MouseMove)
        Follow(*static_cast<QMouseEvent*>(event));
    else if (event->type() == QEvent::MouseButtonRelease || (isSystems_ && event->type() == QEvent::Enter))
        End();
    return false;
}

void FrameDrag::Follow(const QMouseEvent& event)
{
    if (!(event.buttons() & Qt::LeftButton))
        return End();
    if (isSystems_)
        return;
    const QPointer<FrameDrag> alive(this);
    Announce();
    if (!alive)
        return;
    const QPoint moved = event.globalPosition().toPoint() - start_;
    form_.setGeometry(edges_ ? Sized(moved) : Moved(moved));
}

QRect FrameDrag::Moved(QPoint by) const
{
    QRect place = startGeometry_.translated(by);
    if (const QWidget* area = form_.isWindow() ? nullptr : form_.parentWidget())
        place.moveTo(Bounded(place.x(), ReachableWidth - place.width(), area->width() - ReachableWidth),
            Bounded(place.y(), 0, area->height() - ReachableHeight));
    return place;
}

QRect FrameDrag::Sized(QPoint by) const
{
    const QSize least = form_.minimumSize().expandedTo(QSize(ReachableWidth, ReachableHeight));
    QRect place = startGeometry_;
    if (edges_ & Qt::RightEdge)
        place.setWidth(Bounded(place.width() + by.x(), least.width(), form_.maximumWidth()));
    if (edges_ & Qt::BottomEdge)
        place.setHeight(Bounded(place.height() + by.y(), least.height(), form_.maximumHeight()));
    if (edges_ & Qt::LeftEdge)
        place.setLeft(std::min(place.left() + by.x(), place.right() - least.width() + 1));
    if (edges_ & Qt::TopEdge)
        place.setTop(std::min(place.top() + by.y(), place.bottom() - least.height() + 1));
    return place;
}
