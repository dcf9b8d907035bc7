#include "toolkit/ButtonFacePaint.h"

#include "toolkit/ButtonPaint.h"
#include "toolkit/Style.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int CornerRadius = 4;
constexpr qreal DisabledOpacity = 0.5; // the system's own is too bright for a dark ground
constexpr int LighterBy = 118; // percent
constexpr int DarkerBy = 125;
constexpr int BevelLighterBy = 135;
constexpr int BevelDarkerBy = 160;

QColor Ground(const ButtonFace& face)
{
    const ColorNumber number = face.properties.BackColor;
    const bool isOwn = number != SystemColor::Face;
    const QColor rest = ColorOf(number);
    if (!face.isEnabled)
        return isOwn ? rest : StyleColor(Token::Panel);
    if (face.flags.pressed)
        return isOwn ? rest.darker(DarkerBy) : StyleColor(Token::ControlPressed);
    if (face.flags.over)
        return isOwn ? rest.lighter(LighterBy) : StyleColor(Token::ControlHover);
    return rest;
}

void PaintBevel(QPainter& painter, const QRectF& area, qreal depth, const QColor& ground)
{
    const QRectF inside = area.adjusted(depth, depth, -depth, -depth);
    const QPolygonF upper { { area.topLeft(), area.topRight(), inside.topRight(), inside.topLeft(),
        inside.bottomLeft(), area.bottomLeft() } };
    const QPolygonF lower { { area.bottomRight(), area.topRight(), inside.topRight(), inside.bottomRight(),
        inside.bottomLeft(), area.bottomLeft() } };
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground.lighter(BevelLighterBy));
    painter.drawPolygon(upper);
    painter.setBrush(ground.darker(BevelDarkerBy));
    painter.drawPolygon(lower);
}

void PaintGround(QPainter& painter, const ButtonFace& face)
{
    if (face.properties.TransparentBG != 0)
        return;
    const QColor ground = Ground(face);
    const QRect area(QPoint(), face.size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    if (face.properties.ButtonStyle == ButtonStyle::Default && face.properties.BEVEL == 0)
        painter.drawRoundedRect(area, CornerRadius, CornerRadius);
    else
        painter.drawRect(area);
    if (face.properties.BEVEL != 0) {
        const int depth =
            qBound(0, face.properties.BEVELDEPTH, qMin(face.size.width(), face.size.height()) / 2);
        PaintBevel(painter, area, depth, ground);
    }
}

/// The line around Default and Shaped, unless the form has its own colours.
struct LineColors {
    Token rest;
    Token over;
    Token pressed;
};
constexpr LineColors AroundGround { Token::LineInside, Token::LineLight, Token::LineInside };
constexpr LineColors AroundPicture { Token::LineInside, Token::Text, Token::Accent };

std::optional<QColor> LineOf(const ButtonFace& face, const LineColors& colors)
{
    const ButtonProperties& properties = face.properties;
    const bool isOwn = properties.XPDefaultColors == 0;
    if (!face.isEnabled)
        return StyleColor(Token::Control);
    if (face.flags.pressed)
        return isOwn ? ColorOf(properties.XPColor_Pressed) : StyleColor(colors.pressed);
    if (face.flags.over)
        return isOwn ? ColorOf(properties.XPColor_Hover) : StyleColor(colors.over);
    if (properties.XPShowBorderAlways != 0)
        return StyleColor(colors.rest);
    return {};
}

void PaintRoundLine(QPainter& painter, const ButtonFace& face)
{
    if (const std::optional<QColor> line = LineOf(face, AroundGround)) {
        painter.setPen(QPen(*line, 1));
        painter.setBrush(Qt::NoBrush);
        const QRectF area = QRectF(QPointF(), face.size).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.drawRoundedRect(area, CornerRadius, CornerRadius);
    }
}

void PaintOutline(QPainter& painter, const ButtonFace& face)
{
    if (const std::optional<QColor> line = LineOf(face, AroundPicture)) {
        QPainterPath outline;
        outline.addRegion(face.shape);
        painter.setPen(QPen(*line, 4)); // the outer half is cut away with the window
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(outline.simplified());
    }
}

enum class Side { LowerRight, UpperLeft };

void PaintEdge(QPainter& painter, QSize size, Side side, ColorNumber color)
{
    const QRect area(QPoint(), size);
    const QColor line = ColorOf(color);
    const bool lower = side == Side::LowerRight;
    painter.fillRect(QRect(0, lower ? area.bottom() : 0, area.width(), 1), line);
    painter.fillRect(QRect(lower ? area.right() : 0, 0, 1, area.height()), line);
}

void PaintFrame(QPainter& painter, const ButtonFace& face)
{
    switch (face.properties.ButtonStyle) {
    case ButtonStyle::Frameless:
    case ButtonStyle::Shaped:
        return; // a shaped one's outline runs over the picture
    case ButtonStyle::Default:
        if (face.properties.BEVEL == 0)
            PaintRoundLine(painter, face);
        return;
    default:
        if (const auto edge = EdgeOf(face.properties.ButtonStyle, face.flags)) {
            PaintEdge(painter, face.size, Side::LowerRight, edge->first);
            PaintEdge(painter, face.size, Side::UpperLeft, edge->second);
        }
    }
}

void PaintCaption(QPainter& painter, const ButtonFace& face)
{
    const QRect place = face.places.caption;
    const int flags = int(Qt::AlignCenter) | Qt::TextShowMnemonic;
    const auto draw = [&](const QRect& where, const QColor& color) {
        painter.setPen(color);
        painter.drawText(where, flags, face.caption);
    };
    if (!face.isEnabled) {
        // On a dark ground letters look cut in when the lower edge is the dark one.
        draw(place.translated(1, 1), StyleColor(Token::LineOutside));
        return draw(place, StyleColor(Token::TextDisabled));
    }
    const bool sinks = face.flags.pressed && face.properties.ButtonStyle != ButtonStyle::Default;
    draw(sinks ? place.translated(1, 1) : place, ColorOf(face.properties.ForeColor));
}

} // namespace

std::optional<EdgeColors> EdgeOf(int style, const ButtonFlags& flags)
{
    constexpr EdgeColors Sunken { SystemColor::Highlight, SystemColor::Shadow };
    constexpr EdgeColors Raised { SystemColor::Shadow, SystemColor::Highlight };
    if (style == ButtonStyle::Default || style == ButtonStyle::Shaped || style == ButtonStyle::Frameless)
        return {};
    if (flags.pressed)
        return Sunken;
    if (flags.over || style == ButtonStyle::Raised)
        return Raised;
    return {};
}

void PaintButtonFace(QPainter& painter, const ButtonFace& face)
{
    painter.setRenderHint(QPainter::Antialiasing);
    PaintGround(painter, face);
    PaintFrame(painter, face);
    painter.setOpacity(face.isEnabled ? 1 : DisabledOpacity);
    face.picture.paint(
        &painter, face.places.picture, Qt::AlignCenter, face.isEnabled ? QIcon::Normal : QIcon::Disabled);
    painter.setOpacity(1);
    if (face.properties.ButtonStyle == ButtonStyle::Shaped)
        PaintOutline(painter, face);
    if (face.flags.focused && face.properties.ShowFocusRect != 0
        && face.properties.ButtonStyle != ButtonStyle::Shaped)
        PaintFocusRing(painter, ButtonLayout::FocusRect(face.size));
    PaintCaption(painter, face);
}
