#include "capture/SavePicture.h"

#include "app/ControlError.h"
#include "tests/testing/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QImage Picture()
{
    QImage picture(3, 2, QImage::Format_BGR888);
    picture.fill(QColor(10, 20, 30));
    picture.setPixelColor(0, 0, QColor(255, 0, 0));
    return picture;
}

TEST(SavePicture, WritesBitmapDataUnderAnyExtension)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("auto1.jpg"));
    SavePicture(Picture(), path);
    const QByteArray bytes = FileBytes(path);
    EXPECT_TRUE(bytes.startsWith("BM"));
    EXPECT_EQ(bytes.at(28), 24);
    EXPECT_EQ(QImage::fromData(bytes, "BMP").convertToFormat(QImage::Format_BGR888), Picture());
}

TEST(SavePicture, ReplacesWhatStoodThere)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shot.bmp"));
    ASSERT_TRUE(MakeFile(path, QByteArray(100000, 'x')));
    SavePicture(Picture(), path);
    EXPECT_EQ(FileBytes(path).size(), 14 + 40 + 2 * 12);
}

TEST(SavePicture, ANewPictureReplacesNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("auto1.bmp"));
    ASSERT_TRUE(MakeFile(path, "mine"));
    EXPECT_FALSE(SaveNewPicture(Picture(), path));
    EXPECT_EQ(FileBytes(path), "mine");
    ASSERT_TRUE(MakeFile(path, {}));
    EXPECT_TRUE(SaveNewPicture(Picture(), path));
    EXPECT_TRUE(FileBytes(path).startsWith("BM"));
}

TEST(SavePicture, AFailureIsTheControls)
{
    const QTemporaryDir folder;
    EXPECT_THROW(SavePicture(Picture(), folder.filePath(QStringLiteral("missing/a.bmp"))), ControlError);
    EXPECT_THROW(SavePicture(QImage(), folder.filePath(QStringLiteral("a.bmp"))), ControlError);
    EXPECT_TRUE(FilesIn(folder.path()).isEmpty());
}

} // namespace
