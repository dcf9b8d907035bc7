#pragma once

#include "media/player/SoundPath.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <type_traits>

/// What a fake device was told, and what it will tell. It outlives the device; any thread.
class FakeSound {
public:
    /// Makes the device for a path; a new one each time.
    player::SoundDeviceMaker Maker()
    {
        return [this] { return std::make_unique<Device>(*this); };
    }

    void Be(player::SoundDevice::State state)
    {
        With([=, this] { state_ = state; });
    }
    /// Seconds until the end of what was written is heard.
    void Delay(std::optional<double> delay)
    {
        With([=, this] { delay_ = delay; });
    }
    /// Frames that it can take until it is stopped or told anew.
    void Room(std::size_t frames)
    {
        With([=, this] { room_ = capacity_ = frames; });
    }

    media::Samples Written() const
    {
        return With([this] { return written_; });
    }
    bool IsPlaying() const
    {
        return With([this] { return isPlaying_; });
    }
    /// Devices made and not dropped.
    int Living() const
    {
        return With([this] { return living_; });
    }
    int Made() const
    {
        return With([this] { return made_; });
    }

    /// Waits until so many frames were written since the last stop.
    bool WaitForFrames(std::size_t frames) const
    {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(
            lock, std::chrono::seconds(20), [=, this] { return media::FramesIn(written_) >= frames; });
    }
    /// Waits until the path has asked for the delay as many times more.
    bool WaitForLooks(int looks) const
    {
        std::unique_lock lock(mutex_);
        const int target = looks_ + looks;
        return changed_.wait_for(lock, std::chrono::seconds(20), [=, this] { return looks_ >= target; });
    }

private:
    class Device : public player::SoundDevice {
    public:
        explicit Device(FakeSound& sound)
            : sound_(sound)
        {
            sound_.With([this] {
                ++sound_.made_;
                ++sound_.living_;
                sound_.room_ = sound_.capacity_;
            });
        }
        ~Device() override
        {
            sound_.With([this] { --sound_.living_; });
        }
        Device(const Device&) = delete;
        Device& operator=(const Device&) = delete;
        State Status() override
        {
            return sound_.With([this] { return sound_.state_; });
        }
        std::size_t Room() override
        {
            return sound_.With([this] { return sound_.room_; });
        }
        void Write(const media::Samples& samples) override
        {
            sound_.With([&] {
                sound_.written_.insert(sound_.written_.end(), samples.begin(), samples.end());
                sound_.room_ -= media::FramesIn(samples);
            });
        }
        void Start() override
        {
            sound_.With([this] { sound_.isPlaying_ = true; });
        }
        void Stop() override
        {
            sound_.With([this] {
                sound_.isPlaying_ = false;
                sound_.written_.clear();
                sound_.room_ = sound_.capacity_;
            });
        }
        std::optional<double> Delay() override
        {
            return sound_.With([this] {
                ++sound_.looks_;
                return sound_.delay_;
            });
        }

    private:
        FakeSound& sound_;
    };

    template <typename Deed> std::invoke_result_t<Deed> With(Deed deed) const
    {
        const std::lock_guard lock(mutex_);
        changed_.notify_all();
        return deed();
    }

    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    player::SoundDevice::State state_ = player::SoundDevice::State::Ready;
    std::optional<double> delay_;
    std::size_t room_ = 0;
    std::size_t capacity_ = 0;
    media::Samples written_;
    bool isPlaying_ = false;
    int made_ = 0;
    int living_ = 0;
    int looks_ = 0;
};
