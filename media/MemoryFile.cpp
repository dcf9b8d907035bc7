#include "media/MemoryFile.h"

#include <algorithm>
#include <cstring>

namespace media {

namespace {

constexpr int ReadBlock = 32 * 1024;

} // namespace

MemoryFile::MemoryFile(const QByteArray& content)
    : bytes_(content)
    , io_(avio_alloc_context(
          static_cast<unsigned char*>(av_malloc(ReadBlock)), ReadBlock, 0, this, &Read, nullptr, &Seek))
{
}

MemoryFile::~MemoryFile()
{
    if (io_)
        av_freep(&io_->buffer);
    avio_context_free(&io_);
}

int MemoryFile::Read(void* self, uint8_t* target, int size)
{
    auto& file = *static_cast<MemoryFile*>(self);
    const auto count = std::min<qsizetype>(size, file.bytes_.size() - file.at_);
    if (count <= 0)
        return AVERROR_EOF;
    std::memcpy(target, file.bytes_.constData() + file.at_, size_t(count));
    file.at_ += count;
    return int(count);
}

int64_t MemoryFile::Seek(void* self, int64_t offset, int whence)
{
    auto& file = *static_cast<MemoryFile*>(self);
    if (whence == AVSEEK_SIZE)
        return file.bytes_.size();
    const int64_t base = whence == SEEK_CUR ? file.at_ : whence == SEEK_END ? file.bytes_.size() : 0;
    if (base + offset < 0 || base + offset > file.bytes_.size())
        return AVERROR(EINVAL);
    return file.at_ = base + offset;
}

} // namespace media
