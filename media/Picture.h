#pragma once

#include <QImage>
#include <QSize>
#include <memory>

namespace media {

struct DecodedFrame;

/// Largest picture in pixels that is decoded: as many as a picture file of ours holds, as each one may be
/// captured.
inline constexpr int64_t MaxPixels = 64'000'000;

/// A decoded picture, shared, in the codec's own format. Cheap to copy; its members may be called on any
/// thread.
class Picture {
public:
    Picture() = default;
    Picture(std::shared_ptr<const DecodedFrame> frame, int number)
        : frame_(std::move(frame))
        , number_(number)
    {
    }

    bool IsNull() const { return !frame_; }
    /// Presentation ordinal.
    int Number() const { return number_; }
    /// The same picture under another number.
    Picture As(int number) const { return { frame_, number }; }
    /// Size in square pixels (stored height, width by the sample aspect ratio), rotated as tagged.
    QSize Size() const;
    /// Bytes the decoded picture holds.
    qsizetype Bytes() const;
    /// The picture as QImage::Format_BGR888 at Size(), colour matrix and range honoured: what a capture
    /// saves.
    QImage ToStill() const;
    /// The picture as QImage::Format_RGB32 scaled to size (device pixels), for the screen.
    QImage ToScreen(QSize size) const;

private:
    std::shared_ptr<const DecodedFrame> frame_;
    int number_ = -1;
};

} // namespace media
