#pragma once

#include "media/FrameServer.h"

namespace media {

/// What an error code of the library or the system means to the program.
Failure FailureOf(int error);
/// The library's own words for an error code.
std::string DetailOf(int error);
/// The exception for an error code.
MediaError ErrorOf(int error);

} // namespace media
