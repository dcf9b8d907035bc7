#pragma once

#include <chrono>
#include <functional>

namespace player {

/// Which media time it is now. The wall leads it here; a sound device may lead it behind the same interface.
class MediaClock {
public:
    using Wall = std::chrono::steady_clock;

    virtual ~MediaClock() = default;
    /// Runs on from media (seconds) at rate times the speed of the wall.
    virtual void Start(double media, double rate) = 0;
    virtual bool IsRunning() const = 0;
    /// Media time; stands still at the last anchor before Start.
    virtual double Now() const = 0;
    /// The wall time at which media time media is or was reached.
    virtual Wall::time_point When(double media) const = 0;
};

class WallClock : public MediaClock {
public:
    using Source = std::function<Wall::time_point()>;
    explicit WallClock(Source now = Wall::now)
        : now_(std::move(now))
    {
    }

    void Start(double media, double rate) override;
    bool IsRunning() const override { return isRunning_; }
    double Now() const override;
    Wall::time_point When(double media) const override;

private:
    Source now_;
    bool isRunning_ = false;
    double media_ = 0;
    double rate_ = 1;
    Wall::time_point anchor_;
};

} // namespace player
