#pragma once

#include "media/Libav.h"
#include <mutex>

namespace media {

/// Blocks of memory of one size at a time, used again and again: to have megabytes fresh from the system for
/// every picture takes longer than to fill them. May be used on any thread; blocks may outlive the pool.
class BufferPool {
public:
    using Block = std::unique_ptr<AVBufferRef, FreeByAddress<av_buffer_unref>>;

    /// A block of at least size bytes, its content undefined; null when there is no memory.
    Block Take(size_t size);

private:
    std::mutex mutex_;
    size_t size_ = 0;
    std::unique_ptr<AVBufferPool, FreeByAddress<av_buffer_pool_uninit>> pool_;
};

} // namespace media
