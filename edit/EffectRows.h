#pragma once

#include <QString>

#include <span>

class Lead;

/// The heading that a row stands under.
enum class EffectGroup { Image, Effects };

/// One operation with an amount: its slider, which holds the amount to a range, and what it does to a
/// picture.
struct EffectRow {
    const char* button; ///< object name of the button that applies it
    const char* label;
    EffectGroup group;
    int min;
    int max;
    int start;
    int largeStep;
    /// Throws ControlError. Only Emboss looks at the direction: 0 east, 1 west, 2 north, 3 south.
    void (*apply)(Lead& effect, int value, int direction);
};

inline constexpr int EffectRowCount = 12;
std::span<const EffectRow, EffectRowCount> EffectRows();

/// What the box beside a slider makes of its text.
namespace AnswerText {

/// The number that the text begins with, rounded, a half to the even one; 0 for any other text.
int Number(const QString& text);
/// The text as it stands, or the bound that its number oversteps.
QString Held(const QString& text, const EffectRow& row);
/// Whether the text may be the beginning of a number that is still being typed: digits that are too small for
/// the range, or a minus alone.
bool IsBeginning(const QString& text, const EffectRow& row);

} // namespace AnswerText
