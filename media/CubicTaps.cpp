#include "media/CubicTaps.h"

#include <algorithm>
#include <cstdlib>

namespace media {

namespace {

/// The cubic of the family's parameters 0 and 0.6 at a distance in quarters of a sample, below two samples.
int64_t WeightAt(int quarters)
{
    constexpr int64_t one = 1 << 24;
    constexpr int64_t sharp = 10'066'329; // 0.6
    const int64_t q = quarters;
    const int64_t inQuarters = q < 4
        ? (12 * one - 6 * sharp) * q * q * q - (18 * one - 6 * sharp) * q * q * 4 + 6 * one * 64
        : -6 * sharp * q * q * q + 30 * sharp * q * q * 4 - 48 * sharp * q * 16 + 24 * sharp * 64;
    return inQuarters * one;
}

int64_t RoundedQuotient(int64_t value, int64_t divisor)
{
    return (value + (value < 0 ? -divisor : divisor) / 2) / divisor;
}

} // namespace

CubicTaps CubicTaps::Of(int longSample, int samples, int unit)
{
    const int first = (longSample + 1) / 2 - 2;
    const int last = samples - 1;
    CubicTaps taps { std::clamp(first, 0, last - 3), {} };
    // What would lie beyond an end goes to the sample at that end. The library leaves the farthest one out at
    // the beginning of a row, on its left or upper side only.
    std::array<int64_t, 4> weights {};
    for (int sample = first; sample < first + 4; ++sample) {
        const bool isLeftOut = sample < 0 && sample == first && longSample % 2 == 0;
        if (!isLeftOut)
            weights[size_t(std::clamp(sample, 0, last) - taps.first)] +=
                WeightAt(std::abs(4 * sample + 1 - 2 * longSample));
    }
    int64_t sum = 0;
    for (const int64_t weight : weights)
        sum += weight;
    const int64_t divisor = (sum + unit / 2) / unit;
    int64_t rest = 0; // what rounding left over goes to the next weight
    for (size_t i = 0; i < weights.size(); ++i) {
        const int64_t weight = RoundedQuotient(weights[i] + rest, divisor);
        rest += weights[i] - weight * divisor;
        taps.weights[i] = int16_t(weight);
    }
    return taps;
}

} // namespace media
