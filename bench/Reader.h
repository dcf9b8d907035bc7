#pragma once

#include "media/FrameServer.h"

#include <memory>

/// A way to a single picture of a video.
class Reader {
public:
    virtual ~Reader() = default;
    /// Makes the picture with this number the current one; this is measured.
    virtual void GoTo(int number) = 0;
    /// The number that the current picture's bar code shows, -1 when it shows none; this is not measured.
    virtual int Seen() = 0;
};

/// The engine alone. Throws media::MediaError when the clip cannot be opened.
std::unique_ptr<Reader> EngineReader(const QString& clip, media::Purpose purpose);

/// The player on the screen: by its next and previous frame where the number is a neighbour, else by number.
std::unique_ptr<Reader> PlayerReader(const QString& clip);

/// The packaged ffms2 with two threads. The index is made at once. Throws std::runtime_error.
std::unique_ptr<Reader> FfmsReader(const QString& clip);
