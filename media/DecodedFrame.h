#pragma once

#include "media/PictureMemory.h"
#include <QTransform>

namespace media {

/// What a Picture shares: the decoder's frame and how it is to be shown.
struct DecodedFrame {
    FramePtr frame;
    AVRational pixelAspect { 1, 1 };
    QTransform turn; ///< quarter turns and mirrorings as tagged
    std::shared_ptr<PictureMemory> memory; ///< never null
};

} // namespace media
