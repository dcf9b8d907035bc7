#pragma once

#include "media/FrameServer.h"
#include <new>

namespace player {

/// Does work and hands back what it gives. What the memory does not suffice for is told like pictures that
/// are too large: throws media::MediaError, so that it ends the work and not the program.
template <typename Work> auto WithinMemory(const Work& work)
{
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw media::MediaError(media::Failure::TooLarge, "no memory");
    }
}

} // namespace player
