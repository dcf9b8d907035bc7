#pragma once

#include "media/BufferPool.h"
#include "media/ScalerPool.h"

namespace media {

/// What the pictures made from one source have in common, so as to have it once.
struct PictureMemory {
    BufferPool planes;
    BufferPool stills;
    BufferPool screens;
    ScalerPool scalers;
};

} // namespace media
