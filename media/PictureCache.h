#pragma once

#include "media/Picture.h"
#include <list>
#include <unordered_map>

namespace media {

/// Decoded pictures by number, within a limit of bytes; what was used longest ago goes first.
class PictureCache {
public:
    explicit PictureCache(qsizetype limit)
        : limit_(limit)
    {
    }
    void Put(const Picture& picture);
    /// The picture, null when it is not kept; counts as use.
    Picture Use(int number);
    /// The picture, null when it is not kept; changes nothing.
    Picture Find(int number) const;

    qsizetype Bytes() const { return bytes_; }
    qsizetype Limit() const { return limit_; }

private:
    qsizetype limit_;
    qsizetype bytes_ = 0;
    std::list<Picture> pictures_; ///< the last used first
    std::unordered_map<int, std::list<Picture>::iterator> places_;
};

} // namespace media
