#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace player {

class Engine;

/// Work that the user-interface thread hands to the engine thread. Any number of threads.
class CommandQueue {
public:
    using Command = std::function<void(Engine&)>;
    using Clock = std::chrono::steady_clock;

    /// False when the queue is closed or Capacity commands wait already: the engine hangs, and more would
    /// only wait.
    bool Push(Command command);
    /// The next command; an empty one when none came by until or the queue was closed.
    Command Pop(Clock::time_point until);
    /// Drops what waits and takes nothing more.
    void Close();
    bool IsClosed() const;

    static constexpr std::size_t Capacity = 16;

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Command> commands_;
    bool isClosed_ = false;
};

} // namespace player
