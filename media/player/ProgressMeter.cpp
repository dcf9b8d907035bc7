#include "media/player/ProgressMeter.h"

namespace player {

ProgressMeter::ProgressMeter(std::function<void()> report)
    : report_(std::move(report))
{
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Force(); });
}

void ProgressMeter::Offer()
{
    const qint64 elapsed = sinceReport_.isValid() ? sinceReport_.elapsed() : IntervalMs;
    if (elapsed >= IntervalMs)
        Force();
    else if (!timer_.isActive())
        timer_.start(IntervalMs - int(elapsed));
}

void ProgressMeter::Force()
{
    timer_.stop();
    sinceReport_.start();
    report_();
}

} // namespace player
