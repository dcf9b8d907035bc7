#include "media/FrameTimes.h"

#include "media/PacketFact.h"
#include <gtest/gtest.h>

namespace media {

namespace {

constexpr double Tick = 0.001;
constexpr int64_t Step = 40;

FrameTimes Times(std::initializer_list<int64_t> stamps, int64_t start = 0)
{
    FrameTimes times(Tick, start, Step);
    for (const int64_t stamp : stamps)
        times.Add(stamp, 0);
    return times;
}

} // namespace

TEST(FrameTimes, TimesCountFromTheStartOfTheMedia)
{
    EXPECT_DOUBLE_EQ(Times({ 10'000, 10'040 }, 10'000).TimeOf(1), 0.040);
    EXPECT_DOUBLE_EQ(Times({ 1'000, 1'040 }).TimeOf(0), 1.0) << "the sound begins earlier";
}

TEST(FrameTimes, APictureWithoutStampFollowsAfterTheUsualStep)
{
    EXPECT_DOUBLE_EQ(Times({ 0, NoStamp, NoStamp }).TimeOf(2), 0.080);
}

TEST(FrameTimes, TimeGoesOnWhereStampsBeginAnew)
{
    const FrameTimes times = Times({ 0, 40, 5'000, 0, 40 });
    EXPECT_DOUBLE_EQ(times.TimeOf(3), 5.040);
    EXPECT_DOUBLE_EQ(times.TimeOf(4), 5.080);
}

TEST(FrameTimes, TimesNeverFall)
{
    EXPECT_DOUBLE_EQ(Times({ 0, 40, 30 }).TimeOf(2), 0.040);
}

TEST(FrameTimes, TheNumberAtATimeIsTheLastPictureThatHasBegun)
{
    const FrameTimes times = Times({ 0, 60, 90, 3'000 });
    EXPECT_EQ(times.NumberAt(0.059), 0);
    EXPECT_EQ(times.NumberAt(0.060), 1);
    EXPECT_EQ(times.NumberAt(2.9), 2);
    EXPECT_EQ(times.NumberAt(99), 3);
}

TEST(FrameTimes, HalfATickOfGraceCoversRounding)
{
    EXPECT_EQ(Times({ 0, 40 }).NumberAt(0.0396), 1);
    EXPECT_EQ(Times({ 0, 40 }).NumberAt(0.0394), 0);
}

TEST(FrameTimes, BeforeTheFirstPictureTheNumberIsZero)
{
    EXPECT_EQ(Times({ 1'000, 1'040 }).NumberAt(0), 0);
    EXPECT_EQ(Times({ 0, 40 }).NumberAt(-1e30), 0);
}

TEST(FrameTimes, OfPicturesAtOneTimeTheLastIsFound)
{
    EXPECT_EQ(Times({ 0, 40, 40, 80 }).NumberAt(0.040), 2);
}

TEST(FrameTimes, TheEndIsThatOfTheLastPicture)
{
    FrameTimes times(Tick, 0, Step);
    EXPECT_DOUBLE_EQ(times.End(), 0);
    times.Add(0, 0);
    EXPECT_DOUBLE_EQ(times.End(), 0.040);
    times.Add(40, 2'000);
    EXPECT_DOUBLE_EQ(times.End(), 2.040);
}

TEST(FrameTimes, AMediaThatStartsByItsFirstPictureStartsAtZero)
{
    FrameTimes times(0.01, 100, 4);
    times.StartBy(92);
    times.Add(92, 0);
    times.StartBy(0);
    times.Add(96, 0);
    EXPECT_DOUBLE_EQ(times.TimeOf(0), 0);
    EXPECT_DOUBLE_EQ(times.TimeOf(1), 0.04);
}

} // namespace media
