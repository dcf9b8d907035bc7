#include "app/TimeText.h"

#include <QTime>

#include <cmath>

QString FormatPosition(double seconds)
{
    const auto hours = static_cast<long long>(seconds / 3600);
    const double rest = seconds - static_cast<double>(hours) * 3600;
    const auto minutes = static_cast<long long>(rest / 60);
    const long long last = std::llround(rest - static_cast<double>(minutes) * 60);
    const auto digits = [](long long number) { return QString::number(number).rightJustified(2, u'0'); };
    return digits(hours) + u':' + digits(minutes) + u':' + digits(last);
}

QString SecondsToTime(double seconds)
{
    return QTime(0, 0).addSecs(static_cast<int>(seconds)).toString(QStringLiteral("HH:mm:ss"));
}
