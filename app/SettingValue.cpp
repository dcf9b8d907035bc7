#include "app/SettingValue.h"

#include <charconv>
#include <cmath>

namespace SettingValue {

QString Text(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QString Text(qint32 value)
{
    return QString::number(value);
}

QString Text(float value)
{
    char digits[64]; // the smallest numbers have 46 digits behind their point
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed).ptr;
    return QString::fromLatin1(digits, end - digits);
}

template <> std::optional<bool> Parse(const QString& text)
{
    const QString word = text.trimmed();
    for (const bool value : { true, false })
        if (word.compare(Text(value), Qt::CaseInsensitive) == 0)
            return value;
    return std::nullopt;
}

template <> std::optional<qint16> Parse(const QString& text)
{
    bool isNumber = false;
    const qint16 value = text.toShort(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

template <> std::optional<qint32> Parse(const QString& text)
{
    bool isNumber = false;
    const qint32 value = text.toInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

template <> std::optional<float> Parse(const QString& text)
{
    bool isNumber = false;
    const float value = text.toFloat(&isNumber);
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

template <> std::optional<QString> Parse(const QString& text)
{
    return text;
}

} // namespace SettingValue
