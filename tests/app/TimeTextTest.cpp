#include "app/TimeText.h"

#include <gtest/gtest.h>

TEST(TimeText, SecondsAreRoundedAfterTheMinutesWereCut)
{
    EXPECT_EQ(FormatPosition(0), QStringLiteral("00:00:00"));
    EXPECT_EQ(FormatPosition(3661), QStringLiteral("01:01:01"));
    EXPECT_EQ(FormatPosition(59.6), QStringLiteral("00:00:60"));
    EXPECT_EQ(FormatPosition(360000), QStringLiteral("100:00:00"));
}

TEST(TimeText, SecondsToTimeIsATimeOfDay)
{
    EXPECT_EQ(SecondsToTime(3661), QStringLiteral("01:01:01"));
    EXPECT_EQ(SecondsToTime(59.6), QStringLiteral("00:00:59"));
    EXPECT_EQ(SecondsToTime(86400), QStringLiteral("00:00:00"));
}
