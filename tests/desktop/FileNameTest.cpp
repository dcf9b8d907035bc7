#include "desktop/FileName.h"

#include <gtest/gtest.h>

TEST(FileName, EveryNameSurvivesTheWayThroughAText)
{
    for (const QByteArray& name : { QByteArray("plain.avi"), QByteArray("caf\xE9.avi"),
             QByteArray("\xFF\xFE\x80"), QByteArray("Ümläut 🎞.mpg"), QByteArray("\xEF\xBF\xBD.wmv"),
             QByteArray("\xC3"), QByteArray("\xED\xB2\x80") })
        EXPECT_EQ(FileName::ToBytes(FileName::FromBytes(name)), name) << name.toHex(' ').toStdString();
}

TEST(FileName, ShownOnOneLineWithReplacementSigns)
{
    EXPECT_EQ(FileName::Shown(FileName::FromBytes("a\nb\xE9.avi")), QStringLiteral("a\uFFFDb\uFFFD.avi"));
    EXPECT_EQ(FileName::Shown(QStringLiteral("🎞 ok.avi")), QStringLiteral("🎞 ok.avi"));
}
