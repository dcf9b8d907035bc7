#include "capture/AutoTally.h"

#include "app/TimeText.h"
#include <algorithm>
#include <limits>

void AutoTally::StartVideo()
{
    firstDone_ = false;
    elapsedSeconds_ = 0;
}

void AutoTally::Count(int interval)
{
    isFirst_ = !firstDone_;
    if (!isFirst_)
        ++captureCount_;
    const qint64 elapsed = isFirst_ ? interval : qint64(interval) * captureCount_;
    elapsedSeconds_ = int(std::min<qint64>(elapsed, std::numeric_limits<int>::max()));
    firstDone_ = true;
}

QString AutoTally::TimeText() const
{
    if (isFirst_)
        return FirstText();
    return QStringLiteral("Captured frame at ") + SecondsToTime(elapsedSeconds_) + QStringLiteral("        ")
        + Total();
}

QString AutoTally::FrameText() const
{
    if (isFirst_)
        return FirstText();
    return QStringLiteral("Captured frame at Frame #: ") + QString::number(elapsedSeconds_)
        + QStringLiteral("    ") + Total();
}

QString AutoTally::FirstText() const
{
    return QStringLiteral("Captured first frame.     ") + Total();
}

QString AutoTally::Total() const
{
    return QStringLiteral("Total Captures = ") + QString::number(captureCount_ + 1);
}
