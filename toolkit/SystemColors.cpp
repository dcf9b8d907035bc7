#include "toolkit/SystemColors.h"

#include "toolkit/Style.h"

#include <array>
#include <optional>

namespace {

constexpr ColorNumber SystemBit = 0x80000000;

using Role = std::optional<Token>;
/// The style's role for each number of the system's table, from 0 on.
constexpr std::array Roles {
    Role(Token::Strip), // 0x00 scroll bar
    Role(Token::Ground), // 0x01 desktop
    Role(Token::Strip), // 0x02 active title
    Role(Token::Strip), // 0x03 inactive title
    Role(Token::Panel), // 0x04 menu
    Role(Token::Control), // 0x05 window
    Role(Token::LineOutside), // 0x06 window frame
    Role(Token::Text), // 0x07 menu text
    Role(Token::Text), // 0x08 window text
    Role(Token::Text), // 0x09 active title's text
    Role(Token::LineInside), // 0x0A active border
    Role(Token::LineOutside), // 0x0B inactive border
    Role(Token::Ground), // 0x0C area behind child windows
    Role(Token::Accent), // 0x0D selection
    Role(Token::OnAccent), // 0x0E selected text
    Role(Token::Control), // 0x0F face
    Role(Token::LineOutside), // 0x10 shadow
    Role(Token::TextDisabled), // 0x11 disabled text
    Role(Token::Text), // 0x12 button text
    Role(Token::TextSecondary), // 0x13 inactive title's text
    Role(Token::LineInside), // 0x14 highlight
    Role(Token::LineOutside), // 0x15 dark shadow
    Role(Token::LineLight), // 0x16 light
    Role(Token::Text), // 0x17 tool tip's text
    Role(Token::Control), // 0x18 tool tip
    Role(), // 0x19 has none
    Role(Token::Accent), // 0x1A link
    Role(Token::Strip), // 0x1B active title's other end
    Role(Token::Strip), // 0x1C inactive title's other end
    Role(Token::Accent), // 0x1D selected menu entry
    Role(Token::Strip), // 0x1E menu bar
};

} // namespace

QColor ColorOf(ColorNumber number)
{
    if ((number & SystemBit) == 0)
        return QColor::fromRgb(static_cast<int>(number & 0xFF), static_cast<int>(number >> 8 & 0xFF),
            static_cast<int>(number >> 16 & 0xFF));
    const ColorNumber index = number & ~SystemBit;
    const Role role = index < Roles.size() ? Roles[index] : Role();
    return role ? StyleColor(*role) : QColor(Qt::black);
}

ColorNumber NumberOf(const QColor& color)
{
    return static_cast<ColorNumber>(color.red() | color.green() << 8 | color.blue() << 16);
}
