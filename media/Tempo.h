#pragma once

#include "media/Sound.h"

namespace media {

/// Tempi in [0.5, 2] whose product is rate; none for 1. Outside that range one stage would leave sound out or
/// cannot do it.
std::vector<double> TempoStages(double rate);

/// Sound made faster or slower at its own pitch.
class Tempo {
public:
    /// Throws MediaError when it cannot be had.
    explicit Tempo(double rate);
    ~Tempo();
    Tempo(const Tempo&) = delete;
    Tempo& operator=(const Tempo&) = delete;

    /// Takes sound and gives what is ready of it, which may be nothing.
    Samples Stretch(Samples samples);
    /// Seconds of the media by which what comes out stands before its place.
    double Lead() const { return lead_; }
    /// What is left when nothing follows.
    Samples Finish();

private:
    struct Chain;
    std::unique_ptr<Chain> chain_; ///< none at rate 1
    double lead_ = 0;
};

} // namespace media
