#pragma once

#include <QByteArray>
#include <QImage>
#include <cstddef>
#include <span>
#include <vector>

namespace imaging {

/// A picture file in memory, in parts that are written one behind the other. Its parts point into itself,
/// also after it was moved.
class EncodedFile {
public:
    explicit EncodedFile(QByteArray bytes);
    /// A header and the rows of a picture as they stand in memory, the lowest first, each padded with zeros
    /// to a multiple of four bytes.
    EncodedFile(QByteArray header, QImage rows);
    EncodedFile(EncodedFile&&) = default;
    EncodedFile& operator=(EncodedFile&&) = default;
    EncodedFile(const EncodedFile&) = delete;
    EncodedFile& operator=(const EncodedFile&) = delete;

    std::span<const std::span<const std::byte>> Parts() const { return parts_; }
    qsizetype Size() const;
    /// All parts in one block.
    QByteArray Joined() const;

private:
    void Add(const void* bytes, qsizetype count);

    QByteArray bytes_;
    QImage rows_;
    std::vector<std::span<const std::byte>> parts_;
};

} // namespace imaging
