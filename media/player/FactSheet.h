#pragma once

#include <QSize>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace player {

/// What is known of the source; the index keeps adding to it.
struct Facts {
    int frames = 0;
    bool isComplete = false;
    double duration = 0;
    QSize size;
    bool isLive = false; ///< sent as it happens: it cannot be played faster or slower
};

/// The newest facts, written by the engine thread, read by the user-interface thread.
class FactSheet {
public:
    void Write(const Facts& facts);
    Facts Read() const;
    /// The facts once they are complete, or as they stand when limit has passed.
    Facts Await(std::chrono::milliseconds limit) const;

private:
    mutable std::mutex mutex_;
    mutable std::condition_variable completed_;
    Facts facts_;
};

} // namespace player
