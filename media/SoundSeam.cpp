#include "media/SoundSeam.h"

#include "media/Sound.h"
#include <cmath>

namespace media {

SoundSeam::Fit SoundSeam::Join(double start) const
{
    const double gap = start - Position();
    if (!isExact_ && std::abs(gap) <= Tolerance)
        return {};
    const auto frames = std::size_t(std::llround(std::abs(gap) * SoundRate));
    return gap > 0 ? Fit { frames, 0 } : Fit { 0, frames };
}

void SoundSeam::Advance(std::size_t frames, bool isSilence)
{
    frames_ += int64_t(frames);
    isExact_ = isExact_ && isSilence;
}

double SoundSeam::Position() const
{
    return from_ + double(frames_) / SoundRate;
}

} // namespace media
