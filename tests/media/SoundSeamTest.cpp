#include "media/SoundSeam.h"

#include "media/Sound.h"
#include <gtest/gtest.h>

using media::SoundSeam;

namespace {

constexpr std::size_t FramesOf(double seconds)
{
    return std::size_t(seconds * media::SoundRate);
}

} // namespace

TEST(SoundSeamTest, TheFirstBlockIsFittedExactly)
{
    const SoundSeam seam(10);
    EXPECT_EQ(seam.Join(9.99).drop, FramesOf(0.01));
    EXPECT_EQ(seam.Join(10.01).silence, FramesOf(0.01));
}

TEST(SoundSeamTest, SilenceBeforeTheFirstSoundKeepsItExact)
{
    SoundSeam seam(0);
    seam.Advance(FramesOf(1), true);
    EXPECT_EQ(seam.Join(1.02).silence, FramesOf(0.02));
}

TEST(SoundSeamTest, RoundedStampsAreLeftAlone)
{
    SoundSeam seam(0);
    seam.Advance(FramesOf(1), false);
    for (const double start : { 0.96, 1.0, 1.04 }) {
        EXPECT_EQ(seam.Join(start).silence, 0U);
        EXPECT_EQ(seam.Join(start).drop, 0U);
    }
}

TEST(SoundSeamTest, AGapIsFilledAndAnOverlapDropped)
{
    SoundSeam seam(0);
    seam.Advance(FramesOf(1), false);
    EXPECT_EQ(seam.Join(1.5).silence, FramesOf(0.5));
    EXPECT_EQ(seam.Join(0.75).drop, FramesOf(0.25));
}

TEST(SoundSeamTest, AnHourOfBlocksDoesNotDrift)
{
    SoundSeam seam(0);
    for (int block = 0; block < 3600; ++block)
        seam.Advance(FramesOf(1), false);
    EXPECT_DOUBLE_EQ(seam.Position(), 3600);
}
