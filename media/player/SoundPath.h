#pragma once

#include "media/SoundFeed.h"
#include "media/player/MediaClock.h"
#include "media/player/SoundDevice.h"
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace player {

/// The sound of a source on its way to the device, on a thread of its own, and the clock that it leads. Where
/// there is no sound, no device, or not any more, the wall leads the clock. Public calls never wait for a
/// file or a device.
class SoundPath {
public:
    using Opener = std::function<std::unique_ptr<media::SoundReader>()>;

    /// open is called on the path's thread, once, when sound is wanted for the first time; it may throw
    /// media::MediaError. now is the wall.
    SoundPath(Opener open, SoundDeviceMaker makeDevice, WallClock::Source now = MediaClock::Wall::now);
    /// Waits for a read that is under way: interrupt the reader before.
    ~SoundPath();
    SoundPath(const SoundPath&) = delete;
    SoundPath& operator=(const SoundPath&) = delete;

    /// Gets the sound of a moment ready.
    void Prepare(double media, double rate);
    /// It is ready, or there will be none, or not soon.
    bool IsReady();
    /// Lets sound and clock run on from a due time; as prepared, or elsewhere.
    void Start(double due, double rate);
    /// A turn to come; one that is known already is not taken again.
    void Expect(const media::SoundTurn& turn);
    /// Falls silent at once; the clock stands where it is.
    void Stop();
    /// Silences the sound without stopping it.
    void SetMute(bool isMuted) { isMuted_ = isMuted; }

    /// Wall seconds from the start until the first sound is heard, until the device has shown its own.
    static constexpr double UsualStartDelay = 0.04;

    bool IsRunning();
    double Now();
    MediaClock::Wall::time_point When(double media);

private:
    struct Order {
        double due = 0;
        double rate = 1;
        MediaClock::Wall::time_point given;
    };
    void Give(double due, double rate);
    void Work();
    void OpenDevice();
    using Turns = std::vector<media::SoundTurn>;
    Turns TakeTurns(int serial);
    bool Supply(const Order& order, int serial, const Turns& turns);
    void Begin(const Order& order, const Turns& turns);
    void Fill(int serial);
    bool Deliver(const Order& order);
    void CatchUp(const Order& order);
    void Send();
    void Follow(const Order& order);
    double DueOfPending(const Order& order) const;

    Opener open_;
    SoundDeviceMaker makeDevice_;
    WallClock::Source wall_;
    std::atomic<bool> isMuted_ = false;

    std::mutex mutex_; ///< guards the members up to the device
    std::condition_variable changed_;
    bool isClosed_ = false;
    std::atomic<int> serial_ = 0; ///< of the orders
    std::optional<Order> order_; ///< none while stopped
    std::deque<media::SoundTurn> turns_; ///< the last ones, and all that were not told yet
    std::size_t turnsTold_ = 0; ///< of these, to the path's thread
    int toldSerial_ = 0; ///< of the order in which they were told
    GuidedClock clock_;
    bool isPlaying_ = false; ///< the clock runs
    bool isReady_ = false;
    bool isSounding_ = false; ///< the device was started
    bool isHeard_ = false; ///< since the clock was started
    double startDelay_ =
        UsualStartDelay; ///< wall seconds from the clock's start until the first sound is heard
    std::unique_ptr<SoundDevice> device_;

    // Of the path's thread alone.
    bool isOpened_ = false;
    std::unique_ptr<media::SoundReader> reader_;
    std::unique_ptr<media::SoundFeed> feed_;
    int served_ = 0; ///< serial of the order in work
    media::Samples pending_;
    bool isOver_ = false;
    float gain_ = 0;

    std::thread thread_;
};

/// The clock of one playing with sound.
class SoundClock : public MediaClock {
public:
    /// Gets the path ready for a playing from a moment.
    SoundClock(SoundPath& path, double media, double rate)
        : path_(path)
    {
        path_.Prepare(media, rate);
    }
    ~SoundClock() override { path_.Stop(); }
    SoundClock(const SoundClock&) = delete;
    SoundClock& operator=(const SoundClock&) = delete;

    bool IsReady() override { return path_.IsReady(); }
    void Expect(const media::SoundTurn& turn) override { path_.Expect(turn); }
    void Start(double media, double rate) override { path_.Start(media, rate); }
    bool IsRunning() const override { return path_.IsRunning(); }
    double Now() const override { return path_.Now(); }
    Wall::time_point When(double media) const override { return path_.When(media); }

private:
    SoundPath& path_;
};

} // namespace player
