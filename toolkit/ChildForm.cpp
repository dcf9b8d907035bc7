#include "toolkit/ChildForm.h"

#include "toolkit/FrameDrag.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TitleStrip.h"

#include <QCoreApplication>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int Edge = 1;
constexpr int MinimizedWidth = 240;
constexpr int MinimizedGap = 4;

} // namespace

ChildForm::ChildForm(QWidget* parent)
    : QMdiSubWindow(parent, Qt::FramelessWindowHint)
{
    Build();
    Bind();
}

void ChildForm::Build()
{
    auto* frame = new QWidget;
    strip_ = new TitleStrip(frame);
    column_ = new QVBoxLayout(frame);
    column_->setContentsMargins(Edge, Edge, Edge, Edge);
    column_->setSpacing(0);
    column_->addWidget(strip_);
    column_->addStretch(0);
    setWidget(frame);
    drag_ = new FrameDrag(this);
    grip_ = new SizeGrip(*drag_, this);
}

void ChildForm::Bind()
{
    connect(strip_, &TitleStrip::MoveRequested, this, [this](QPoint place) {
        if (shape_ != Shape::Maximized)
            drag_->StartMove(place);
    });
    connect(strip_, &TitleStrip::MaximizeToggled, this, &ChildForm::ToggleMaximize);
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates, Qt::WindowStates state) {
        if (mdiArea())
            SetActive(state.testFlag(Qt::WindowActive));
    });
    QCoreApplication::instance()->installEventFilter(this);
}

void ChildForm::SetTitle(const QString& title)
{
    strip_->SetTitle(title);
    setWindowTitle(title);
}

void ChildForm::SetBody(QWidget* body)
{
    delete body_;
    body_ = body;
    column_->addWidget(body, 1);
    body->setVisible(shape_ != Shape::Minimized);
    grip_->raise();
}

QSize ChildForm::FrameSize() const
{
    return { 2 * Edge, 2 * Edge + strip_->sizeHint().expandedTo(strip_->minimumSize()).height() };
}

void ChildForm::Maximize()
{
    SetShape(Shape::Maximized);
}

void ChildForm::ToggleMinimize()
{
    SetShape(shape_ == Shape::Minimized ? Shape::Normal : Shape::Minimized);
}

void ChildForm::Restore()
{
    SetShape(Shape::Normal);
}

void ChildForm::ToggleMaximize()
{
    SetShape(shape_ == Shape::Normal ? Shape::Maximized : Shape::Normal);
}

void ChildForm::SetShape(Shape shape)
{
    if (shape == shape_)
        return;
    if (!isWindow())
        return Become(shape);
    switch (shape) {
    case Shape::Normal:
        return showNormal();
    case Shape::Maximized:
        return showMaximized();
    case Shape::Minimized:
        return showMinimized();
    }
}

void ChildForm::Become(Shape shape)
{
    if (shape_ == Shape::Normal) {
        normalGeometry_ = geometry();
        normalMinimum_ = minimumSize();
    }
    slot_ = FreeSlot();
    shape_ = shape;
    // A strip is lower than what the form takes for its least size.
    setMinimumSize(shape == Shape::Minimized ? QSize(0, 0) : normalMinimum_);
    if (body_)
        body_->setVisible(shape != Shape::Minimized);
    strip_->SetCompact(shape == Shape::Minimized);
    grip_->setVisible(shape == Shape::Normal);
    if (shape == Shape::Normal)
        setGeometry(normalGeometry_);
    else
        FitToArea();
    Q_EMIT ShapeChanged();
}

void ChildForm::FitToArea()
{
    if (!parentWidget())
        return;
    if (shape_ == Shape::Maximized)
        setGeometry(parentWidget()->rect());
    else if (shape_ == Shape::Minimized)
        setGeometry(MinimizedPlace());
}

