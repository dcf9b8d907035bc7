#include "imaging/EncodedFile.h"

#include <utility>

namespace imaging {

EncodedFile::EncodedFile(QByteArray bytes)
    : bytes_(std::move(bytes))
{
    Add(bytes_.constData(), bytes_.size());
}

EncodedFile::EncodedFile(QByteArray header, QImage rows)
    : bytes_(std::move(header))
    , rows_(std::move(rows))
{
    static constexpr std::byte zeros[3] {};
    const qsizetype used = qsizetype(rows_.width()) * rows_.depth() / 8;
    const qsizetype padding = (4 - used % 4) % 4;
    parts_.reserve(1 + size_t(rows_.height()) * (padding > 0 ? 2 : 1));
    Add(bytes_.constData(), bytes_.size());
    for (int y = rows_.height(); y-- > 0;) {
        Add(rows_.constScanLine(y), used);
        if (padding > 0)
            Add(zeros, padding);
    }
}

qsizetype EncodedFile::Size() const
{
    qsizetype size = 0;
    for (const auto part : parts_)
        size += qsizetype(part.size());
    return size;
}

QByteArray EncodedFile::Joined() const
{
    QByteArray joined;
    joined.reserve(Size());
    for (const auto part : parts_)
        joined.append(reinterpret_cast<const char*>(part.data()), qsizetype(part.size()));
    return joined;
}

void EncodedFile::Add(const void* bytes, qsizetype count)
{
    parts_.emplace_back(static_cast<const std::byte*>(bytes), size_t(count));
}

} // namespace imaging
