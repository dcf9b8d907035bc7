#include "toolkit/StripButton.h"

#include "toolkit/ButtonPaint.h"
#include "toolkit/Strip.h"

#include <QPainter>

namespace {

constexpr int ButtonSide = 28;

QString NameOf(Face face)
{
    const std::string_view name = FactsOf(face).name;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

StripButton::StripButton(QVector<Face> faces, QWidget* parent)
    : StripControl(parent)
    , strip_(std::move(faces))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    NameAfter(NameOf(ShownFace()));
}

void StripButton::SetValue(int value)
{
    value_ = value;
    if (value >= 0 && value < strip_.size())
        faceNumber_ = value;
    NameAfter(NameOf(ShownFace()));
    update();
}

void StripButton::SetToggle(bool toggle)
{
    toggle_ = toggle;
    update();
}

void StripButton::SetFace(Face up, Face down)
{
    up_ = up;
    down_ = down;
    NameAfter(NameOf(ShownFace()));
    update();
}

Face StripButton::ShownFace() const
{
    if (up_ != Face::None)
        return IsLatched() ? down_ : up_;
    return strip_.value(toggle_ ? 0 : faceNumber_, Face::None);
}

ButtonLook StripButton::ShownLook() const
{
    return LookWhen(IsLatched());
}

QSize StripButton::sizeHint() const
{
    return { ButtonSide, ButtonSide };
}

void StripButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ButtonLook look = ShownLook();
    const QColor mark =
        PaintButtonGround(painter, rect().adjusted(1, 1, -1, -1), FactsOf(ShownFace()).tone, look);
    const QPoint sink(0, look == ButtonLook::Pressed ? 1 : 0);
    Strip::Paint(painter, rect().translated(sink), ShownFace(), mark);
    if (HasFocusRing())
        PaintFocusRing(painter, rect());
}

xptopbuttons::xptopbuttons(QWidget* parent)
    : StripButton({ Face::Close, Face::Maximize, Face::Minimize, Face::Restore }, parent)
{
}

smallXPbuttons::smallXPbuttons(QWidget* parent)
    : StripButton({ Face::Close, Face::Maximize, Face::Minimize, Face::Restore, Face::Open, Face::EditTools,
                      Face::ProgramWallpaper, Face::SystemWallpaper, Face::SaveCapture, Face::SaveAll,
                      Face::OpenCapture },
        parent)
{
}

Videobuttons::Videobuttons(QWidget* parent)
    : StripButton({ Face::Play, Face::Pause, Face::FrameBack, Face::FrameForward }, parent)
{
}

VideoEditButtons::VideoEditButtons(QWidget* parent)
    : StripButton(
        { Face::SeekStart, Face::SeekEnd, Face::MarkStart, Face::MarkEnd, Face::AutoRewind, Face::Loop },
        parent)
{
}

ToolButtons::ToolButtons(QWidget* parent)
    : StripButton(
        { Face::Resize, Face::Flip, Face::Rotate, Face::Reverse, Face::Grayscale, Face::Undo }, parent)
{
}

Front::Front(QWidget* parent)
    : StripButton({ Face::BringToFront }, parent)
{
}

xphelp::xphelp(QWidget* parent)
    : StripButton({ Face::Help }, parent)
{
}
