#pragma once

#include "media/player/SoundDevice.h"

namespace player {

/// The sound server of the desktop (PulseAudio, or PipeWire in its place). Starts no server. Null where the
/// system has not enough resources.
std::unique_ptr<SoundDevice> MakePulseDevice();

} // namespace player
