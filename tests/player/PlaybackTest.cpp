#include "media/player/Playback.h"

#include "tests/player/FakeTimeline.h"

#include <gmock/gmock.h>
#include <numeric>

using namespace std::chrono_literals;
using player::MediaClock;
using player::Playback;
using player::PlayOptions;
using player::PlayPlan;
using player::Shot;
using player::WallClock;
using testing::ElementsAre;

/// Plays a film against a virtual wall that moves when the playback waits, and by what each decoding costs.
class PlaybackTest : public testing::Test {
protected:
    void Start(int next = 0, double rate = 1, int playCount = 1)
    {
        options_.rate = rate;
        options_.playCount = playCount;
        const double from = next == 0 ? 0 : film_.TimeOf(next - 1);
        const Playback::Hands hands = {
            [this](int number) {
                decoded_.push_back(number);
                wall_ += cost_;
                return media::Picture();
            },
            [this](const media::Picture&) {
                Shot shot;
                shot.number = decoded_.back();
                return shot;
            },
            [this](const Shot& shot) {
                shown_.push_back(shot.number);
                times_.push_back(
                    std::chrono::duration<double>(wall_ - MediaClock::Wall::time_point(1h)).count());
            },
        };
        playback_ = std::make_unique<Playback>(PlayPlan(film_, {}, options_, next, from), from, rate,
            std::make_unique<WallClock>([this] { return wall_; }), hands);
    }
    void Work()
    {
        if (const Playback::Time next = playback_->Work(); next > wall_)
            wall_ = next;
    }
    void PlayOut()
    {
        for (int pieces = 0; pieces < 10000 && !playback_->IsOver(); ++pieces)
            Work();
        ASSERT_TRUE(playback_->IsOver());
    }

    FakeTimeline film_ = FakeTimeline::Even(50, 0.04);
    PlayOptions options_;
    MediaClock::Wall::time_point wall_ { 1h };
    MediaClock::Wall::duration cost_ = 0ms;
    std::unique_ptr<Playback> playback_;
    std::vector<int> decoded_;
    std::vector<int> shown_;
    std::vector<double> times_;
};

TEST_F(PlaybackTest, ShowsEveryPictureInTimeAndEndsWhenTheLastHasStood)
{
    Start();
    PlayOut();
    std::vector<int> all(50);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_EQ(shown_, all);
    for (std::size_t i = 0; i < times_.size(); ++i)
        EXPECT_NEAR(times_[i], double(i) * 0.04, 1e-6);
    EXPECT_NEAR(std::chrono::duration<double>(wall_.time_since_epoch() - 1h).count(), 2, 1e-6);
}

TEST_F(PlaybackTest, HalfTheRateTakesTwiceTheTime)
{
    Start(0, 0.5);
    PlayOut();
    EXPECT_NEAR(std::chrono::duration<double>(wall_.time_since_epoch() - 1h).count(), 4, 1e-6);
}

TEST_F(PlaybackTest, NeverDecodesMoreThanAFewPicturesAhead)
{
    Start();
    for (int pieces = 0; pieces < 40; ++pieces) {
        Work();
        ASSERT_LE(decoded_.size(), shown_.size() + Playback::PicturesAhead);
    }
}

TEST_F(PlaybackTest, WhatTheDecoderNeedsToGetGoingIsNoLateness)
{
    cost_ = 300ms;
    Start();
    for (std::size_t i = 0; i < Playback::PicturesAhead; ++i)
        Work();
    cost_ = 1ms;
    PlayOut();
    EXPECT_EQ(shown_.size(), 50U);
}

TEST_F(PlaybackTest, ASlowDecoderLosesPicturesButKeepsTheTime)
{
    cost_ = 60ms;
    Start();
    PlayOut();
    EXPECT_LT(shown_.size(), 45U);
    EXPECT_GT(shown_.size(), 5U);
    EXPECT_NEAR(std::chrono::duration<double>(wall_.time_since_epoch() - 1h).count(), 2.2, 0.2);
}

TEST_F(PlaybackTest, APictureIsSeenAtLeastEveryQuarterOfASecond)
{
    cost_ = 100ms;
    Start();
    PlayOut();
    for (std::size_t i = 1; i < times_.size(); ++i)
        EXPECT_LE(times_[i] - times_[i - 1], 0.25 + 0.2);
}

TEST_F(PlaybackTest, WhenItHangsForLongTheClockWaits)
{
    Start();
    while (shown_.size() < 10)
        Work();
    cost_ = 60s;
    const std::size_t before = decoded_.size();
    while (decoded_.size() == before)
        Work();
    cost_ = 1ms;
    PlayOut();
    EXPECT_GT(shown_.size(), 45U);
}

TEST_F(PlaybackTest, TheLastPictureStandsAtTheEndHoweverLateItComes)
{
    film_ = FakeTimeline::Even(5, 0.04);
    cost_ = 50ms;
    Start();
    PlayOut();
    EXPECT_EQ(shown_.back(), 4);
}

TEST_F(PlaybackTest, GoesOnBehindThePictureThatStandsOnTheScreen)
{
    film_ = FakeTimeline::Even(4, 0.04);
    Start(2);
    PlayOut();
    EXPECT_THAT(shown_, ElementsAre(2, 3));
    EXPECT_NEAR(times_.front(), 0.04, 1e-6);
}

TEST_F(PlaybackTest, LoopsWithoutAPause)
{
    film_ = FakeTimeline::Even(3, 0.04);
    Start(0, 1, 2);
    PlayOut();
    EXPECT_THAT(shown_, ElementsAre(0, 1, 2, 0, 1, 2));
    for (std::size_t i = 0; i < times_.size(); ++i)
        EXPECT_NEAR(times_[i], double(i) * 0.04, 1e-6);
}
