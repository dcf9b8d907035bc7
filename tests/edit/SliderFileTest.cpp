#include "edit/SliderFile.h"

#include "app/ControlError.h"
#include "tests/testing/Files.h"
#include "tests/testing/OrdinaryUser.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr SliderFile::Values Values { -1000, 12, -180, 0, 100, 5, 2, 3, 4, 64, 25, 255 };

constexpr QFile::Permissions EverythingToEverybody { 0x7777 };

class SliderFileTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Settings.Ini"));

    void Write(const QByteArray& bytes) { ASSERT_TRUE(MakeFile(path, bytes)); }
};

} // namespace

TEST_F(SliderFileTest, TheFileHasOneNumberALineAndNothingElse)
{
    SliderFile::Save(path, Values);
    EXPECT_EQ(FileBytes(path), "-1000\r\n12\r\n-180\r\n0\r\n100\r\n5\r\n2\r\n3\r\n4\r\n64\r\n25\r\n255\r\n");
}

TEST_F(SliderFileTest, WhatIsSavedIsLoaded)
{
    SliderFile::Save(path, {});
    SliderFile::Save(path, Values);
    const auto texts = SliderFile::Load(path);
    ASSERT_TRUE(texts);
    for (size_t index = 0; index < Values.size(); ++index)
        EXPECT_EQ((*texts)[index], QString::number(Values[index]));
}

TEST_F(SliderFileTest, NoFileLoadsNothing)
{
    EXPECT_FALSE(SliderFile::Load(path));
}

TEST_F(SliderFileTest, BlankLinesAndBlanksAreSkipped)
{
    Write("\r\n  1\r\n\r\n \t \r\n2  \r\n\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12");
    const auto texts = SliderFile::Load(path);
    ASSERT_TRUE(texts);
    for (int index = 0; index < EffectRowCount; ++index)
        EXPECT_EQ((*texts)[size_t(index)], QString::number(index + 1));
}

TEST_F(SliderFileTest, MissingLinesAreEmptyTexts)
{
    Write("1\r\n2\r\n");
    const auto texts = SliderFile::Load(path);
    ASSERT_TRUE(texts);
    EXPECT_EQ((*texts)[1], QStringLiteral("2"));
    EXPECT_EQ((*texts)[2], QString());
    EXPECT_EQ((*texts)[11], QString());
}

TEST_F(SliderFileTest, AnEmptyFileIsTwelveEmptyTexts)
{
    Write({});
    const auto texts = SliderFile::Load(path);
    ASSERT_TRUE(texts);
    EXPECT_EQ((*texts)[0], QString());
}

TEST_F(SliderFileTest, AThirteenthLineIsAFailure)
{
    Write(QByteArray("1\r\n").repeated(13));
    EXPECT_THROW(SliderFile::Load(path), ControlError);
    Write(QByteArray("1\r\n").repeated(12) + "\r\n \r\n");
    EXPECT_NO_THROW(SliderFile::Load(path)) << "a blank one is none";
}

TEST_F(SliderFileTest, AProtectedFileKeepsItsContent)
{
    Write("old");
    ASSERT_TRUE(QFile::setPermissions(folder.path(), EverythingToEverybody));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner));
    {
        const OrdinaryUser user;
        SliderFile::Save(path, Values);
    }
    EXPECT_EQ(FileBytes(path), "old");
}

TEST_F(SliderFileTest, AFileThatCannotBeWrittenIsNoFailure)
{
    EXPECT_NO_THROW(SliderFile::Save(folder.filePath(QStringLiteral("nowhere/Settings.Ini")), Values));
}
