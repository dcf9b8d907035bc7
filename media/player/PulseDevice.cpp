#include "media/player/PulseDevice.h"

#include <algorithm>
#include <pulse/pulseaudio.h>
#include <utility>

namespace player {

namespace {

constexpr std::size_t FrameBytes = sizeof(float) * media::SoundChannels;
constexpr unsigned BufferBytes = unsigned(FrameBytes) * media::SoundRate / 10; // 100 ms

constexpr std::ptrdiff_t BufferSamples = BufferBytes / sizeof(float);
constexpr std::size_t FadeSamples = std::size_t(media::SoundRate / 200) * media::SoundChannels; // 5 ms
constexpr int64_t MarginMicroseconds = 20'000; // what the server takes before an order reaches it
constexpr pa_usec_t FadeMicroseconds = 40'000; // until the fade is through

template <auto Free> struct FreeBy {
    template <typename T> void operator()(T* object) const { Free(object); }
};
using Loop = std::unique_ptr<pa_threaded_mainloop, FreeBy<pa_threaded_mainloop_free>>;
using Context = std::unique_ptr<pa_context, FreeBy<pa_context_unref>>;

/// The library's thread is kept out as long as this lives.
class Locked {
public:
    explicit Locked(const Loop& loop)
        : loop_(loop.get())
    {
        pa_threaded_mainloop_lock(loop_);
    }
    ~Locked() { pa_threaded_mainloop_unlock(loop_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

private:
    pa_threaded_mainloop* loop_;
};

class PulseDevice : public SoundDevice {
public:
    PulseDevice(Loop loop, Context context)
        : loop_(std::move(loop))
        , context_(std::move(context))
    {
        pa_context_set_state_callback(context_.get(), &ContextChanged, this);
        pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    }
    ~PulseDevice() override
    {
        pa_threaded_mainloop_stop(loop_.get());
        Forget(asking_);
        if (stream_) {
            pa_stream_disconnect(stream_);
            pa_stream_unref(stream_);
        }
        pa_context_disconnect(context_.get());
    }
    PulseDevice(const PulseDevice&) = delete;
    PulseDevice& operator=(const PulseDevice&) = delete;

    /// Lets the library's thread run; false where there is none to be had.
    bool Begin() { return pa_threaded_mainloop_start(loop_.get()) >= 0; }

    State Status() override
    {
        const Locked locked(loop_);
        if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get())))
            return State::Gone;
        if (!stream_)
            return State::Opening;
        const pa_stream_state_t state = pa_stream_get_state(stream_);
        return state == PA_STREAM_READY ? State::Ready
            : PA_STREAM_IS_GOOD(state)  ? State::Opening
                                        : State::Gone;
    }

    std::size_t Room() override
    {
        const Locked locked(loop_);
        const std::size_t room = fading_ ? 0 : pa_stream_writable_size(stream_);
        return room == std::size_t(-1) ? 0 : room / FrameBytes;
    }

    void Write(const media::Samples& samples) override
    {
        const Locked locked(loop_);
        pa_stream_write(
            stream_, samples.data(), samples.size() * sizeof(float), nullptr, 0, PA_SEEK_RELATIVE);
        waiting_.insert(waiting_.end(), samples.begin(), samples.end());
        if (waiting_.size() > 8 * BufferSamples)
            waiting_.erase(waiting_.begin(), waiting_.end() - 4 * BufferSamples);
    }

    void Start() override
    {
        const Locked locked(loop_);
        Cork(false);
        pa_gettimeofday(&started_);
    }

    void Stop() override
    {
        const Locked locked(loop_);
        const pa_usec_t now = pa_rtclock_now();
        FadeOut();
        if (!fading_)
            fading_ = pa_context_rttime_new(context_.get(), now + FadeMicroseconds, &Faded, this);
        if (!fading_)
            Rest();
    }

