#include "edit/EffectRows.h"

#include "app/Lead.h"

#include <QRegularExpression>

#include <algorithm>
#include <climits>
#include <cmath>

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
    { "ImageBut(0)", "Contrast", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Contrast> },
    { "ImageBut(1)", "Brightness", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Brightness> },
    { "ImageBut(2)", "Hue", EffectGroup::Image, -180, 180, 0, 30, Run<&Lead::Hue> },
    { "ImageBut(3)", "Saturation", EffectGroup::Image, -1000, 1000, 0, 10, Run<&Lead::Saturation> },
    { "ImageBut(4)", "Gamma", EffectGroup::Image, 1, 500, 100, 10, Run<&Lead::Gamma> },
    { "ImageBut(5)", "Sharpen", EffectGroup::Image, -1000, 1000, 100, 10, Run<&Lead::Sharpen> },
    { "EffectBut(0)", "Oil", EffectGroup::Effects, 2, 20, 2, 1, Run<&Lead::Oil> },
    { "EffectBut(1)", "Emboss", EffectGroup::Effects, 0, 1000, 2, 1, RunEmboss },
    { "EffectBut(2)", "Mosaic", EffectGroup::Effects, 0, 1000, 3, 5, Run<&Lead::Mosaic> },
    { "EffectBut(3)", "Posterize", EffectGroup::Effects, 2, 64, 2, 5, Run<&Lead::Posterize> },
    { "EffectBut(4)", "Median", EffectGroup::Effects, 2, 25, 3, 5, Run<&Lead::Median> },
    { "EffectBut(5)", "Solarize", EffectGroup::Effects, 0, 255, 3, 5, Run<&Lead::Solarize> },
};

/// The number that a text begins with, 0 without one.
double Exact(const QString& text)
{
    static const QRegularExpression leadingNumber(QStringLiteral("^\\s*[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)"));
    return leadingNumber.match(text).captured().trimmed().toDouble();
}

} // namespace

std::span<const EffectRow, EffectRowCount> EffectRows()
{
    return Rows;
}

int AnswerText::Number(const QString& text)
{
    return int(std::nearbyint(std::clamp(Exact(text), double(INT_MIN), double(INT_MAX))));
}

QString AnswerText::Held(const QString& text, const EffectRow& row)
{
    const double number = Exact(text);
    if (number < row.min)
        return QString::number(row.min);
    return number > row.max ? QString::number(row.max) : text;
}

bool AnswerText::IsBeginning(const QString& text, const EffectRow& row)
{
    const bool isDigits = std::ranges::all_of(text, [](QChar character) { return character.isDigit(); });
    return (isDigits || text == QLatin1String("-")) && Number(text) < row.min;
}
