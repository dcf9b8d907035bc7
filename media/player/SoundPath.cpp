#include "media/player/SoundPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace player {

namespace {

using namespace std::chrono_literals;

constexpr auto Tick = 10ms; // between two looks at the device
constexpr auto Patience = 500ms; // for the sound to be ready; then the pictures start without it
constexpr std::size_t Ahead = media::SoundRate / 4; // frames, beside what the device holds
constexpr double LongestLag = 0.1; // wall seconds; sound that comes later is left out
constexpr std::size_t LeadIn =
    media::SoundRate / 100; // frames of silence; servers may swallow the first ones
constexpr double LongestStartDelay = 0.25; // wall seconds
constexpr std::size_t TurnsInUse = 2;
constexpr float FadeStep = 200.0F / media::SoundRate; // the whole way in 5 ms

} // namespace

SoundPath::SoundPath(Opener open, SoundDeviceMaker makeDevice, WallClock::Source now)
    : open_(std::move(open))
    , makeDevice_(std::move(makeDevice))
    , wall_(now)
    , clock_(std::move(now))
    , thread_([this] { Work(); })
{
}

SoundPath::~SoundPath()
{
    {
        const std::lock_guard lock(mutex_);
        isClosed_ = true;
        ++serial_;
        changed_.notify_all();
    }
    thread_.join();
}

void SoundPath::Prepare(double media, double rate)
{
    const std::lock_guard lock(mutex_);
    turns_.clear();
    turnsTold_ = 0;
    Give(media, rate);
}

void SoundPath::Give(double due, double rate)
{
    if (std::exchange(isSounding_, false))
        device_->Stop();
    ++serial_;
    order_ = { due, rate, wall_() };
    isReady_ = false;
    isPlaying_ = false;
    changed_.notify_all();
}

bool SoundPath::IsReady()
{
    const std::lock_guard lock(mutex_);
    return isReady_ || !order_ || wall_() > order_->given + Patience;
}

void SoundPath::Start(double due, double rate)
{
    const std::lock_guard lock(mutex_);
    if (isPlaying_ || !order_ || order_->due != due || order_->rate != rate)
        Give(due, rate);
    // The pictures wait for the sound, which takes its way through the device.
    clock_.Start(device_ ? due - startDelay_ * rate : due, rate);
    isPlaying_ = true;
    isHeard_ = false;
    changed_.notify_all();
}

void SoundPath::Expect(const media::SoundTurn& turn)
{
    constexpr double same = 1e-3; // seconds
    const std::lock_guard lock(mutex_);
    if (turns_.empty() || turn.due > turns_.back().due + same)
        turns_.push_back(turn);
}

void SoundPath::Stop()
{
    const std::lock_guard lock(mutex_);
    if (std::exchange(isSounding_, false))
        device_->Stop();
    ++serial_;
    order_.reset();
    isPlaying_ = false;
}

bool SoundPath::IsRunning()
{
    const std::lock_guard lock(mutex_);
    return isPlaying_;
}

double SoundPath::Now()
{
    const std::lock_guard lock(mutex_);
    return clock_.Now();
}

MediaClock::Wall::time_point SoundPath::When(double media)
{
    const std::lock_guard lock(mutex_);
    return clock_.When(media);
}

void SoundPath::Work()
{
    std::unique_lock lock(mutex_);
    while (!isClosed_) {
        changed_.wait(lock, [this] { return isClosed_ || order_; });
        if (isClosed_)
            return;
        const Order order = *order_;
        const int serial = serial_;
        const Turns turns = TakeTurns(serial);
        lock.unlock();
        const bool hasSound = Supply(order, serial, turns);
        lock.lock();
        if (serial != serial_)
            continue;
        const auto isOutdated = [&] { return serial != serial_; };
        if (hasSound && Deliver(order)) {
            changed_.wait_for(lock, Tick);
        } else {
            isReady_ = true;
            changed_.wait(lock, isOutdated);
        }
    }
}

/// The turns that an order has not been told yet. An endless loop makes ever more of them, but the pictures,
/// whose times are those of orders to come, stand between the last two or behind them.
SoundPath::Turns SoundPath::TakeTurns(int serial)
{
    if (std::exchange(toldSerial_, serial) != serial)
        turnsTold_ = 0;
    Turns fresh(turns_.begin() + std::ptrdiff_t(turnsTold_), turns_.end());
    turnsTold_ = turns_.size();
    while (turns_.size() > TurnsInUse && turnsTold_ > 0) {
        turns_.pop_front();
        --turnsTold_;
    }
    return fresh;
}

