#include "capture/AutoTally.h"
#include "capture/TimedSteps.h"

#include <gtest/gtest.h>

namespace {

QString After(AutoTally& tally, int pictures, int interval, QString (AutoTally::*text)() const)
{
    for (int i = 0; i < pictures; ++i)
        tally.Count(interval);
    return (tally.*text)();
}

} // namespace

TEST(AutoTally, TheFirstPictureIsToldByItself)
{
    AutoTally tally(1);
    EXPECT_EQ(After(tally, 1, 10, &AutoTally::TimeText), "Captured first frame.     Total Captures = 1");
    EXPECT_EQ(tally.FrameText(), "Captured first frame.     Total Captures = 1");
}

TEST(AutoTally, LaterPicturesOfATimedRunTellTheirTime)
{
    AutoTally tally(1);
    EXPECT_EQ(
        After(tally, 3, 1800, &AutoTally::TimeText), "Captured frame at 01:00:00        Total Captures = 3");
}

TEST(AutoTally, TheFrameNumberToldIsTheTimeThatATimedRunWouldTell)
{
    AutoTally tally(1);
    EXPECT_EQ(
        After(tally, 4, 10, &AutoTally::FrameText), "Captured frame at Frame #: 30    Total Captures = 4");
}

TEST(AutoTally, ARunOverSeveralVideosCountsOneMoreFromItsStart)
{
    AutoTally tally(2);
    EXPECT_EQ(After(tally, 1, 10, &AutoTally::TimeText), "Captured first frame.     Total Captures = 2");
    EXPECT_EQ(tally.CaptureCount(), 1);
}

TEST(AutoTally, TheFirstPictureOfTheNextVideoDoesNotMoveTheCount)
{
    AutoTally tally(2);
    After(tally, 3, 10, &AutoTally::TimeText);
    tally.StartVideo();
    EXPECT_EQ(tally.ElapsedSeconds(), 0);
    EXPECT_EQ(After(tally, 1, 10, &AutoTally::TimeText), "Captured first frame.     Total Captures = 4");
    EXPECT_EQ(tally.ElapsedSeconds(), 10);
    EXPECT_EQ(
        After(tally, 1, 10, &AutoTally::TimeText), "Captured frame at 00:00:40        Total Captures = 5");
}

TEST(AutoTally, ARunWithoutAnEndStaysAtTheLargestNumberOfSeconds)
{
    AutoTally tally(1);
    constexpr int interval = 32'767; // the longest that can be stored
    constexpr int pictures = 70'000;
    EXPECT_EQ(After(tally, pictures, interval, &AutoTally::FrameText),
        "Captured frame at Frame #: 2147483647    Total Captures = 70000");
    EXPECT_FALSE(tally.TimeText().contains(u'-')) << tally.TimeText().toStdString();
}

TEST(TimedSteps, TheFirstPictureComesAfterAsManyMillisecondsAsTheIntervalHasSeconds)
{
    EXPECT_EQ(TimedSteps::FirstDelay(10), 10);
    EXPECT_EQ(TimedSteps::FirstDelay(1000), 1000);
}

TEST(TimedSteps, LateTicksDoNotAddUp)
{
    EXPECT_EQ(TimedSteps::NextDelay(0, 2, 1), 2000);
    EXPECT_EQ(TimedSteps::NextDelay(2.05, 2, 1), 1950);
    EXPECT_EQ(TimedSteps::NextDelay(3.9, 2, 1), 2100) << "the picture of 4 s was taken early";
}

TEST(TimedSteps, APlaceChosenByTheUserIsLeftForTheNextWholeInterval)
{
    EXPECT_EQ(TimedSteps::NextDelay(61, 10, 1), 9000);
    EXPECT_EQ(TimedSteps::NextDelay(66, 10, 1), 14000) << "never sooner than half an interval";
}

TEST(TimedSteps, ARateShortensTheWait)
{
    EXPECT_EQ(TimedSteps::NextDelay(0, 10, 2), 5000);
}

TEST(TimedSteps, NoIntervalIsEndless)
{
    for (const int stored : { 0, -5 }) {
        EXPECT_EQ(TimedSteps::FirstDelay(stored), 1);
        EXPECT_EQ(TimedSteps::NextDelay(0, stored, 1), 1000);
    }
    EXPECT_GT(TimedSteps::NextDelay(0, 32767, 0.1), 0);
}
