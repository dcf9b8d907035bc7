#include "toolkit/FileDialog.h"
#include "toolkit/PathText.h"

#include <gtest/gtest.h>

namespace {

/// Writes a NUL for every "0" of a text.
QString Buffer(const char* text)
{
    return QString::fromLatin1(text).replace(QLatin1Char('0'), QChar());
}

struct Parsed {
    explicit Parsed(const QString& buffer)
        : chosen(ParseMultiFileName(buffer, folder, files, count))
    {
    }
    QString folder = QStringLiteral("before");
    QStringList files { QStringLiteral("before") };
    int count = 7;
    bool chosen;
};

} // namespace

TEST(ParseMultiFileName, SeveralFilesAreAFolderAndItsNames)
{
    const Parsed parsed(Buffer("/videos0a.avi0b.mpg0c.wmv00"));
    EXPECT_TRUE(parsed.chosen);
    EXPECT_EQ(parsed.folder, QStringLiteral("/videos"));
    EXPECT_EQ(parsed.files, QStringList({ "a.avi", "b.mpg", "c.wmv" }));
    EXPECT_EQ(parsed.count, 3);
}

TEST(ParseMultiFileName, WhatStandsBehindADoubleNulIsCutOff)
{
    const Parsed parsed(Buffer("/videos0a.avi0b.mpg00rubbish0more0"));
    EXPECT_EQ(parsed.files, QStringList({ "a.avi", "b.mpg" }));
}

TEST(ParseMultiFileName, TheNulAfterTheLastNameMakesNoName)
{
    const Parsed parsed(Buffer("/videos0a.avi0b.mpg0"));
    EXPECT_EQ(parsed.count, 2);
    EXPECT_EQ(parsed.files.last(), QStringLiteral("b.mpg"));
}

TEST(ParseMultiFileName, ABlankBufferIsACancelAndChangesNothing)
{
    for (const char* blank : { "", "    ", "0", "00000", "  00a.avi" }) {
        const Parsed parsed(Buffer(blank));
        EXPECT_FALSE(parsed.chosen) << blank;
        EXPECT_EQ(parsed.folder, QStringLiteral("before"));
        EXPECT_EQ(parsed.files, QStringList({ "before" }));
        EXPECT_EQ(parsed.count, 7);
    }
}

TEST(ParseMultiFileName, OneFileIsSplitBehindItsLastSeparator)
{
    for (const char* one : { "/videos/sea/a.avi", "/videos/sea/a.avi0", "/videos/sea/a.avi00/other" }) {
        const Parsed parsed(Buffer(one));
        EXPECT_TRUE(parsed.chosen);
        EXPECT_EQ(parsed.folder, QStringLiteral("/videos/sea/"));
        EXPECT_EQ(parsed.files, QStringList({ "a.avi" }));
        EXPECT_EQ(parsed.count, 1);
    }
}

TEST(ParseMultiFileName, OneFileWithoutASeparatorHasNoFolder)
{
    const Parsed parsed(Buffer("a.avi"));
    EXPECT_EQ(parsed.folder, QString());
    EXPECT_EQ(parsed.files, QStringList({ "a.avi" }));
    EXPECT_EQ(parsed.count, 1);
}

TEST(ParseMultiFileName, NamesWithBlanksAndAccentsStayWhole)
{
    const Parsed parsed(
        QString(QStringLiteral("/vidéos x") + QChar() + " é .avi" + QChar() + "b c.mpg" + QChar() + QChar()));
    EXPECT_EQ(parsed.folder, QStringLiteral("/vidéos x"));
    EXPECT_EQ(parsed.files, QStringList({ QStringLiteral(" é .avi"), QStringLiteral("b c.mpg") }));
}

TEST(PathText, APathIsSplitAtTheNativeSeparator)
{
    EXPECT_EQ(PathText::Separator(), QLatin1Char('/'));
    EXPECT_EQ(PathText::LastSeparator(QStringLiteral("/a/b\\c.avi")), 2);
    EXPECT_EQ(PathText::LastSeparator(QStringLiteral("c.avi")), -1);
}

TEST(PathText, AWebAddressKeepsItsForwardSlashesInTheName)
{
    EXPECT_EQ(PathText::LastSeparator(QStringLiteral("http://host/a/b.avi")), -1);
    EXPECT_EQ(PathText::LastSeparator(QStringLiteral("http://host\\b.avi")), 11);
}
