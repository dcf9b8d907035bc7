#pragma once

#include "media/Sound.h"
#include <functional>
#include <memory>
#include <optional>

namespace player {

/// Where sound goes: SoundRate, SoundChannels, one playing at a time. Used by one thread at a time; no call
/// waits.
class SoundDevice {
public:
    enum class State {
        Opening,
        Ready,
        Gone, ///< there is none, or not any more
    };

    virtual ~SoundDevice() = default;
    virtual State Status() = 0;
    /// Frames that can be written now.
    virtual std::size_t Room() = 0;
    /// At most Room() frames.
    virtual void Write(const media::Samples& samples) = 0;
    /// Plays what is and will be written.
    virtual void Start() = 0;
    /// Falls silent at once and forgets what was written.
    virtual void Stop() = 0;
    /// Seconds until the end of what was written is heard; none while that is not known.
    virtual std::optional<double> Delay() = 0;
};

/// Null where there is none.
using SoundDeviceMaker = std::function<std::unique_ptr<SoundDevice>()>;

} // namespace player
