#pragma once

#include "media/FrameServer.h"

namespace player {

/// A piece of work that must end within a time: the interrupt falls due then, as long as this lives.
class Deadline {
public:
    Deadline(media::Interrupt& interrupt, std::chrono::milliseconds limit)
        : interrupt_(interrupt)
    {
        interrupt_.SetDeadline(media::Interrupt::Clock::now() + limit);
    }
    ~Deadline() { interrupt_.ClearDeadline(); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

private:
    media::Interrupt& interrupt_;
};

} // namespace player
