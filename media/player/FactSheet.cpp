#include "media/player/FactSheet.h"

namespace player {

void FactSheet::Write(const Facts& facts)
{
    const std::lock_guard lock(mutex_);
    facts_ = facts;
    if (facts.isComplete)
        completed_.notify_all();
}

Facts FactSheet::Read() const
{
    const std::lock_guard lock(mutex_);
    return facts_;
}

Facts FactSheet::Await(std::chrono::milliseconds limit) const
{
    std::unique_lock lock(mutex_);
    completed_.wait_for(lock, limit, [this] { return facts_.isComplete; });
    return facts_;
}

} // namespace player
