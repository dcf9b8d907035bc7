#pragma once

#include <atomic>

namespace media {

/// What a codec's threads and the decoder that owns the codec tell each other about damage; the codec's
/// opaque pointer leads to it.
struct DamageWatch {
    std::atomic<bool> isPatched = false; ///< the codec patched damage with what it decoded before
    std::atomic<bool> isBlanking = false; ///< buffers for pictures are to be blank, not as they were left
};

} // namespace media
