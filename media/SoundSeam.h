#pragma once

#include <cstddef>
#include <cstdint>

namespace media {

/// Joins blocks of sound to one that has no holes and nothing twice. Counts in frames of SoundRate.
class SoundSeam {
public:
    /// What makes a block fit: so much silence before it, so much of its own beginning left out.
    struct Fit {
        std::size_t silence = 0;
        std::size_t drop = 0;
    };

    /// The joined sound begins at a moment, in seconds.
    explicit SoundSeam(double from = 0)
        : from_(from)
    {
    }

    /// How a block that starts at a moment is to be joined. Small differences are left alone: stamps are
    /// rounded.
    Fit Join(double start) const;
    /// So much went out. What is silence does not make the next block fit less exactly.
    void Advance(std::size_t frames, bool isSilence);
    /// A whole block is left out: the next one is to fit exactly.
    void Leave() { isExact_ = true; }
    /// Seconds, the end of what went out.
    double Position() const;

    static constexpr double Tolerance = 0.05; ///< seconds

private:
    double from_;
    int64_t frames_ = 0;
    bool isExact_ = true; ///< nothing was heard yet that a jump of a few milliseconds would disturb
};

} // namespace media
