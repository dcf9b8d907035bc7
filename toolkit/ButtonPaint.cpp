#include "toolkit/ButtonPaint.h"

#include "base/Rows.h"
#include "toolkit/Style.h"

#include <QPainter>

#include <array>
#include <optional>

namespace {

constexpr qreal CornerRadius = 4;

struct LookRow {
    ButtonLook look;
    std::optional<Token> ground;
    std::optional<Token> edge;
    Token mark;
};

using LookTable = std::array<LookRow, static_cast<size_t>(ButtonLook::Count)>;

constexpr LookTable PlainLooks { {
    { ButtonLook::Rest, {}, {}, Token::Text },
    { ButtonLook::Hover, Token::ControlHover, {}, Token::Text },
    { ButtonLook::Pressed, Token::Ground, Token::LineInside, Token::TextSecondary },
    { ButtonLook::Disabled, {}, {}, Token::TextDisabled },
    { ButtonLook::Latched, Token::Control, Token::Accent, Token::Accent },
} };
static_assert(IsOneRowEach(PlainLooks, &LookRow::look, size_t(ButtonLook::Count)));

constexpr LookTable AccentLooks { {
    { ButtonLook::Rest, Token::Accent, {}, Token::OnAccent },
    { ButtonLook::Hover, Token::AccentHover, {}, Token::OnAccent },
    { ButtonLook::Pressed, Token::AccentPressed, {}, Token::OnAccent },
    { ButtonLook::Disabled, {}, {}, Token::TextDisabled },
    { ButtonLook::Latched, Token::Control, Token::Accent, Token::Accent },
} };
static_assert(IsOneRowEach(AccentLooks, &LookRow::look, size_t(ButtonLook::Count)));

constexpr LookTable AlarmLooks { {
    { ButtonLook::Rest, {}, {}, Token::Text },
    { ButtonLook::Hover, Token::Alarm, {}, Token::OnAlarm },
    { ButtonLook::Pressed, Token::AlarmPressed, {}, Token::OnAlarm },
    { ButtonLook::Disabled, {}, {}, Token::TextDisabled },
    { ButtonLook::Latched, Token::Control, Token::Accent, Token::Accent },
} };
static_assert(IsOneRowEach(AlarmLooks, &LookRow::look, size_t(ButtonLook::Count)));

const LookTable& LooksOf(FaceTone tone)
{
    switch (tone) {
    case FaceTone::Plain:
        return PlainLooks;
    case FaceTone::Accent:
        return AccentLooks;
    case FaceTone::Alarm:
        return AlarmLooks;
    }
    return PlainLooks;
}

// A one-pixel line lies on whole pixels when its path runs through their middle.
QRectF LineRect(const QRect& area)
{
    return QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5);
}

} // namespace

QColor PaintButtonGround(QPainter& painter, const QRect& area, FaceTone tone, ButtonLook look)
{
    const LookRow& row = LooksOf(tone)[static_cast<size_t>(look)];
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(row.edge ? QPen(StyleColor(*row.edge), 1) : QPen(Qt::NoPen));
    painter.setBrush(row.ground ? QBrush(StyleColor(*row.ground)) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(row.edge ? LineRect(area) : QRectF(area), CornerRadius, CornerRadius);
    painter.restore();
    return StyleColor(row.mark);
}

void PaintFocusRing(QPainter& painter, const QRect& area)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(StyleColor(Token::Accent), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(area).adjusted(1, 1, -1, -1), CornerRadius, CornerRadius);
    painter.restore();
}
