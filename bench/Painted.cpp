#include "bench/Painted.h"

#include "bench/Comparison.h"
#include "video/ltmmPlay.h"

#include <QEvent>

#include <chrono>

Painted::Painted(ltmmPlay& player)
    : player_(player)
{
    player.installEventFilter(this);
}

bool Painted::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Paint)
        times_.try_emplace(player_.CurrentFrame(), Now());
    return false;
}

std::vector<int> Painted::Late(double pictures) const
{
    if (times_.empty())
        return {};
    std::vector<double> starts; // when the video would have begun for each picture to be in time
    for (const auto& [number, time] : times_)
        starts.push_back(time - number / pictures);
    const double start = Quantile(starts, 0.5);
    std::vector<int> late;
    for (int number = times_.begin()->first; number <= times_.rbegin()->first; ++number)
        if (!Has(number) || TimeOf(number) > start + (number + 1) / pictures)
            late.push_back(number);
    return late;
}

double Painted::Now()
{
    using Clock = std::chrono::steady_clock;
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}
