#include "text/FieldCheck.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>

namespace FieldCheck {

int NumberIn(const QString& text)
{
    static const QRegularExpression leadingNumber(QStringLiteral("^\\s*[+-]?[0-9]+"));
    const double number = leadingNumber.match(text).captured().toDouble();
    using Bounds = std::numeric_limits<int>;
    return int(std::clamp(number, double(Bounds::min()), double(Bounds::max())));
}

QString Within(const QString& text, int max)
{
    const int number = NumberIn(text);
    const int held = std::clamp(number, 0, max);
    return held == number ? text : QString::number(held);
}

} // namespace FieldCheck
