#include "video/VideoNames.h"

#include "app/ApplicationState.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(VideoNames, TheLastFourCharactersDecide)
{
    const QTemporaryDir folder;
    ApplicationState state(folder.path(), folder.filePath(QStringLiteral("settings")));
    const auto isNotVideo = [&](const char* name) {
        TestVideoExtension(state, QLatin1String(name));
        return state.NotVideo;
    };
    for (const char* name :
        { "a.mpeg", "ampeg", "mpeg", "a.mpg", "A.AVI", "b.swf", "c.mpa", "d.Wmv", "e.asx" })
        EXPECT_FALSE(isNotVideo(name)) << name;
    for (const char* name : { "", "a.txt", "avi", "a.mp4", "mpg", "a.avi2", "a.avi " })
        EXPECT_TRUE(isNotVideo(name)) << name;
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

TEST(VideoNames, WhatLogsInAtAHostIsNoPartOfTheName)
{
    for (const char* logIn : { "", "jane@", "jane:secret@", "CORP\\jane:secret@", "jane:s@cret@" })
        for (const char* rest : { "host/clip.avi", "host/jane@home.avi", "host?to=a@b", "host#a@b" })
            EXPECT_EQ(WithoutLogIn(QStringLiteral("http://") + QLatin1String(logIn) + QLatin1String(rest)),
                QStringLiteral("http://") + QLatin1String(rest));
    EXPECT_EQ(WithoutLogIn(QStringLiteral("/films/jane@home.avi")), QStringLiteral("/films/jane@home.avi"));
}
