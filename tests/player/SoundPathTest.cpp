#include "media/player/SoundPath.h"

#include "tests/player/FakeSound.h"

#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using player::MediaClock;
using player::SoundDevice;
using player::SoundPath;

namespace {

constexpr std::size_t Second = media::SoundRate;

/// Ten seconds of sound; every sample is the second that it belongs to.
class TellingTime : public media::SoundReader {
public:
    void Seek(double seconds) override { at_ = seconds; }
    std::optional<media::SoundBlock> Read() override
    {
        if (at_ >= 10)
            return std::nullopt;
        media::SoundBlock block { at_, media::Samples(Second / 100 * media::SoundChannels) };
        for (std::size_t i = 0; i < block.samples.size(); ++i)
            block.samples[i] = float(at_ + double(i / media::SoundChannels) / media::SoundRate);
        at_ += 0.01;
        return block;
    }

private:
    double at_ = 0;
};

} // namespace

class SoundPathTest : public testing::Test {
protected:
    void Open(SoundPath::Opener open = [] { return std::make_unique<TellingTime>(); })
    {
        path_ = std::make_unique<SoundPath>(std::move(open), sound_.Maker(), [this] { return wall_.load(); });
    }
    void Prepare(double from, double rate = 1)
    {
        path_->Prepare(from, rate);
        ASSERT_TRUE(QTest::qWaitFor([this] { return path_->IsReady(); }, 20000));
    }
    void Play(double from, double rate = 1)
    {
        Prepare(from, rate);
        path_->Start(from, rate);
    }
    /// So many seconds behind the silence that it begins with.
    float Heard(double second) const
    {
        const media::Samples written = sound_.Written();
        const auto first =
            std::find_if(written.begin(), written.end(), [](float sample) { return sample != 0; });
        return written.at(
            std::size_t(first - written.begin()) + std::size_t(second * Second) * media::SoundChannels);
    }
    static constexpr double Silence = 0.01; // seconds, before the first sound

    std::atomic<MediaClock::Wall::time_point> wall_ { MediaClock::Wall::time_point(1h) };
    FakeSound sound_;
    std::unique_ptr<SoundPath> path_;
};

TEST_F(SoundPathTest, NothingIsHeardBeforeTheClockStarts)
{
    sound_.Room(Second);
    Open();
    Prepare(2);
    EXPECT_FALSE(sound_.IsPlaying());
    EXPECT_TRUE(sound_.Written().empty());
    EXPECT_FALSE(path_->IsRunning());
}

TEST_F(SoundPathTest, TheSoundOfTheMomentIsHeardWithoutAClick)
{
    sound_.Room(Second);
    Open();
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    EXPECT_TRUE(sound_.IsPlaying());
    EXPECT_LT(Heard(0), 0.05F);
    EXPECT_NEAR(Heard(0.1), 2.1F, 1e-3F);
}

TEST_F(SoundPathTest, TheClockFollowsWhatIsHeard)
{
    sound_.Room(Second / 10);
    sound_.Delay(0.06);
    Open();
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 10));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    EXPECT_NEAR(path_->Now(), 2.04 - Silence, 1e-3);
}

TEST_F(SoundPathTest, ThePicturesWaitForADeviceThatStartsLate)
{
    sound_.Room(Second / 10);
    Open();
    Prepare(2);
    sound_.Room(0); // nothing goes out before the time has passed
    path_->Start(2, 1);
    wall_ = wall_.load() + 100ms;
    sound_.Delay(0.1 - Silence); // now, 100 ms later, the first sound is heard
    sound_.Room(Second / 10);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 10));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    Prepare(4);
    sound_.Room(0); // nor anything that the clock could follow
    path_->Start(4, 1);
    EXPECT_NEAR(path_->Now(), 3.9, 1e-3);
}

TEST_F(SoundPathTest, AtTwiceTheRateTheDelayIsTwiceAsMuchMedia)
{
    sound_.Room(Second / 10);
    sound_.Delay(0.06);
    Open();
    Play(2, 2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 10));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    EXPECT_NEAR(path_->Now(), 2 + 2 * (0.04 - Silence), 0.02);
}

TEST_F(SoundPathTest, ADeviceThatTellsNothingLeavesTheClockToTheWall)
{
    sound_.Room(Second);
    Open();
    Play(2);
    wall_ = wall_.load() + 50ms;
    ASSERT_TRUE(sound_.WaitForLooks(3));
    EXPECT_NEAR(path_->Now(), 2.05 - SoundPath::UsualStartDelay, 1e-6);
}

TEST_F(SoundPathTest, WithoutADeviceTheWallLeads)
{
    sound_.Be(SoundDevice::State::Gone);
    Open();
    Play(2);
    wall_ = wall_.load() + 3s;
    EXPECT_NEAR(path_->Now(), 5, 1e-6);
    EXPECT_TRUE(sound_.Written().empty());
}

