#pragma once

#include <array>
#include <cstdint>

namespace media {

/// The samples, and their weights, that one sample of a row of twice the length is made of.
struct CubicTaps {
    int first; ///< of four samples in a row
    std::array<int16_t, 4> weights; ///< they add up to the unit asked for

    /// The taps of one of the 2 * samples samples of the longer row; samples is 4 or more. To the last bit
    /// those of the scaler library's cubic filter.
    static CubicTaps Of(int longSample, int samples, int unit);
};

} // namespace media
