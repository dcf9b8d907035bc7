#include "toolkit/ShadowStrips.h"

#include "toolkit/LayeredWindow.h"
#include "toolkit/WindowMessage.h"

#include <utility>

namespace {

constexpr quint32 StripStyle = WindowStyle::Layered | WindowStyle::TransparentForInput
    | WindowStyle::NoParentNotify
    | WindowStyle::ToolWindow; // a window of its own stands in no list of windows
constexpr ShadowStrip::Side Sides[] { ShadowStrip::Right, ShadowStrip::Bottom };

} // namespace

ShadowStrips::ShadowStrips(QWidget& form, QWidget* host, const ShadowLook& look, const QString& className)
    : form_(form)
    , host_(host)
    , look_(look)
{
    windows_.WindowClassRegister(className, Qt::white);
    const quint32 style = host_ ? WindowStyle::Child : WindowStyle::Popup;
    QWidget* const owner = host_ ? host_ : &form_;
    for (const ShadowStrip::Side side : Sides)
        strip_[side] = windows_.WindowCreate(StripStyle, style, 0, 0, 0, 0, 0, {}, owner);
}

QList<QWidget*> ShadowStrips::Windows() const
{
    QList<QWidget*> windows;
    for (const auto& strip : strip_)
        if (strip)
            windows << strip;
    return windows;
}

void ShadowStrips::Redraw()
{
    drawnWidth_ = 0;
    drawnHeight_ = 0;
    if (!form_.isVisible())
        return;
    for (const ShadowStrip::Side side : Sides)
        Draw(side);
}

void ShadowStrips::Draw(ShadowStrip::Side side)
{
    if (side == ShadowStrip::Right)
        drawnHeight_ = form_.height();
    else
        drawnWidth_ = form_.width();
    if (!strip_[side])
        return;
    const qreal scale = form_.devicePixelRatioF();
    const QRect place = ShadowStrip::Place(side, form_.geometry(), look_.depth);
    QImage picture =
        ShadowStrip { side, (QSizeF(place.size()) * scale).toSize(), look_.isSoft }.Picture(look_.color);
    if (side == ShadowStrip::Right && look_.hasRoundCorners)
        ShadowStrip::RoundCorner(picture);
    picture.setDevicePixelRatio(scale);
    strip_[side]->UpdateLayered(place, picture, look_.transparency);
}

void ShadowStrips::Follow(const WindowPosition& position)
{
    if (position.flags >= WindowPosition::Hiding)
        return Show(false);
    if (position.width != drawnWidth_)
        Draw(ShadowStrip::Bottom);
    if (position.height != drawnHeight_)
        Draw(ShadowStrip::Right);
    Move(position);
    if (position.flags & WindowPosition::Showing)
        Show(true);
}

void ShadowStrips::Move(const WindowPosition& position)
{
    for (const ShadowStrip::Side side : Sides) {
        if (!strip_[side])
            continue;
        strip_[side]->setGeometry(ShadowStrip::Place(side, position.Place(), look_.depth));
        // The form's own shadow falls on what lies below the form, and not on what lies above.
        if (host_ && !(position.flags & WindowPosition::KeepsOrder))
            strip_[side]->stackUnder(&form_);
    }
}

void ShadowStrips::Show(bool shown)
{
    if (shown != std::exchange(isShown_, shown))
        ApplyVisible();
}

void ShadowStrips::ApplyVisible()
{
    for (const auto& strip : strip_)
        if (strip)
            strip->setVisible(isShown_ && look_.isVisible);
}
