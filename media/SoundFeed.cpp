#include "media/SoundFeed.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace media {

namespace {

constexpr std::size_t LongestPiece = SoundRate / 10; // frames
constexpr std::size_t Fade = SoundRate / 200; // frames; a hard cut would click

/// Fades out the samples that stand less than Fade before a turn; room frames lie between it and the first.
void FadeOut(Samples& samples, std::size_t room)
{
    for (std::size_t i = room > Fade ? room - Fade : 0; i < FramesIn(samples); ++i)
        for (std::size_t channel = 0; channel < SoundChannels; ++channel)
            samples[i * SoundChannels + channel] *= float(room - i) / Fade;
}

} // namespace

void SoundFeed::Begin(double due, double media, double rate)
{
    reader_.Seek(media);
    seam_ = SoundSeam(due);
    tempo_ = std::make_unique<Tempo>(rate);
    turns_.clear();
    begin_ = due;
    rate_ = rate;
    lead_ = tempo_->Lead();
    offset_ = due - media;
    given_ = 0;
    silence_ = 0;
    held_.clear();
    isCut_ = false;
    isFinished_ = false;
    fade_ = 0;
}

std::optional<Samples> SoundFeed::Next()
{
    for (;;) {
        std::optional<Samples> piece = Piece();
        if (!piece && isFinished_)
            return std::nullopt;
        Samples ready = piece ? tempo_->Stretch(std::move(*piece)) : Finish();
        isFinished_ = !piece;
        given_ += int64_t(FramesIn(ready));
        if (!ready.empty())
            return ready;
    }
}

/// A chain that was told its end takes nothing more.
Samples SoundFeed::Finish()
{
    Samples rest = tempo_->Finish();
    tempo_ = std::make_unique<Tempo>(rate_);
    return rest;
}

/// The next piece before the tempo, an empty one where there is only a step on the way.
std::optional<Samples> SoundFeed::Piece()
{
    if (!turns_.empty() && RoomBeforeTurn() == 0)
        Turn();
    if (isCut_)
        return std::nullopt;
    if (silence_ > 0) {
        const std::size_t frames = std::min(silence_, LongestPiece);
        silence_ -= frames;
        return Cut(Samples(frames * SoundChannels), true);
    }
    if (!held_.empty())
        return Cut(std::exchange(held_, {}), false);
    if (std::optional<SoundBlock> block = reader_.Read()) {
        Fetch(std::move(*block));
        return Samples();
    }
    if (turns_.empty())
        return std::nullopt;
    silence_ = RoomBeforeTurn(); // the sound is shorter than the pictures
    return Samples();
}

void SoundFeed::Fetch(SoundBlock block)
{
    const SoundSeam::Fit fit = seam_.Join(block.start + offset_);
    if (fit.drop >= FramesIn(block.samples))
        return seam_.Leave();
    silence_ = fit.silence;
    held_ = std::move(block.samples);
    held_.erase(held_.begin(), held_.begin() + std::ptrdiff_t(fit.drop * SoundChannels));
}

void SoundFeed::Turn()
{
    const SoundTurn turn = turns_.front();
    turns_.pop_front();
    silence_ = 0;
    held_.clear();
    isCut_ = !turn.media;
    if (isCut_)
        return;
    const double late = std::max(seam_.Position() - turn.due, 0.0); // it was told when its time was past
    reader_.Seek(*turn.media + late);
    seam_ = SoundSeam(turn.due + late);
    offset_ = turn.due - *turn.media;
    fade_ = Fade;
}

Samples SoundFeed::Cut(Samples samples, bool isSilence)
{
    FadeIn(samples);
    const std::size_t room = RoomBeforeTurn();
    samples.resize(std::min(room, FramesIn(samples)) * SoundChannels);
    FadeOut(samples, room);
    seam_.Advance(FramesIn(samples), isSilence);
    return samples;
}

void SoundFeed::FadeIn(Samples& samples)
{
    for (std::size_t i = 0; i < samples.size() && fade_ > 0; ++i) {
        samples[i] *= 1 - float(fade_) / Fade;
        fade_ -= i % SoundChannels;
    }
}

std::size_t SoundFeed::RoomBeforeTurn() const
{
    if (turns_.empty())
        return std::numeric_limits<std::size_t>::max();
    const double seconds = turns_.front().due - seam_.Position();
    return std::size_t(std::max(std::llround(seconds * SoundRate), 0LL));
}

} // namespace media
