// How the player control stands on the screen: sizes, painting, full screen, keys and mouse.
#include "media/player/PaintCaption.h"
#include "media/player/PaintShot.h"
#include "media/player/PlayerControl.h"
#include "toolkit/Twips.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace player;

void PlayerControl::SetDisplaySize(DisplayMode mode)
{
    view_.mode = mode;
    TakeOwnSize();
    Look();
    updateGeometry();
}

double PlayerControl::VideoWidth() const
{
    return Twips::FromPixels(natural_.width()).value;
}

double PlayerControl::VideoHeight() const
{
    return Twips::FromPixels(natural_.height()).value;
}

QSize PlayerControl::sizeHint() const
{
    const QSize own = OwnSize(view_.mode, natural_);
    return own.isEmpty() ? QSize(320, 240) : own;
}

/// In the modes from Normal on the control is as large as the picture, and a window can size itself to it.
void PlayerControl::TakeOwnSize()
{
    if (view_.mode < Normal || natural_.isEmpty())
        return;
    const QSize own = OwnSize(view_.mode, natural_);
    if (view_.isFullScreen)
        windowedPlace_.setSize(own);
    else
        resize(own);
    updateGeometry();
}

void PlayerControl::Look()
{
    view_.area = size();
    view_.ratio = devicePixelRatioF();
    view_.isVisible = isVisible();
    if (session_) {
        session_->LookAt(view_);
        if (view_.isVisible && IsOutdated(shown_, view_))
            session_->Redraw(shown_);
    }
    update();
}

void PlayerControl::SetFullScreen(bool on)
{
    if (on == view_.isFullScreen)
        return;
    view_.isFullScreen = on;
    if (on) {
        windowedPlace_ = geometry();
        setWindowFlag(Qt::Window);
        showFullScreen();
    } else {
        setWindowState(windowState() & ~Qt::WindowFullScreen);
        setWindowFlags(Qt::Widget);
        setGeometry(windowedPlace_);
        show();
    }
    setFocus();
    Look();
}

void PlayerControl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (view_.ratio != devicePixelRatioF())
        Look();
    PaintShot(painter, view_, shown_, palette().window());
    if (showsCaptions_)
        PaintCaption(painter, shown_.caption, VisiblePlace(view_, shown_.picture.Size()));
}

/// What is said with each picture is at hand, as a shot carries it in any case.
void PlayerControl::ToggleClosedCaption()
{
    showsCaptions_ = !showsCaptions_;
    update();
}

void PlayerControl::resizeEvent(QResizeEvent*)
{
    Look();
}

void PlayerControl::showEvent(QShowEvent*)
{
    Look();
}

void PlayerControl::hideEvent(QHideEvent*)
{
    Look();
}

/// The window manager closes the full screen, not the player, which is a part of another window. Not at once:
/// leaving it drops the very window that is being asked.
void PlayerControl::closeEvent(QCloseEvent* event)
{
    if (!view_.isFullScreen)
        return;
    event->ignore();
    QMetaObject::invokeMethod(
        this, [this] { SetFullScreen(false); }, Qt::QueuedConnection);
}

void PlayerControl::focusOutEvent(QFocusEvent* event)
{
    pressedKeys_.clear();
    ltmmPlay::focusOutEvent(event);
}

void PlayerControl::keyPressEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat())
        pressedKeys_.insert(event->key());
    ltmmPlay::keyPressEvent(event);
}

/// A release alone is the end of a press that was meant for another window, as that of a dialog that it
/// closed.
void PlayerControl::keyReleaseEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat() && pressedKeys_.erase(event->key()) > 0)
        Q_EMIT KeyUp(event->key());
}

void PlayerControl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT MousePressed();
}
