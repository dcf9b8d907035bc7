#pragma once

#include "media/player/SoundDevice.h"

namespace player {

/// The sound server of the desktop (PulseAudio, or PipeWire in its place). Starts no server.
std::unique_ptr<SoundDevice> MakePulseDevice();

} // namespace player