/// False when there is no sound to be had.
bool SoundPath::Supply(const Order& order, int serial, const Turns& turns)
{
    try {
        if (!std::exchange(isOpened_, true)) {
            reader_ = open_();
            feed_ = std::make_unique<media::SoundFeed>(*reader_);
        }
        if (!feed_)
            return false;
        if (std::exchange(served_, serial) != serial)
            Begin(order, turns);
        else
            for (const media::SoundTurn& turn : turns)
                feed_->Expect(turn);
        Fill(serial);
        return true;
    } catch (const std::exception&) {
        isOver_ = true; // what went out is heard, and the wall leads on
        return feed_ != nullptr;
    }
}

void SoundPath::Begin(const Order& order, const Turns& turns)
{
    OpenDevice();
    pending_.clear();
    gain_ = 0;
    isOver_ = false;
    const auto isToCome = [&](const media::SoundTurn& turn) { return turn.due > order.due || !turn.media; };
    const auto next = std::find_if(turns.begin(), turns.end(), isToCome);
    const double offset = next == turns.begin() ? 0 : std::prev(next)->due - *std::prev(next)->media;
    feed_->Begin(order.due, order.due - offset, order.rate);
    std::for_each(next, turns.end(), [this](const media::SoundTurn& turn) { feed_->Expect(turn); });
}

void SoundPath::OpenDevice()
{
    {
        const std::lock_guard lock(mutex_);
        if (device_ && device_->Status() != SoundDevice::State::Gone)
            return;
    }
    std::unique_ptr<SoundDevice> device = makeDevice_();
    const std::lock_guard lock(mutex_);
    device_.swap(device);
    isSounding_ = false;
}

void SoundPath::Fill(int serial)
{
    while (media::FramesIn(pending_) < Ahead && serial == serial_) {
        const std::optional<media::Samples> piece = feed_->Next();
        isOver_ = !piece;
        if (isOver_)
            return;
        pending_.insert(pending_.end(), piece->begin(), piece->end());
    }
}

/// False when the device is gone.
bool SoundPath::Deliver(const Order& order)
{
    const auto status = device_ ? device_->Status() : SoundDevice::State::Gone;
    if (status == SoundDevice::State::Gone) {
        device_.reset();
        isSounding_ = false;
        return false;
    }
    const bool isBusy = status == SoundDevice::State::Opening || (!isSounding_ && device_->Room() <= LeadIn);
    if (isBusy)
        return true;
    isReady_ = true;
    if (!isPlaying_)
        return true;
    CatchUp(order);
    Send();
    Follow(order);
    return true;
}

/// Sound that would come too late is left out, so that it does not hold up the pictures.
void SoundPath::CatchUp(const Order& order)
{
    const bool isDry = !isSounding_ || device_->Delay().value_or(1) <= 0;
    const double lag = (clock_.Now() - DueOfPending(order)) / order.rate;
    if (!isDry || lag <= LongestLag)
        return;
    const std::size_t late = std::min(std::size_t(lag * media::SoundRate), media::FramesIn(pending_));
    pending_.erase(pending_.begin(), pending_.begin() + std::ptrdiff_t(late * media::SoundChannels));
    gain_ = 0;
}

void SoundPath::Send()
{
    const std::size_t room = device_->Room();
    const std::size_t reserved = isSounding_ ? 0 : LeadIn;
    if (room <= reserved || pending_.empty())
        return;
    const std::size_t frames = std::min(room - reserved, media::FramesIn(pending_));
    const auto end = pending_.begin() + std::ptrdiff_t(frames * media::SoundChannels);
    media::Samples samples(pending_.begin(), end);
    pending_.erase(pending_.begin(), end);
    const float step = isMuted_ ? -FadeStep : FadeStep;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (i % media::SoundChannels == 0)
            gain_ = std::clamp(gain_ + step, 0.0F, 1.0F);
        samples[i] *= gain_;
    }
    if (isSounding_)
        return device_->Write(samples);
    samples.insert(samples.begin(), LeadIn * media::SoundChannels, 0);
    device_->Write(samples);
    device_->Start();
    isSounding_ = true;
}

void SoundPath::Follow(const Order& order)
{
    const std::optional<double> delay = isSounding_ ? device_->Delay() : std::nullopt;
    // A device that ran dry tells nothing: the wall leads on.
    if (!delay || *delay <= 0)
        return;
    const double heard = DueOfPending(order) - *delay * order.rate;
    if (!std::exchange(isHeard_, true))
        startDelay_ = std::clamp(startDelay_ - (heard - clock_.Now()) / order.rate, 0.0, LongestStartDelay);
    clock_.Follow(heard);
}

double SoundPath::DueOfPending(const Order& order) const
{
    return feed_->End() - double(media::FramesIn(pending_)) * order.rate / media::SoundRate;
}

} // namespace player
