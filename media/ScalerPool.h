#pragma once

#include "media/Libav.h"
#include <QSize>
#include <list>
#include <mutex>

namespace media {

/// What a scaler of the library is made for.
struct ScalerKind {
    int sourceWidth;
    int sourceHeight;
    AVPixelFormat source; ///< without its range
    int width;
    int height;
    AVPixelFormat target;
    int flags;
    int matrix; ///< SWS_CS_…
    bool isFullRange;

    bool operator==(const ScalerKind&) const = default;
};

/// Scalers, used again and again: to work out their filters takes as long as to scale a small picture. May
/// be used on any thread.
class ScalerPool {
public:
    /// Has a scaler of the kind at work; false when there is none to be had.
    template <typename Work> bool With(const ScalerKind& kind, Work&& work)
    {
        ScalerPtr scaler = Take(kind);
        if (!scaler)
            return false;
        work(*scaler);
        GiveBack(kind, std::move(scaler));
        return true;
    }

private:
    static constexpr std::size_t MostIdle = 4;

    ScalerPtr Take(const ScalerKind& kind);
    void GiveBack(const ScalerKind& kind, ScalerPtr scaler);

    struct Idle {
        ScalerKind kind;
        ScalerPtr scaler;
    };
    std::mutex mutex_;
    std::list<Idle> idle_; ///< the last used first
};

} // namespace media
