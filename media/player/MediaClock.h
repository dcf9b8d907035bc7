#pragma once

#include <chrono>
#include <functional>

namespace media {
struct SoundTurn;
}

namespace player {

/// Which media time it is now: led by the wall, or by a sound device.
class MediaClock {
public:
    using Wall = std::chrono::steady_clock;

    virtual ~MediaClock() = default;
    /// Whether what leads the clock is there.
    virtual bool IsReady() { return true; }
    /// What the media does at a due time to come.
    virtual void Expect(const media::SoundTurn&) { }
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

protected:
    /// Puts the clock forward by media seconds.
    void Shift(double seconds) { media_ += seconds; }

private:
    Source now_;
    bool isRunning_ = false;
    double media_ = 0;
    double rate_ = 1;
    Wall::time_point anchor_;
};

/// A clock that the wall drives and a sound device corrects.
class GuidedClock : public WallClock {
public:
    using WallClock::WallClock;

    void Start(double media, double rate) override;
    /// The media time of what is heard now. Small errors are taken up little by little, so that no picture
    /// jitters; large ones, and the first since the start, at once.
    void Follow(double heard);

    static constexpr double Largest = 0.1; ///< media seconds; an error of more is taken up at once
    static constexpr double Share = 0.1; ///< of a smaller error, taken up each time

private:
    bool hasFollowed_ = false;
};

} // namespace player