    std::optional<double> Delay() override
    {
        const Locked locked(loop_);
        AskForTiming();
        const pa_timing_info* timing = Timing();
        if (!timing || pa_timeval_cmp(&timing->timestamp, &started_) < 0)
            return std::nullopt;
        const double queued =
            double(timing->write_index - timing->read_index) / FrameBytes / media::SoundRate;
        const double delay = queued + double(int64_t(timing->sink_usec) - Since(*timing)) / PA_USEC_PER_SEC;
        return timing->playing ? std::max(delay, 0.0) : 0;
    }

private:
    static void Forget(pa_operation* operation)
    {
        if (operation)
            pa_operation_unref(operation);
    }
    static void Faded(pa_mainloop_api*, pa_time_event*, const timeval*, void* self)
    {
        static_cast<PulseDevice*>(self)->Rest();
    }
    /// Lies still, empty.
    void Rest()
    {
        if (pa_time_event* fading = std::exchange(fading_, nullptr))
            pa_threaded_mainloop_get_api(loop_.get())->time_free(fading);
        Cork(true);
        Forget(pa_stream_flush(stream_, nullptr, nullptr));
        waiting_.clear();
    }
    /// Overwrites what the server has not taken yet: a hard cut would click.
    void FadeOut()
    {
        const pa_timing_info* timing = Timing();
        if (!timing)
            return;
        const int64_t taken = timing->read_index + BytesIn(Since(*timing) + MarginMicroseconds);
        const int64_t left = (timing->write_index - taken) / int64_t(sizeof(float));
        if (left <= 0 || left > int64_t(waiting_.size()))
            return;
        media::Samples rest(waiting_.end() - left, waiting_.end());
        for (std::size_t i = 0; i < rest.size(); ++i)
            rest[i] *= i < FadeSamples ? 1 - float(i) / FadeSamples : 0;
        pa_stream_write(stream_, rest.data(), rest.size() * sizeof(float), nullptr, taken, PA_SEEK_ABSOLUTE);
    }
    /// What the server said last; the library's own guesses between two answers take seconds to recover from
    /// a stop, so that it is asked anew with every look.
    const pa_timing_info* Timing() const
    {
        const pa_timing_info* timing = pa_stream_get_timing_info(stream_);
        return timing && !timing->read_index_corrupt && !timing->write_index_corrupt ? timing : nullptr;
    }
    void AskForTiming()
    {
        if (asking_ && pa_operation_get_state(asking_) == PA_OPERATION_RUNNING)
            return;
        Forget(asking_);
        asking_ = pa_stream_update_timing_info(stream_, nullptr, nullptr);
    }
    /// Microseconds since the server said it.
    static int64_t Since(const pa_timing_info& timing)
    {
        timeval now {};
        pa_gettimeofday(&now);
        const auto age = int64_t(pa_timeval_diff(&now, &timing.timestamp)); // without its sign
        return pa_timeval_cmp(&now, &timing.timestamp) < 0 ? -age : age;
    }
    static int64_t BytesIn(int64_t microseconds)
    {
        return microseconds * media::SoundRate / 1'000'000 * int64_t(FrameBytes);
    }
    void Cork(bool isStill) { Forget(pa_stream_cork(stream_, isStill ? 1 : 0, nullptr, nullptr)); }

    static void ContextChanged(pa_context* context, void* self)
    {
        auto& device = *static_cast<PulseDevice*>(self);
        if (pa_context_get_state(context) == PA_CONTEXT_READY && !device.stream_)
            device.Connect();
    }

    void Connect()
    {
        const pa_sample_spec samples { PA_SAMPLE_FLOAT32NE, media::SoundRate, media::SoundChannels };
        constexpr auto byServer = uint32_t(-1);
        const pa_buffer_attr buffer { byServer, BufferBytes, 0, byServer, byServer };
        constexpr auto flags = pa_stream_flags_t(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY);
        stream_ = pa_stream_new(context_.get(), "Video", &samples, nullptr);
        if (stream_)
            pa_stream_connect_playback(stream_, nullptr, &buffer, flags, nullptr, nullptr);
    }

    Loop loop_;
    Context context_;
    pa_stream* stream_ = nullptr;
    media::Samples waiting_; ///< the newest of what was written
    timeval started_ {};
    pa_operation* asking_ = nullptr; ///< for the timing
    pa_time_event* fading_ = nullptr; ///< after a stop, until the fade is heard
};

} // namespace

std::unique_ptr<SoundDevice> MakePulseDevice()
{
    Loop loop(pa_threaded_mainloop_new());
    Context context(
        loop ? pa_context_new(pa_threaded_mainloop_get_api(loop.get()), "TAQ Video Capture Pro") : nullptr);
    if (!context)
        return nullptr;
    auto device = std::make_unique<PulseDevice>(std::move(loop), std::move(context));
    return device->Begin() ? std::move(device) : nullptr;
}

} // namespace player