QRect ChildForm::MinimizedPlace() const
{
    const QRect area = parentWidget()->rect();
    const int step = MinimizedWidth + MinimizedGap;
    const int columns = std::max(1, area.width() / step);
    const int row = slot_ / columns;
    const int height = FrameSize().height();
    return { (slot_ % columns) * step, area.height() - (row + 1) * (height + MinimizedGap), MinimizedWidth,
        height };
}

int ChildForm::FreeSlot() const
{
    int slot = 0;
    const auto taken = [&](const ChildForm* form) {
        return form->shape_ == Shape::Minimized && form->slot_ == slot;
    };
    const QList<ChildForm*> siblings = Siblings();
    while (std::any_of(siblings.begin(), siblings.end(), taken))
        ++slot;
    return slot;
}

QList<ChildForm*> ChildForm::Siblings() const
{
    if (!parentWidget())
        return {};
    auto forms = parentWidget()->findChildren<ChildForm*>(QString(), Qt::FindDirectChildrenOnly);
    forms.removeOne(const_cast<ChildForm*>(this));
    return forms;
}

void ChildForm::ShowShapeOn(StripButton& button)
{
    const auto show = [this, &button] {
        button.SetValue(shape_ == Shape::Maximized ? WindowButton::Restore : WindowButton::Maximize);
    };
    connect(this, &ChildForm::ShapeChanged, &button, show);
    show();
}

void ChildForm::BringToFront()
{
    raise();
    Activate();
}

void ChildForm::SendToBack()
{
    // Children are kept in stacking order, the topmost last.
    const QList<ChildForm*> siblings = Siblings();
    const auto next = std::find_if(
        siblings.rbegin(), siblings.rend(), [](const ChildForm* form) { return form->isVisible(); });
    if (next != siblings.rend())
        (*next)->Activate();
    // The area restacks its windows when the active one changes, so this comes last.
    lower();
}

void ChildForm::Activate()
{
    if (QMdiArea* area = mdiArea()) {
        if (area->activeSubWindow() != this)
            area->setActiveSubWindow(this);
        return;
    }
    if (isWindow())
        return activateWindow();
    const QList<ChildForm*> siblings = Siblings();
    for (ChildForm* sibling : siblings)
        sibling->SetActive(false);
    SetActive(true);
}

void ChildForm::SetActive(bool active)
{
    strip_->SetActive(active);
    update();
    if (active == std::exchange(active_, active))
        return;
    if (active)
        Q_EMIT Activated();
}

bool ChildForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        FitToArea();
    // A press on any part brings the form up, also on parts that take no focus and keep the press to
    // themselves.
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && !isWindow()) {
        auto* part = static_cast<QWidget*>(watched);
        if (part == this || isAncestorOf(part))
            BringToFront();
    }
    return QMdiSubWindow::eventFilter(watched, event);
}

void ChildForm::changeEvent(QEvent* event)
{
    QMdiSubWindow::changeEvent(event);
    if (!isWindow())
        return;
    if (event->type() == QEvent::ActivationChange)
        SetActive(isActiveWindow());
    if (event->type() == QEvent::WindowStateChange) {
        const Shape shape = isMinimized() ? Shape::Minimized
            : isMaximized()               ? Shape::Maximized
                                          : Shape::Normal;
        if (shape == std::exchange(shape_, shape))
            return;
        grip_->setVisible(shape == Shape::Normal);
        Q_EMIT ShapeChanged();
    }
}

void ChildForm::resizeEvent(QResizeEvent* event)
{
    QMdiSubWindow::resizeEvent(event);
    grip_->MoveToCorner(Edge);
}

void ChildForm::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), StyleColor(active_ ? Token::LineInside : Token::LineOutside));
    painter.fillRect(rect().adjusted(Edge, Edge, -Edge, -Edge), StyleColor(Token::Panel));
}

// The base class would move and size the window by these on its own account.
void ChildForm::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void ChildForm::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void ChildForm::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}

void ChildForm::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

void ChildForm::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}
