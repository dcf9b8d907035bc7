// The frame as a window: its shapes, how it is moved, and the picture behind its windows.
#include "app/ApplicationState.h"
#include "frame/Main.h"
#include "toolkit/FrameDrag.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TitleStrip.h"

#include <QMdiArea>
#include <QMouseEvent>

namespace {

constexpr auto WindowText = "TAQ Pro v2.1";

} // namespace

void Main::ToggleMaximized()
{
    isMaximized() ? showNormal() : showMaximized();
}

void Main::ShowWindowState()
{
    maximize_->SetValue(isMaximized() ? WindowButton::Restore : WindowButton::Maximize);
    Image2->setVisible(!isMaximized() && !isMinimized());
    setWindowTitle(QLatin1String(WindowText));
    if (!state_.ToolsOpen || !state_.Tools)
        return;
    if (isMinimized()) {
        state_.Tools->hide();
        state_.Tools->setWindowState(Qt::WindowMinimized);
    } else if (!isMaximized()) {
        state_.Tools->setWindowState(Qt::WindowNoState);
        state_.Tools->show();
    }
}

void Main::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        ShowWindowState();
    if (event->type() != QEvent::ActivationChange)
        return;
    TopBack->SetActive(isActiveWindow());
    if (isActiveWindow())
        setWindowTitle(QLatin1String(WindowText));
}

void Main::mousePressEvent(QMouseEvent* event)
{
    // The bare ground of the command strip, the foot and the labels leave their presses to the frame.
    if (event->button() == Qt::LeftButton)
        drag_->StartMove(event->globalPosition().toPoint());
}

void Main::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Image2->MoveToCorner();
}

bool Main::eventFilter(QObject* watched, QEvent* event)
{
    // The windows' area changes its size also when the transport comes and goes.
    if (watched == area_->viewport() && event->type() == QEvent::Resize)
        ApplyBackground();
    return QWidget::eventFilter(watched, event);
}

QImage Main::PicSource()
{
    return state_.BackgroundFile.isEmpty()
        ? QImage()
        : background_.Of(state_.BackgroundFile, [this] { PumpPaintEvents(); });
}

void Main::ApplyBackground()
{
    const QColor ground = StyleColor(Token::Ground);
    area_->setBackground(ground);
    state_.Reload(Key::OpPic);
    if (state_.OpPic == 2)
        return;
    if (state_.OpPic == 0 || state_.OpPic == 1)
        state_.TileBackground = state_.OpPic == 0;
    state_.Reload(Key::PicFolder);
    const QImage picSource = background_.Of(state_.BackgroundFile, [this] { PumpPaintEvents(); });
    if (picSource.isNull())
        return; // without its picture the frame stays plain
    const Placement placement = state_.TileBackground ? Placement::Tiled : Placement::LowerRight;
    area_->setBackground(ComposeBackground(picSource, area_->viewport()->size(), placement, ground));
}
