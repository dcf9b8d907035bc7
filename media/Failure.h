#pragma once

#include "media/Source.h"
#include <QString>
#include <stdexcept>
#include <string>

namespace media {

/// Why a source cannot be opened or read. Numbers are those of PlayerError.
enum class Failure {
    NotFound = 1,
    NoPermission,
    NotAFile,
    Empty,
    NotAVideo,
    Damaged,
    TooLarge,
    TimedOut,
    Refused,
    Network,
    Vanished,
    NoResources,
};

/// One short sentence in the program's words.
QString FailureText(Failure failure);

/// A source that cannot be opened or read any further; what() is detail for developers.
class MediaError : public std::runtime_error {
public:
    MediaError(Failure why, const std::string& detail)
        : std::runtime_error(detail)
        , failure(why)
    {
    }
    Failure failure;
};

/// What an error code of the library or the system means to the program, for a source of a kind.
Failure FailureOf(int error, Source::Kind kind);
/// The library's own words for an error code.
std::string DetailOf(int error);
/// The exception for an error code.
MediaError ErrorOf(int error, Source::Kind kind);

} // namespace media
