#include "toolkit/Button_XP.h"

#include "toolkit/ButtonFacePaint.h"
#include "toolkit/Form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace {

constexpr int OverMilliseconds = 50;
constexpr int SideMargin = 14;
constexpr int TopMargin = 8; // leaves the mark of the focus clear of the caption

struct PointerRow {
    int number;
    Qt::CursorShape shape;
};
constexpr PointerRow Pointers[] {
    { 1, Qt::ArrowCursor },
    { 2, Qt::CrossCursor },
    { 3, Qt::IBeamCursor },
    { 11, Qt::WaitCursor },
};
constexpr int OwnPointer = 99;

} // namespace

Button_XP::Button_XP(QWidget* parent)
    : QAbstractButton(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus); // a press takes it by itself, unless it is a right one
    OverTimer.setInterval(OverMilliseconds);
    connect(&OverTimer, &QTimer::timeout, this,
        [this] { Run(press_.Tick(QApplication::widgetAt(QCursor::pos()) == this)); });
    // An access key or an aid for those who cannot see the screen presses the button without mouse or key.
    connect(this, &QAbstractButton::clicked, this, [this] {
        Run({ ButtonStep::RaiseClick, ButtonStep::GoToURL });
    });
    connect(this, &QObject::objectNameChanged, this, [this](const QString& name) {
        if (!captionSet_)
            setText(name);
    });
}

QString Button_XP::version()
{
    return QStringLiteral("2.1");
}

void Button_XP::SetCaption(const QString& caption)
{
    captionSet_ = true;
    setText(caption);
    Apply();
}

void Button_XP::Apply()
{
    shownPicture_ =
        Flags().over && !properties_.PictureHover.isNull() ? properties_.PictureHover : properties_.Picture;
    ApplyPointer();
    ApplyShape();
    updateGeometry();
    Refresh();
}

void Button_XP::ApplyPointer()
{
    if (properties_.DefCurHand != 0)
        return setCursor(Qt::PointingHandCursor);
    if (properties_.MousePointer == OwnPointer && !properties_.MouseIcon.isNull())
        return setCursor(QCursor(properties_.MouseIcon));
    for (const PointerRow& row : Pointers)
        if (row.number == properties_.MousePointer)
            return setCursor(row.shape);
    unsetCursor();
}

