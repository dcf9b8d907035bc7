#include "media/PictureCache.h"

namespace media {

void PictureCache::Put(const Picture& picture)
{
    if (places_.contains(picture.Number()))
        return;
    pictures_.push_front(picture);
    places_[picture.Number()] = pictures_.begin();
    bytes_ += picture.Bytes();
    while (bytes_ > limit_ && !pictures_.empty()) {
        bytes_ -= pictures_.back().Bytes();
        places_.erase(pictures_.back().Number());
        pictures_.pop_back();
    }
}

Picture PictureCache::Use(int number)
{
    const auto found = places_.find(number);
    if (found == places_.end())
        return {};
    pictures_.splice(pictures_.begin(), pictures_, found->second);
    return *found->second;
}

Picture PictureCache::Find(int number) const
{
    const auto found = places_.find(number);
    return found == places_.end() ? Picture() : *found->second;
}

} // namespace media
