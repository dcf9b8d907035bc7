#pragma once

#include "media/FrameServer.h"
#include "tests/clips/Clips.h"

namespace media {

/// A clip opened with its whole index, and what it needs to live.
struct Opened {
    explicit Opened(const QString& clip, const Limits& limits = {})
        : server(FrameServer::Open({ Source::Kind::File, ClipPath(clip).toUtf8() }, *interrupt, limits))
    {
        server->ExtendIndex(1 << 30);
    }
    FrameServer* operator->() const { return server.get(); }

    std::unique_ptr<Interrupt> interrupt = std::make_unique<Interrupt>();
    std::unique_ptr<FrameServer> server;
};

/// A checksum of what a picture shows.
inline size_t SumOf(const QImage& image)
{
    size_t sum = 0;
    for (int y = 0; y < image.height(); ++y)
        sum = qHashBits(image.constScanLine(y), size_t(image.width()) * size_t(image.depth() / 8), sum);
    return sum;
}

} // namespace media
