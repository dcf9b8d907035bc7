#include "media/ScalerPool.h"

#include <algorithm>

namespace media {

namespace {

ScalerPtr Made(const ScalerKind& kind)
{
    ScalerPtr scaler(sws_getContext(kind.sourceWidth, kind.sourceHeight, kind.source, kind.width, kind.height,
        kind.target, kind.flags, nullptr, nullptr, nullptr));
    constexpr int one = 1 << 16;
    if (scaler)
        sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(kind.matrix), kind.isFullRange,
            sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, one, one);
    return scaler;
}

} // namespace

ScalerPtr ScalerPool::Take(const ScalerKind& kind)
{
    {
        const std::lock_guard lock(mutex_);
        const auto found =
            std::find_if(idle_.begin(), idle_.end(), [&](const Idle& idle) { return idle.kind == kind; });
        if (found != idle_.end()) {
            ScalerPtr scaler = std::move(found->scaler);
            idle_.erase(found);
            return scaler;
        }
    }
    return Made(kind);
}

void ScalerPool::GiveBack(const ScalerKind& kind, ScalerPtr scaler)
{
    const std::lock_guard lock(mutex_);
    idle_.push_front({ kind, std::move(scaler) });
    if (idle_.size() > MostIdle)
        idle_.pop_back();
}

} // namespace media
