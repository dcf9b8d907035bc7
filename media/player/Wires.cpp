#include "media/player/Wires.h"

#include <utility>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto HurryLimit = 300ms; // a decoding in its normal course is through by then

} // namespace

void Wires::Hurry()
{
    isHurried = true;
    interrupt.SetDeadline(media::Interrupt::Clock::now() + HurryLimit);
}

void Wires::DropShelf()
{
    if (shelf.Drop())
        TellOfShelf();
}

void Wires::TellOfShelf() const
{
    Mail news;
    news.shelfChanged = true;
    mail->Post(news);
}

View Wires::LookedAt() const
{
    const std::lock_guard lock(mutex_);
    return view_;
}

void Wires::LookAt(const View& view)
{
    const std::lock_guard lock(mutex_);
    view_ = view;
}

void Wires::OrderRedraw(const Shot& shot)
{
    const std::lock_guard lock(mutex_);
    redraw_ = shot;
}

std::optional<Shot> Wires::TakeRedraw()
{
    const std::lock_guard lock(mutex_);
    return std::exchange(redraw_, std::nullopt);
}

} // namespace player