void Button_XP::ApplyShape()
{
    clearMask();
    if (properties_.ButtonStyle != ButtonStyle::Shaped || properties_.Picture.isNull())
        return;
    const QRect place = Places().picture;
    QImage picture(place.size(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    properties_.Picture.paint(&painter, picture.rect());
    painter.end();
    const QRegion shape = ButtonLayout::Shape(picture, ColorOf(properties_.MaskColor));
    if (!shape.isEmpty())
        setMask(shape.translated(place.topLeft()));
}

QSize Button_XP::DrawnPictureSize() const
{
    if (properties_.Picture.isNull())
        return { 0, 0 };
    return properties_.PictureSize == 0 ? QSize(properties_.PictureWidth, properties_.PictureHeight)
                                        : QSize(properties_.OriginalPicSizeW, properties_.OriginalPicSizeH);
}

QSize Button_XP::CaptionSize() const
{
    return Caption().isEmpty() ? QSize(0, 0) : fontMetrics().size(Qt::TextShowMnemonic, Caption());
}

ButtonLayout::Places Button_XP::Places() const
{
    const auto place = [this](QSize picture, QSize caption) {
        return ButtonLayout::PlacesOf(size(), picture, caption, properties_.PicturePosition);
    };
    // A shaped button is its picture, and its caption can stand nowhere else.
    if (properties_.ButtonStyle == ButtonStyle::Shaped)
        return { place(DrawnPictureSize(), { 0, 0 }).picture, place({ 0, 0 }, CaptionSize()).caption };
    return place(DrawnPictureSize(), CaptionSize());
}

QSize Button_XP::sizeHint() const
{
    const QSize inside =
        ButtonLayout::Together(DrawnPictureSize(), CaptionSize(), properties_.PicturePosition);
    const int bevel = properties_.BEVEL != 0 ? properties_.BEVELDEPTH : 0;
    return inside + QSize(2 * (SideMargin + bevel), 2 * (TopMargin + bevel));
}

void Button_XP::Refresh()
{
    shown_ = Flags();
    update();
}

void Button_XP::GoToURL()
{
    const QString url = properties_.URL;
    if (url.startsWith(QLatin1String("mailto:")))
        links_->OpenDocument(url, FormOf(this));
    else if (!url.isEmpty())
        links_->NavigateTo(url);
}

bool Button_XP::Run(const ButtonSteps& steps)
{
    const QPointer<Button_XP> alive(this);
    for (const ButtonStep step : steps) {
        Take(step);
        if (!alive)
            return false;
    }
    return true;
}

void Button_XP::Take(ButtonStep step)
{
    switch (step) {
    case ButtonStep::Refresh:
        return Refresh();
    case ButtonStep::RefreshRaised:
        shown_.pressed = false;
        return update();
    case ButtonStep::StartTimer:
        return OverTimer.start();
    case ButtonStep::StopTimer:
        return OverTimer.stop();
    case ButtonStep::TakeHoverPicture:
        if (!properties_.PictureHover.isNull())
            shownPicture_ = properties_.PictureHover;
        return;
    case ButtonStep::TakePicture:
        shownPicture_ = properties_.Picture;
        return;
    case ButtonStep::RaiseEnter:
        Q_EMIT MouseEnter(QApplication::mouseButtons());
        return;
    case ButtonStep::RaiseLeave:
        Q_EMIT MouseLeave(QApplication::mouseButtons());
        return;
    case ButtonStep::LetEventsRun:
        return QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    case ButtonStep::RaiseClick:
        Q_EMIT Click();
        return;
    case ButtonStep::GoToURL:
        return GoToURL();
    case ButtonStep::RaiseUp:
        Q_EMIT MouseUp(Qt::LeftButton, Qt::NoModifier, QPoint());
        return;
    }
}

void Button_XP::DownStep()
{
    if (Run(press_.Down(lastDown_.button)))
        Q_EMIT MouseDown(lastDown_.button, lastDown_.shift, lastDown_.place);
}

void Button_XP::mousePressEvent(QMouseEvent* event)
{
    lastDown_ = { event->button(), event->modifiers(), event->position().toPoint() };
    const QPointer<Button_XP> alive(this);
    if (event->button() != Qt::RightButton)
        setFocus(Qt::MouseFocusReason);
    if (alive)
        DownStep();
}

// The second press of a double click counts like the first; the system holds the mouse meanwhile.
void Button_XP::mouseDoubleClickEvent(QMouseEvent*)
{
    DownStep();
}

// A window may open, or another close, under a pointer that does not move.
void Button_XP::enterEvent(QEnterEvent*)
{
    if (isEnabled())
        Run(press_.Move(true));
}

void Button_XP::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    const Qt::MouseButtons buttons = event->buttons();
    const Qt::KeyboardModifiers shift = event->modifiers();
    if (Run(press_.Move(IsInside(place))))
        Q_EMIT MouseMove(buttons, shift, place);
}

void Button_XP::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    const Qt::MouseButton button = event->button();
    const Qt::KeyboardModifiers shift = event->modifiers();
    if (Run(press_.Up(button, IsInside(place))))
        Q_EMIT MouseUp(button, shift, place);
}

void Button_XP::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    event->setAccepted(key == Qt::Key_Space);
    if (Run(press_.KeyDown(key == Qt::Key_Space)))
        Q_EMIT KeyDown(key);
}

void Button_XP::keyReleaseEvent(QKeyEvent* event)
{
    const int key = event->key();
    event->setAccepted(key == Qt::Key_Space);
    if (event->isAutoRepeat() || !Run(press_.KeyUp(key == Qt::Key_Space)))
        return;
    press_.ForgetKey();
    Q_EMIT KeyUp(key);
}

void Button_XP::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    Run(press_.Focus(true));
}

void Button_XP::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    Run(press_.Focus(false));
}

void Button_XP::changeEvent(QEvent* event)
{
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        Run(press_.Disable());
    if (event->type() == QEvent::FontChange)
        Apply();
}

void Button_XP::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    if (const QSize grown = ButtonLayout::Grown(size()); grown != size())
        return resize(grown);
    ApplyShape();
    Refresh();
}

void Button_XP::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintButtonFace(
        painter, { properties_, shown_, size(), Places(), Caption(), shownPicture_, isEnabled(), mask() });
}
