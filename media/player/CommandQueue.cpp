#include "media/player/CommandQueue.h"

namespace player {

bool CommandQueue::Push(Command command)
{
    const std::lock_guard lock(mutex_);
    if (isClosed_ || commands_.size() >= Capacity)
        return false;
    commands_.push_back(std::move(command));
    changed_.notify_all();
    return true;
}

CommandQueue::Command CommandQueue::Pop(Clock::time_point until)
{
    std::unique_lock lock(mutex_);
    const auto isReady = [this] { return isClosed_ || !commands_.empty(); };
    if (until == Clock::time_point::max())
        changed_.wait(lock, isReady);
    else
        changed_.wait_until(lock, until, isReady);
    if (commands_.empty())
        return {};
    Command command = std::move(commands_.front());
    commands_.pop_front();
    return command;
}

void CommandQueue::Close()
{
    std::deque<Command> dropped; // dies outside the lock: a command may own what takes locks of its own
    const std::lock_guard lock(mutex_);
    isClosed_ = true;
    dropped.swap(commands_);
    changed_.notify_all();
}

bool CommandQueue::IsClosed() const
{
    const std::lock_guard lock(mutex_);
    return isClosed_;
}

} // namespace player
