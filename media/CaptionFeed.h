#pragma once

#include "media/MediaSource.h"
#include <QByteArray>

namespace media {

/// Captions of line 21 that stand in a track of their own, read by a reader of their own as the pictures come
/// along: containers store both in an order that says nothing of their times.
class CaptionFeed {
public:
    /// The feed of a source; null where there is no such track, or it cannot be had. Captions of the web are
    /// left out: each of their few bytes would cost a request of its own.
    static std::unique_ptr<CaptionFeed> Of(const Source& source, const MediaSource& pictures);

    /// The triplets that begin up to a moment (seconds from the start of the media) and were not given
    /// before.
    QByteArray UpTo(double seconds);

private:
    explicit CaptionFeed(const Source& source);
    double Begin() const;

    Interrupt interrupt_; ///< never due: what was broken off here would be lost
    MediaSource media_;
    PacketPtr next_;
};

} // namespace media
