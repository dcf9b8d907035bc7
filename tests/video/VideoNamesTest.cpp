#include "video/VideoNames.h"
#include "app/TimeText.h"

#include <gtest/gtest.h>

TEST(VideoNames, TheLastFourCharactersDecide)
{
    for (const char* name :
        { "a.mpeg", "ampeg", "mpeg", "a.mpg", "A.AVI", "b.swf", "c.mpa", "d.Wmv", "e.asx" })
        EXPECT_TRUE(IsVideoName(QLatin1String(name))) << name;
    for (const char* name : { "", "a.txt", "avi", "a.mp4", "mpg", "a.avi2", "a.avi " })
        EXPECT_FALSE(IsVideoName(QLatin1String(name))) << name;
}

TEST(VideoNames, TheExtensionIsTrimmedAfterItWasCut)
{
    EXPECT_EQ(VideoExtension(QStringLiteral("clip.mpeg")), QStringLiteral("mpeg"));
    EXPECT_EQ(VideoExtension(QStringLiteral("clip.AVI")), QStringLiteral(".avi"));
    EXPECT_EQ(VideoExtension(QStringLiteral("clip.ts ")), QStringLiteral(".ts"));
}

TEST(VideoNames, APathIsSplitAtItsLastSeparatorAndCutAtANul)
{
    const auto parts = SplitVideoPath(QStringLiteral(" /films/old one/clip.avi "));
    EXPECT_TRUE(parts.isSplit);
    EXPECT_EQ(parts.name, QStringLiteral("clip.avi"));
    EXPECT_EQ(parts.folder, QStringLiteral("/films/old one"));
    EXPECT_EQ(
        SplitVideoPath(QStringLiteral("/f/clip.avi") + QChar(0) + u'x').name, QStringLiteral("clip.avi"));
    EXPECT_FALSE(SplitVideoPath(QStringLiteral("clip.avi")).isSplit);
}

TEST(VideoNames, AWebAddressIsSplitAtBackslashesOnly)
{
    EXPECT_FALSE(SplitVideoPath(QStringLiteral("http://host/films/clip.avi")).isSplit);
    EXPECT_EQ(SplitVideoPath(QStringLiteral("http://host\\clip.avi")).name, QStringLiteral("clip.avi"));
}

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
