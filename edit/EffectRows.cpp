#include "edit/EffectRows.h"

#include "app/Lead.h"
#include "text/FieldCheck.h"

#include <algorithm>

namespace {

template <auto operation> void Run(Lead& effect, int value, int)
{
    (effect.*operation)(value);
}

void RunEmboss(Lead& effect, int value, int direction)
{
    effect.Emboss(direction, value);
}

constexpr EffectRow Rows[EffectRowCount] = {
    { "Contrast", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Contrast> },
    { "Brightness", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Brightness> },
    { "Hue", EffectGroup::Image, -180, 180, 0, 30, Run<&Lead::Hue> },
    { "Saturation", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Saturation> },
    { "Gamma", EffectGroup::Image, 1, 500, 100, 10, Run<&Lead::Gamma> },
    { "Sharpen", EffectGroup::Image, -1000, 1000, 100, 10, Run<&Lead::Sharpen> },
    { "Oil", EffectGroup::Effects, 2, 20, 2, 1, Run<&Lead::Oil> },
    { "Emboss", EffectGroup::Effects, 0, 1000, 2, 1, RunEmboss },
    { "Mosaic", EffectGroup::Effects, 0, 1000, 3, 5, Run<&Lead::Mosaic> },
    { "Posterize", EffectGroup::Effects, 2, 64, 2, 5, Run<&Lead::Posterize> },
    { "Median", EffectGroup::Effects, 2, 25, 3, 5, Run<&Lead::Median> },
    { "Solarize", EffectGroup::Effects, 0, 255, 3, 5, Run<&Lead::Solarize> },
};

} // namespace

std::span<const EffectRow, EffectRowCount> EffectRows()
{
    return Rows;
}

int AnswerText::Number(const QString& text)
{
    return FieldCheck::NumberIn(text);
}

QString AnswerText::Held(const QString& text, const EffectRow& row)
{
    const int number = Number(text);
    const int held = std::clamp(number, row.min, row.max);
    return held == number ? text : QString::number(held);
}

bool AnswerText::IsBeginning(const QString& text, const EffectRow& row)
{
    const bool isDigits = std::ranges::all_of(text, [](QChar character) { return character.isDigit(); });
    return isDigits && Number(text) < row.min;
}
