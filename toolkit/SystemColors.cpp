#include "toolkit/SystemColors.h"

#include "toolkit/Style.h"

namespace {

constexpr ColorNumber SystemBit = 0x80000000;

struct SystemRow {
    ColorNumber number;
    Token token;
};
constexpr SystemRow SystemRows[] {
    { SystemColor::Face, Token::Control },
    { SystemColor::Shadow, Token::LineOutside },
    { SystemColor::ButtonText, Token::Text },
    { SystemColor::Highlight, Token::LineInside },
    { SystemColor::Light, Token::LineLight },
};

} // namespace

QColor ColorOf(ColorNumber number)
{
    if ((number & SystemBit) == 0)
        return QColor::fromRgb(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
            static_cast<int>(number >> 16 & 0xFF));
    for (const SystemRow& row : SystemRows)
        if (row.number == number)
            return StyleColor(row.token);
    return {};
}

ColorNumber NumberOf(const QColor& color)
{
    return static_cast<ColorNumber>(color.red() | color.green() << 8 | color.blue() << 16);
}
