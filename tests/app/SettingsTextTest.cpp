#include "app/SettingsText.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace {

QString Read(const QByteArray& file, const QString& key)
{
    return SettingsText::Parse(file).Find(QStringLiteral("Options"), key).value_or(QStringLiteral("missing"));
}

TEST(SettingsText, AnyTextComesBackAsItWas)
{
    const QStringList texts { QStringLiteral("two\nlines\r\n"), QStringLiteral(" blanks around "),
        QStringLiteral("back\\slash \\n"), QStringLiteral("[a]=b;c#d"), QStringLiteral("tab\tand\x01"),
        QStringLiteral("\u4e2d\u6587 \U0001F600"), QString(QChar(0)), QString(QChar(0xDCE9)) };
    for (const QString& text : texts) {
        SettingsText settings;
        settings.Set(text, text, text);
        const SettingsText read = SettingsText::Parse(settings.ToBytes());
        EXPECT_EQ(read.Find(text, text), text) << settings.ToBytes().constData();
        EXPECT_FALSE(read.IsDamaged());
    }
}

TEST(SettingsText, IsWrittenAsLinesUnderItsSection)
{
    SettingsText settings;
    settings.Set(QStringLiteral("Options"), QStringLiteral("Ext"), QStringLiteral(".jpg"));
    settings.Set({}, QStringLiteral("Top"), QStringLiteral("1"));
    EXPECT_EQ(settings.ToBytes(), QByteArray("Top=1\n[Options]\nExt=.jpg\n"));
}

TEST(SettingsText, OtherSectionsAndUnknownKeysAreKept)
{
    SettingsText settings = SettingsText::Parse("[Later]\nNew=1\n[Options]\nUnknown=x\nExt=.bmp\n");
    settings.Set(QStringLiteral("Options"), QStringLiteral("Ext"), QStringLiteral(".png"));
    EXPECT_EQ(settings.ToBytes(), QByteArray("[Later]\nNew=1\n[Options]\nUnknown=x\nExt=.png\n"));
}

TEST(SettingsText, TheLastOfTwoEqualKeysCounts)
{
    EXPECT_EQ(Read("[Options]\nExt=.a\nExt=.b\n", QStringLiteral("Ext")), QStringLiteral(".b"));
}

TEST(SettingsText, LinesOfAnotherSystemAndCommentsAreNoDamage)
{
    const QByteArray file = "\xEF\xBB\xBF# by hand\r\n; too\r\n\r\n[Options]\r\nExt=.gif\r\n";
    EXPECT_EQ(Read(file, QStringLiteral("Ext")), QStringLiteral(".gif"));
    EXPECT_FALSE(SettingsText::Parse(file).IsDamaged());
}

TEST(SettingsText, LinesThatMeanNothingAreLeftOutAndTold)
{
    for (const QByteArray& line :
        { QByteArray("no sign of equality"), QByteArray("[open"), QByteArray("a=\\q"), QByteArray("a=\\x4"),
            QByteArray("a=\\"), QByteArray("a=\x02"), QByteArray("\0\1\2", 3) }) {
        const QByteArray file = "[Options]\nExt=.gif\n" + line + "\nBW=True\n";
        EXPECT_TRUE(SettingsText::Parse(file).IsDamaged()) << line.constData();
        EXPECT_EQ(Read(file, QStringLiteral("Ext")), QStringLiteral(".gif"));
        EXPECT_EQ(Read(file, QStringLiteral("BW")), QStringLiteral("True"));
        EXPECT_EQ(Read(file, QStringLiteral("a")), QStringLiteral("missing"));
    }
}

TEST(SettingsText, NoFileHasNoSettings)
{
    EXPECT_FALSE(SettingsText::Parse({}).IsDamaged());
    EXPECT_EQ(Read({}, QStringLiteral("Ext")), QStringLiteral("missing"));
}

} // namespace
