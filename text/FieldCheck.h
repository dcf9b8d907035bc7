#pragma once

#include <QString>

/// What a text box of a number makes of its text.
namespace FieldCheck {

/// The whole number that a text begins with, 0 when it begins with none; held to 32 bits.
int NumberIn(const QString& text);
/// The text, or the bound that its number oversteps: 0 or max.
QString Within(const QString& text, int max);

} // namespace FieldCheck