TEST_F(SoundPathTest, ADeviceThatVanishesHandsOverToTheWallAndTheNextPlayLooksForAnother)
{
    sound_.Room(Second / 10);
    sound_.Delay(0.06);
    Open();
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 10));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    sound_.Be(SoundDevice::State::Gone);
    ASSERT_TRUE(QTest::qWaitFor([this] { return sound_.Living() == 0; }, 20000));
    wall_ = wall_.load() + 3s;
    EXPECT_NEAR(path_->Now(), 5.04 - Silence, 1e-3);
    sound_.Be(SoundDevice::State::Ready);
    Play(1);
    EXPECT_EQ(sound_.Made(), 2);
}

TEST_F(SoundPathTest, ADeviceThatNeverOpensHoldsNothingUp)
{
    sound_.Be(SoundDevice::State::Opening);
    Open();
    path_->Prepare(2, 1);
    wall_ = wall_.load() + 1s;
    EXPECT_TRUE(path_->IsReady());
}

TEST_F(SoundPathTest, SoundThatCannotBeOpenedLeavesTheClockToTheWall)
{
    Open([]() -> std::unique_ptr<media::SoundReader> {
        throw media::MediaError(media::Failure::Damaged, "no sound");
    });
    Play(2);
    wall_ = wall_.load() + 1s;
    EXPECT_NEAR(path_->Now(), 3, 1e-6);
}

TEST_F(SoundPathTest, WhenTheSoundEndsTheWallLeadsOn)
{
    sound_.Room(Second);
    sound_.Delay(0.01);
    Open();
    Play(9.9);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 10));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    sound_.Delay(0);
    wall_ = wall_.load() + 2s;
    ASSERT_TRUE(sound_.WaitForLooks(3));
    EXPECT_NEAR(path_->Now(), 11.99, 0.02);
}

TEST_F(SoundPathTest, SoundThatComesTooLateIsLeftOut)
{
    Open();
    path_->Prepare(2, 1);
    path_->Start(2, 1);
    wall_ = wall_.load() + 200ms;
    sound_.Room(Second);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    EXPECT_NEAR(Heard(0.1), 2.3, SoundPath::UsualStartDelay + 2e-3);
}

TEST_F(SoundPathTest, MuteSilencesAndTheClockGoesOnWithTheDevice)
{
    sound_.Room(Second / 2);
    sound_.Delay(0.3);
    Open();
    path_->SetMute(true);
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    ASSERT_TRUE(sound_.WaitForLooks(3));
    for (const float sample : sound_.Written())
        ASSERT_EQ(sample, 0);
    EXPECT_NEAR(path_->Now(), 2.2 - Silence, 1e-3);
}

TEST_F(SoundPathTest, StoppingIsSilentAtOnce)
{
    sound_.Room(Second / 2);
    Open();
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    path_->Stop();
    EXPECT_FALSE(sound_.IsPlaying());
    EXPECT_TRUE(sound_.Written().empty());
}

TEST_F(SoundPathTest, AClockThatIsSetOnTakesTheSoundWithIt)
{
    sound_.Room(Second / 2);
    Open();
    Play(2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    path_->Start(7, 1);
    sound_.Room(Second / 2);
    ASSERT_TRUE(sound_.WaitForFrames(Second / 2));
    EXPECT_NEAR(Heard(0.1), 7.1F, 1e-3F);
}

TEST_F(SoundPathTest, ALoopGoesOnInTheSound)
{
    sound_.Room(Second);
    Open();
    path_->Prepare(2, 1);
    path_->Expect({ 2.5, 1.0 });
    ASSERT_TRUE(QTest::qWaitFor([this] { return path_->IsReady(); }, 20000));
    path_->Start(2, 1);
    ASSERT_TRUE(sound_.WaitForFrames(Second));
    EXPECT_NEAR(Heard(0.4), 2.4F, 1e-3F);
    EXPECT_NEAR(Heard(0.7), 1.2F, 1e-3F);
}

TEST_F(SoundPathTest, AClockThatIsSetOnInALateLapTakesTheSoundOfItsPlace)
{
    constexpr int laps = 40;
    constexpr double lap = 0.5;
    sound_.Room(laps * Second);
    Open();
    path_->Prepare(2, 1);
    for (int turn = 1; turn <= laps; ++turn)
        path_->Expect({ 2 + turn * lap, 2.0 });
    ASSERT_TRUE(QTest::qWaitFor([this] { return path_->IsReady(); }, 20000));
    path_->Start(2, 1);
    ASSERT_TRUE(sound_.WaitForFrames(Second));
    path_->Start(2 + laps * lap - 0.3, 1); // in the lap before the last turn
    ASSERT_TRUE(sound_.WaitForFrames(Second));
    EXPECT_NEAR(Heard(0.1), 2.3F, 1e-3F);
    EXPECT_NEAR(Heard(0.4), 2.1F, 1e-3F);
}

TEST_F(SoundPathTest, ClosingInTheMiddleEndsTheThread)
{
    for (int round = 0; round < 50; ++round) {
        sound_.Room(Second);
        Open();
        path_->Prepare(round % 10, 1);
        if (round % 2 == 0)
            path_->Start(round % 10, 1);
        path_.reset();
        EXPECT_EQ(sound_.Living(), 0);
    }
}
