#include "media/SoundFeed.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numeric>

using media::Samples;
using media::SoundBlock;
using media::SoundFeed;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A media whose sound tells its own time: every sample is the second that it belongs to.
class TellingTime : public media::SoundReader {
public:
    explicit TellingTime(std::vector<std::pair<double, double>> parts)
        : parts_(std::move(parts))
    {
    }
    void Seek(double seconds) override
    {
        next_ = 0;
        while (next_ + 1 < parts_.size() && parts_[next_].second <= seconds)
            ++next_;
        at_ = parts_[next_].first;
    }
    std::optional<SoundBlock> Read() override
    {
        if (next_ < parts_.size() && at_ >= parts_[next_].second - 1e-9 && ++next_ < parts_.size())
            at_ = parts_[next_].first;
        if (next_ >= parts_.size())
            return std::nullopt;
        constexpr std::size_t frames = media::SoundRate / 100;
        SoundBlock block { at_, Samples(frames * media::SoundChannels) };
        for (std::size_t i = 0; i < block.samples.size(); ++i)
            block.samples[i] = float(at_ + double(i / media::SoundChannels) / media::SoundRate);
        at_ += 0.01;
        return block;
    }

private:
    std::vector<std::pair<double, double>> parts_;
    std::size_t next_ = 0;
    double at_ = 0;
};

/// All that comes, up to a number of seconds.
Samples Listen(SoundFeed& feed, double seconds = 100)
{
    Samples all;
    while (media::FramesIn(all) < std::size_t(seconds * media::SoundRate)) {
        const auto piece = feed.Next();
        if (!piece)
            break;
        all.insert(all.end(), piece->begin(), piece->end());
    }
    return all;
}

double SecondsOf(const Samples& samples)
{
    return double(media::FramesIn(samples)) / media::SoundRate;
}

float At(const Samples& samples, double seconds)
{
    return samples.at(std::size_t(std::llround(seconds * media::SoundRate)) * media::SoundChannels);
}

double StageProduct(double rate)
{
    const std::vector<double> stages = media::TempoStages(rate);
    EXPECT_THAT(stages, Each(testing::AllOf(testing::Ge(0.5), testing::Le(2.0))));
    return std::accumulate(stages.begin(), stages.end(), 1.0, std::multiplies<>());
}

} // namespace

TEST(TempoTest, TheOrdinaryRateNeedsNoStage)
{
    EXPECT_THAT(media::TempoStages(1), IsEmpty());
}

TEST(TempoTest, EveryRateIsMadeOfStagesThatBlend)
{
    for (int tenths = 1; tenths <= 50; ++tenths)
        EXPECT_NEAR(StageProduct(tenths / 10.0), tenths / 10.0, 1e-9);
}

TEST(TempoTest, ATenthTakesFourStagesAndFiveTimesThree)
{
    EXPECT_EQ(media::TempoStages(0.1).size(), 4U);
    EXPECT_EQ(media::TempoStages(5).size(), 3U);
}

TEST(TempoTest, ThePitchIsKept)
{
    for (const double rate : { 0.1, 0.25, 0.5, 2.0, 5.0 }) {
        media::Tempo tempo(rate);
        Samples tone(std::size_t(4 * media::SoundRate * media::SoundChannels));
        for (std::size_t i = 0; i < tone.size(); ++i)
            tone[i] = float(std::sin(double(i / 2) / media::SoundRate * 2 * M_PI * 500));
        Samples heard = tempo.Stretch(std::move(tone));
        const Samples rest = tempo.Finish();
        heard.insert(heard.end(), rest.begin(), rest.end());
        int waves = 0;
        for (std::size_t i = 2; i < heard.size(); i += 2)
            waves += heard[i - 2] < 0 && heard[i] >= 0;
        EXPECT_NEAR(SecondsOf(heard), 4 / rate, 0.2 / rate);
        EXPECT_NEAR(waves / SecondsOf(heard), 500, 15) << "at rate " << rate;
    }
}

TEST(TempoTest, ABeepStandsInItsPlaceAtEveryRate)
{
    constexpr double beep = 2; // seconds, in the middle of which it stands
    for (const double rate : { 0.1, 0.25, 0.5, 0.8, 1.5, 2.0, 3.0, 5.0 }) {
        media::Tempo tempo(rate);
        Samples sound(std::size_t(4 * media::SoundRate * media::SoundChannels));
        for (std::size_t i = 0; i < sound.size(); ++i) {
            const double at = double(i / 2) / media::SoundRate;
            sound[i] = std::abs(at - beep) < 0.04 ? float(std::sin(at * 2 * M_PI * 1000)) : 0;
        }
        Samples heard = tempo.Stretch(std::move(sound));
        const Samples rest = tempo.Finish();
        heard.insert(heard.end(), rest.begin(), rest.end());
        const auto isLoud = [](float sample) { return std::abs(sample) > 0.1F; };
        const auto first = std::find_if(heard.begin(), heard.end(), isLoud) - heard.begin();
        const auto last = heard.rend() - std::find_if(heard.rbegin(), heard.rend(), isLoud);
        const double middle = double(first + last) / 2 / media::SoundChannels / media::SoundRate;
        EXPECT_NEAR(middle + tempo.Lead() / rate, beep / rate, 0.02 * std::max(1.0, 0.25 / rate))
            << "at rate " << rate;
    }
}

