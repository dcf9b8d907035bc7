#pragma once

#include "media/FrameServer.h"

namespace player {

/// One picture on its way to the screen: decoded, and converted for where it goes.
struct Shot {
    int number = -1;
    /// Time of the picture from the start of the media.
    double seconds = 0;
    media::Picture picture;
    /// Format_RGB32 at the shown size in device pixels; null when nobody looks.
    QImage screen;
    /// What closed captions say with it.
    media::Caption caption;
    /// The capture, when it was made ahead of the asking; else null.
    QImage still;
    /// The order of the user that it answers (Session counts them); what belongs to an earlier one is stale.
    int turn = 0;

    bool IsNull() const { return number < 0; }
};

} // namespace player
