#include "media/BufferPool.h"

namespace media {

BufferPool::Block BufferPool::Take(size_t size)
{
    const std::lock_guard lock(mutex_);
    if (size != size_) {
        pool_.reset(av_buffer_pool_init(size, nullptr));
        size_ = pool_ ? size : 0;
    }
    return Block(pool_ ? av_buffer_pool_get(pool_.get()) : nullptr);
}

} // namespace media