class SoundFeedTest : public testing::Test {
protected:
    TellingTime media_ { { { 0, 3 } } };
    SoundFeed feed_ { media_ };
};

TEST_F(SoundFeedTest, BeginsExactlyAtTheMoment)
{
    feed_.Begin(1.2345, 1.2345, 1);
    const Samples heard = Listen(feed_);
    EXPECT_NEAR(heard.front(), 1.2345, 1e-4);
    EXPECT_NEAR(SecondsOf(heard), 3 - 1.2345, 1e-4);
}

TEST_F(SoundFeedTest, TheDueTimeOfItsEndIsThatOfTheMedia)
{
    for (const double rate : { 0.5, 1.0, 2.0 }) {
        feed_.Begin(1, 1, rate);
        Listen(feed_);
        EXPECT_NEAR(feed_.End(), 3, 0.1 * rate) << "at rate " << rate;
    }
}

TEST_F(SoundFeedTest, SoundThatStartsLateIsPrecededBySilence)
{
    media_ = TellingTime({ { 1, 3 } });
    feed_.Begin(0, 0, 1);
    const Samples heard = Listen(feed_);
    EXPECT_EQ(At(heard, 0.99), 0);
    EXPECT_NEAR(At(heard, 1.5), 1.5, 1e-4);
}

TEST_F(SoundFeedTest, AHoleIsFilledWithSilence)
{
    media_ = TellingTime({ { 0, 1 }, { 2, 3 } });
    feed_.Begin(0, 0, 1);
    const Samples heard = Listen(feed_);
    EXPECT_EQ(At(heard, 1.5), 0);
    EXPECT_NEAR(At(heard, 2.5), 2.5, 1e-4);
    EXPECT_NEAR(SecondsOf(heard), 3, 1e-4);
}

TEST_F(SoundFeedTest, WhatComesTwiceIsDropped)
{
    media_ = TellingTime({ { 0, 1 }, { 0.5, 2 } });
    feed_.Begin(0, 0, 1);
    const Samples heard = Listen(feed_);
    EXPECT_NEAR(At(heard, 1.5), 1.5, 1e-4);
    EXPECT_NEAR(SecondsOf(heard), 2, 1e-4);
}

TEST_F(SoundFeedTest, ALoopRunsOnWithoutAHole)
{
    feed_.Begin(1, 1, 1);
    feed_.Expect({ 2, 0.5 });
    feed_.Expect({ 3.5, 0.5 });
    feed_.Expect({ 5, std::nullopt });
    const Samples heard = Listen(feed_);
    EXPECT_NEAR(At(heard, 0.5), 1.5, 1e-4);
    EXPECT_NEAR(At(heard, 1.5), 1, 1e-4);
    EXPECT_NEAR(At(heard, 3), 1, 1e-4);
    EXPECT_NEAR(SecondsOf(heard), 4, 1e-4);
}

TEST_F(SoundFeedTest, NothingClicksWhereALoopBeginsAnew)
{
    feed_.Begin(1, 1, 1);
    feed_.Expect({ 2, 0.5 });
    const Samples heard = Listen(feed_);
    EXPECT_NEAR(At(heard, 1 - 1e-4), 0, 0.05);
    EXPECT_NEAR(At(heard, 1), 0, 0.05);
}

TEST_F(SoundFeedTest, SoundShorterThanTheLoopIsSilentUntilItBeginsAnew)
{
    feed_.Begin(2, 2, 1);
    feed_.Expect({ 5, 0.0 });
    const Samples heard = Listen(feed_, 4);
    EXPECT_EQ(At(heard, 2), 0);
    EXPECT_NEAR(At(heard, 3.5), 0.5, 1e-4);
}

TEST_F(SoundFeedTest, ATurnThatIsToldTooLateIsCaughtUpWith)
{
    feed_.Begin(1, 1, 1);
    Listen(feed_, 1);
    feed_.Expect({ 1.5, 0.0 });
    const Samples heard = Listen(feed_, 0.5);
    EXPECT_NEAR(At(heard, 0.25), 0.75, 1e-4);
}

TEST_F(SoundFeedTest, ATurnThatIsToldAfterTheEndStillBringsMore)
{
    feed_.Begin(2, 2, 1);
    Listen(feed_);
    feed_.Expect({ 4, 1.0 });
    const Samples heard = Listen(feed_, 1.5);
    EXPECT_NEAR(At(heard, 1.25), 1.25, 1e-4);
}
