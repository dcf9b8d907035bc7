#pragma once

#include <QByteArray>
#include <QImage>

/// A device-independent bitmap in one owned block: a 40-byte header and bottom-up rows of blue, green, red,
/// each row padded to four bytes. Moved, not copied, from the player to the clipboard; whoever holds it frees
/// it by dropping it.
class Dib {
public:
    Dib() = default;
    Dib(Dib&&) noexcept = default;
    Dib& operator=(Dib&&) noexcept = default;
    Dib(const Dib&) = delete;
    Dib& operator=(const Dib&) = delete;

    /// A 24-bit bitmap of a picture of any format; alpha is dropped. A null picture gives an empty block.
    /// Throws std::bad_alloc.
    static Dib FromImage(const QImage& image);
    /// The picture as QImage::Format_BGR888; null for an empty or damaged block.
    QImage ToImage() const;

    bool IsEmpty() const { return block_.isEmpty(); }
    const QByteArray& Block() const { return block_; }

private:
    QByteArray block_;
};
