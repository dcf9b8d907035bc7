#pragma once

#include <QString>

#include <optional>

/// Values as the texts of the settings store: "True" and "False", decimal numbers with a point, whatever the
/// locale.
namespace SettingValue {

QString Text(bool value);
QString Text(qint32 value);
QString Text(float value);
inline QString Text(qint16 value)
{
    return Text(qint32(value));
}
inline QString Text(const QString& value)
{
    return value;
}

/// The value a text stands for; nothing when it cannot be converted or does not fit.
template <typename T> std::optional<T> Parse(const QString& text);
template <> std::optional<bool> Parse(const QString& text);
template <> std::optional<qint16> Parse(const QString& text);
template <> std::optional<qint32> Parse(const QString& text);
template <> std::optional<float> Parse(const QString& text);
template <> std::optional<QString> Parse(const QString& text);

} // namespace SettingValue
