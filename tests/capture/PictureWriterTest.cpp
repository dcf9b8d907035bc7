#include "capture/PictureWriter.h"

#include "app/ControlError.h"
#include "imaging/PictureFile.h"
#include "tests/testing/Files.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class PictureWriterTest : public testing::Test {
protected:
    QTemporaryDir folder;
    AutoName names { folder.path(), QStringLiteral(".bmp") };
    PictureWriter writer;
    QSignalSpy written { &writer, &PictureWriter::Written };
    QSignalSpy failed { &writer, &PictureWriter::Failed };

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    static QImage Grey(int shade)
    {
        QImage picture(16, 8, QImage::Format_BGR888);
        picture.fill(QColor(shade, shade, shade));
        return picture;
    }
    void Put(int shade) { writer.Write(Grey(shade), names); }
    bool Await(const QSignalSpy& spy, int count)
    {
        return QTest::qWaitFor([&] { return spy.size() >= count; }, 10000);
    }
    int ShadeOf(int number) const { return qRed(QImage(names.At(number)).pixel(0, 0)); }
};

} // namespace

TEST_F(PictureWriterTest, PicturesAreWrittenInTheirOrder)
{
    for (int shade = 1; shade <= 20; ++shade)
        Put(shade);
    EXPECT_EQ(writer.Waiting(), 20);
    ASSERT_TRUE(Await(written, 20));
    EXPECT_EQ(writer.Waiting(), 0);
    for (int number = 1; number <= 20; ++number) {
        EXPECT_EQ(written.at(number - 1).at(0).toString(), names.At(number));
        EXPECT_EQ(ShadeOf(number), number);
    }
}

TEST_F(PictureWriterTest, FilesThatStandThereAreSkipped)
{
    MakeFile(names.At(1), "mine");
    MakeFile(names.At(3), "mine too");
    Put(1);
    Put(2);
    ASSERT_TRUE(Await(written, 2));
    EXPECT_EQ(ShadeOf(2), 1);
    EXPECT_EQ(ShadeOf(4), 2);
    EXPECT_EQ(FileBytes(names.At(1)), "mine");
}

TEST_F(PictureWriterTest, NumbersRunOnUntilTheyStartAgain)
{
    Put(1);
    ASSERT_TRUE(Await(written, 1));
    QFile::remove(names.At(1));
    Put(2);
    ASSERT_TRUE(Await(written, 2));
    EXPECT_EQ(written.last().at(0).toString(), names.At(2));
    writer.Restart();
    Put(3);
    ASSERT_TRUE(Await(written, 3));
    EXPECT_EQ(written.last().at(0).toString(), names.At(1));
}

TEST_F(PictureWriterTest, AfterAFailureNothingThatWasHandedOverBeforeItWasToldIsWritten)
{
    const AutoName nowhere(folder.filePath(QStringLiteral("missing")), QStringLiteral(".bmp"));
    writer.Write(Grey(1), nowhere);
    Put(2);
    Put(3);
    ASSERT_TRUE(Await(failed, 1));
    EXPECT_EQ(writer.Waiting(), 0);
    Put(4);
    ASSERT_TRUE(Await(written, 1));
    EXPECT_EQ(FilesIn(folder.path()), QStringList { QStringLiteral("auto2.bmp") });
    EXPECT_EQ(ShadeOf(2), 4);
}

TEST_F(PictureWriterTest, AFailureThatEndsNothingLosesItsOwnPictureOnly)
{
    const AutoName nowhere(folder.filePath(QStringLiteral("missing")), QStringLiteral(".bmp"));
    writer.SetAfterFailure(PictureWriter::AfterFailure::GoOn);
    writer.Write(Grey(1), nowhere);
    Put(2);
    Put(3);
    ASSERT_TRUE(Await(written, 2));
    EXPECT_EQ(failed.size(), 1);
    EXPECT_EQ(writer.Waiting(), 0);
    EXPECT_EQ(ShadeOf(2), 2);
    EXPECT_EQ(ShadeOf(3), 3);
}

TEST_F(PictureWriterTest, ANumberThatWasTriedIsNotTriedAgain)
{
    writer.Skip(names);
    Put(1);
    ASSERT_TRUE(Await(written, 1));
    EXPECT_EQ(written.last().at(0).toString(), names.At(2)) << "the first was for a picture not to be had";
    QDir(folder.path()).rename(folder.path(), folder.path() + QStringLiteral(".away"));
    Put(2);
    ASSERT_TRUE(Await(failed, 1));
    QDir(folder.path()).rename(folder.path() + QStringLiteral(".away"), folder.path());
    Put(3);
    ASSERT_TRUE(Await(written, 2));
    EXPECT_EQ(written.last().at(0).toString(), names.At(4));
}

TEST_F(PictureWriterTest, APictureIsFinishedBeforeItIsTold)
{
    const auto finish = [](const QString& path) { QFile::rename(path, path + QStringLiteral(".done")); };
    writer.Write(Grey(1), names, finish);
    ASSERT_TRUE(Await(written, 1));
    EXPECT_TRUE(QFile::exists(names.At(1) + QStringLiteral(".done")));
}

TEST_F(PictureWriterTest, APictureThatCannotBeFinishedHasFailedAndItsFileStands)
{
    const auto refuse = [](const QString&) { throw ControlError(QStringLiteral("It cannot be finished.")); };
    writer.Write(Grey(1), names, refuse);
    Put(2);
    ASSERT_TRUE(Await(failed, 1));
    EXPECT_EQ(written.size(), 0);
    EXPECT_EQ(FilesIn(folder.path()), QStringList { QStringLiteral("auto1.bmp") });
}

TEST_F(PictureWriterTest, WhatIsDroppedIsNotToldOf)
{
    for (int shade = 0; shade < 50; ++shade)
        Put(shade);
    writer.Drop();
    EXPECT_EQ(writer.Waiting(), 0);
    Put(200);
    ASSERT_TRUE(Await(written, 1));
    EXPECT_EQ(written.size(), 1);
    EXPECT_EQ(qRed(QImage(written.at(0).at(0).toString()).pixel(0, 0)), 200);
}

TEST_F(PictureWriterTest, OneThatGoesLeavesNoHalfFile)
{
    for (int i = 0; i < 20; ++i) {
        PictureWriter brief;
        for (int shade = 0; shade < 10; ++shade)
            brief.Write(Grey(shade), names);
    }
    for (const QString& name : FilesIn(folder.path()))
        EXPECT_FALSE(QImage(folder.filePath(name)).isNull()) << name.toStdString();
}
