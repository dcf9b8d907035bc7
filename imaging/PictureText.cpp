#include "imaging/PictureText.h"

#include "imaging/Converted.h"
#include "imaging/TextBlock.h"
#include "imaging/TextShape.h"

#include <QFont>
#include <QFontInfo>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cstdlib>

namespace imaging {
namespace {

constexpr double Furthest = 1e6; // pixels; further away nothing shows, and all reckoning stays exact
constexpr double DotsPerPoint = 96.0 / 72;
constexpr int DotsPerMeter = 3780; // 96 to the inch
/// Behind the font asked for: letters that it lacks and that are pictures come in colour where the system
/// can.
constexpr auto ColourLetters = "Noto Color Emoji";
/// An edge around letters: its share of an em, and what it takes at least, in pixels.
struct Edge {
    double share;
    int least;
};
constexpr Edge LightEdge { 1.0 / 24, 1 };
constexpr Edge HeavyEdge { 1.0 / 14, 2 };
constexpr Edge Outline { 1.0 / 16, 1 };

/// The value, or the nearest bound; what is no number is the lower one.
double Held(double value, double low, double high)
{
    return value > low ? std::min(value, high) : low;
}

/// The look with every measure within bounds.
TextLook Sane(TextLook look)
{
    look.points = Held(look.points, SmallestPoints, LargestPoints);
    look.place = { Held(look.place.x(), -Furthest, Furthest), Held(look.place.y(), -Furthest, Furthest),
        Held(look.place.width(), 0, Furthest), Held(look.place.height(), 0, Furthest) };
    look.shadowDepth = { std::clamp(look.shadowDepth.x(), -MaxShadowDepth, MaxShadowDepth),
        std::clamp(look.shadowDepth.y(), -MaxShadowDepth, MaxShadowDepth) };
    return look;
}

QFont FontOf(const TextLook& look)
{
    // Were a family missing, the digits would be taken from the one behind it.
    const QString atHand = QFontInfo(QFont(QStringList { look.font })).family();
    QFont font(QStringList { atHand, QLatin1String(ColourLetters) });
    font.setPointSizeF(look.points);
    font.setBold(look.isBold);
    font.setItalic(look.isItalic);
    font.setStyleStrategy(QFont::PreferAntialias);
    font.setHintingPreference(QFont::PreferVerticalHinting); // the desktop's choice would show in the picture
    QImage device(1, 1, QImage::Format_RGB32);
    device.setDotsPerMeterX(DotsPerMeter);
    device.setDotsPerMeterY(DotsPerMeter);
    return { font, &device };
}

double Em(const TextLook& look)
{
    return look.points * DotsPerPoint;
}

int EdgeWidth(const TextLook& look, Edge edge)
{
    return std::max(edge.least, qRound(Em(look) * edge.share));
}

/// How far a style reaches beyond the letters, in pixels.
int Reach(const TextLook& look)
{
    const int shadow = std::max(std::abs(look.shadowDepth.x()), std::abs(look.shadowDepth.y()));
    return 1 + shadow + EdgeWidth(look, HeavyEdge);
}

/// Turns a block of this size and puts the upper left corner of what becomes of it where the look says.
QTransform Placement(QSizeF block, const TextLook& look)
{
    const QTransform turned = QTransform().rotate(-(look.angle % 3600) / 10.0);
    const QPointF corner = look.place.topLeft() - turned.mapRect(QRectF({}, block)).topLeft();
    return turned * QTransform::fromTranslate(corner.x(), corner.y());
}

double WrapWidth(const TextLook& look, QSize picture)
{
    if (!look.wraps)
        return 0;
    const double toEdge = picture.width() - look.place.x();
    // A text that begins beyond the edge is not seen anyway.
    return std::max(1.0, toEdge > 0 ? std::min(look.place.width(), toEdge) : look.place.width());
}

/// The letters alone, on a transparent ground that stands for this area of the picture.
QImage Letters(const TextBlock& block, const QTransform& placement, const QRect& area, const QColor& color)
{
    QImage letters(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (letters.isNull())
        throw std::bad_alloc();
    letters.fill(Qt::transparent);
    QPainter painter(&letters);
    painter.setRenderHints(
        QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(placement * QTransform::fromTranslate(-area.x(), -area.y()));
    painter.setPen(color);
    block.Draw(painter);
    return letters;
}

/// Draws what a style puts below the letters, whose upper left corner stands at corner.
class Backdrop {
public:
    Backdrop(QPainter& painter, QPoint corner, const QImage& letters, const TextLook& look)
        : painter_(painter)
        , corner_(corner)
        , shape_(TextShape::Of(letters))
        , look_(look)
    {
    }

    void Draw() const
    {
        switch (look_.style) {
        case TextStyle::Normal:
        case TextStyle::Count:
            return;
        case TextStyle::InsetLight:
            return DrawEdges(-EdgeWidth(look_, LightEdge));
        case TextStyle::InsetHeavy:
            return DrawEdges(-EdgeWidth(look_, HeavyEdge));
        case TextStyle::RaisedLight:
            return DrawEdges(EdgeWidth(look_, LightEdge));
        case TextStyle::RaisedHeavy:
            return DrawEdges(EdgeWidth(look_, HeavyEdge));
        case TextStyle::DropShadow:
            return Draw(shape_, look_.shadow, look_.shadowDepth);
        case TextStyle::BlockShadow:
            return Draw(TextShape::Swept(shape_, look_.shadowDepth), look_.shadow);
        case TextStyle::OutlineBlock:
            return DrawOutlineBlock();
        }
    }

private:
    void Draw(const QImage& shape, const QColor& color, QPoint by = {}) const
    {
        painter_.drawImage(corner_ + by, TextShape::Coloured(shape, color));
    }

    /// Light falls from the upper left: what stands out has its dark edge at the lower right.
    void DrawEdges(int height) const
    {
        Draw(TextShape::Swept(shape_, { height, height }), look_.shadow);
        Draw(TextShape::Swept(shape_, { -height, -height }), look_.hilite);
    }

    void DrawOutlineBlock() const
    {
        const QImage wide = TextShape::Widened(shape_, EdgeWidth(look_, Outline));
        Draw(TextShape::Swept(wide, look_.shadowDepth), look_.shadow);
        Draw(wide, look_.hilite);
    }

    QPainter& painter_;
    QPoint corner_;
    QImage shape_;
    const TextLook& look_;
};

/// A copy that can be painted on.
QImage Canvas(const QImage& picture)
{
    const auto trueColour = picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_BGR888;
    QImage canvas = picture.depth() > 8 ? picture.copy() : Converted(picture, trueColour);
    if (canvas.isNull())
        throw std::bad_alloc();
    return canvas;
}

} // namespace

QImage WithText(const QImage& picture, const QString& text, const TextLook& asked)
{
    if (text.trimmed().isEmpty())
        return picture;
    const TextLook look = Sane(asked);
    const TextBlock block(text, FontOf(look), WrapWidth(look, picture.size()), look.place.height());
    const QTransform placement = Placement(block.Size(), look);
    // Letters may lean out of their lines, by less than an em.
    const QRectF lines = QRectF({}, block.Size()).marginsAdded(QMarginsF(1, 1, 1, 1) * Em(look));
    const int reach = Reach(look);
    const QMargins margins(reach, reach, reach, reach);
    const QRect ink = placement.mapRect(lines).toAlignedRect() + margins;
    // Letters beyond the picture's edge throw their shadows into it.
    const QRect area = ink & (picture.rect() + margins);
    if (!ink.intersects(picture.rect()))
        return picture;

    QImage result = Canvas(picture);
    const QImage letters = Letters(block, placement, area, look.color);
    QPainter painter(&result);
    Backdrop(painter, area.topLeft(), letters, look).Draw();
    painter.drawImage(area.topLeft(), letters);
    return result;
}

} // namespace imaging
