#pragma once

#include "app/ControlError.h"
#include "media/Failure.h"

namespace player {

/// What a caller is told who asks for something that needs a video.
inline ControlError NoVideo()
{
    return ControlError(QStringLiteral("There is no video."));
}

/// Does work for a caller that is told of failures: those of the media become a ControlError in the program's
/// words.
template <typename Work> auto AsPlayerFailure(const Work& work)
{
    try {
        return work();
    } catch (const media::MediaError& error) {
        throw ControlError(media::FailureText(error.failure));
    }
}

} // namespace player
