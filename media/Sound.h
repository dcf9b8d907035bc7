#pragma once

#include "media/Interrupt.h"
#include "media/Source.h"
#include <memory>
#include <optional>
#include <vector>

/// Sound as the engine hands it around: interleaved, two channels, 48 kHz, whatever the file holds.
namespace media {

constexpr int SoundRate = 48000; ///< frames in a second
constexpr int SoundChannels = 2;
using Samples = std::vector<float>; ///< left, right, left, …; 1 is full scale

inline std::size_t FramesIn(const Samples& samples)
{
    return samples.size() / SoundChannels;
}

/// Sound from one place of the media.
struct SoundBlock {
    double start = 0; ///< seconds from the start of the media
    Samples samples;
};

/// The sound of a source, from any moment on. No thread of its own.
class SoundReader {
public:
    /// Opens the first sound of the source. Throws MediaError, also where there is none. interrupt must
    /// outlive the reader. start is what the source's own clock shows at the start of the media, where that
    /// is not where this opening of the source begins: what is sent as it happens begins later each time.
    static std::unique_ptr<SoundReader> Open(
        const Source& source, Interrupt& interrupt, std::optional<double> start = {});
    virtual ~SoundReader() = default;

    /// The next block is the one that holds the moment, or one before it, or the first behind it where there
    /// is nothing.
    virtual void Seek(double seconds) = 0;
    /// The next block; none at the end. Throws MediaError when the interrupt is due.
    virtual std::optional<SoundBlock> Read() = 0;
};

} // namespace media
