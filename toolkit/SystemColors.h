#pragma once

#include <QColor>

/// A colour as forms and settings keep it: red + 256 green + 65536 blue, or 0x80000000 plus a number of the
/// system's table, which stands for a role of the style.
using ColorNumber = quint32;

/// The system's numbers that controls use.
namespace SystemColor {
inline constexpr ColorNumber Face = 0x8000000F;
inline constexpr ColorNumber Shadow = 0x80000010;
inline constexpr ColorNumber ButtonText = 0x80000012;
inline constexpr ColorNumber Highlight = 0x80000014;
inline constexpr ColorNumber Light = 0x80000016;
} // namespace SystemColor

/// The colour of a number; invalid for a system number that is none of the above.
QColor ColorOf(ColorNumber number);
/// The number of a colour.
ColorNumber NumberOf(const QColor& color);
