#include "media/player/StrideWatch.h"

#include <utility>

namespace player {

void StrideWatch::Sought(int number)
{
    const int stride = number - std::exchange(last_, number);
    if (!std::exchange(hasStill_, false) || stride <= 0)
        equalStrides_ = 0;
    else
        equalStrides_ = stride == stride_ ? equalStrides_ + 1 : 1;
    stride_ = stride;
}

} // namespace player
