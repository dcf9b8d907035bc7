#include "frame/Background.h"

#include "imaging/FormatTable.h"
#include "imaging/PictureFile.h"
#include "tests/testing/Files.h"
#include "tests/testing/OtherReader.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QImage Dot()
{
    QImage source(2, 2, QImage::Format_RGB32);
    source.fill(Qt::white);
    source.setPixelColor(0, 0, Qt::red);
    return source;
}

class BackgroundPictureTest : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("ground.png"));
    BackgroundPicture background;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    void SetUp() override
    {
        ASSERT_TRUE(MakeFile(path,
            imaging::PictureFile::Encode(Dot().convertToFormat(QImage::Format_BGR888), imaging::Png, 24, 0)
                .Joined()));
    }
};

} // namespace

TEST(Background, IsSeventyFiveTwipsLargerThanTheArea)
{
    EXPECT_EQ(ComposeBackground(Dot(), { 20, 10 }, Placement::Tiled, Qt::black).size(), QSize(25, 15));
}

TEST(Background, TilesFromTheUpperLeft)
{
    const QImage tiled = ComposeBackground(Dot(), { 20, 10 }, Placement::Tiled, Qt::black);
    for (int x = 0; x < 20; ++x)
        EXPECT_EQ(tiled.pixelColor(x, 4), x % 2 == 0 ? QColor(Qt::red) : QColor(Qt::white)) << x;
}

TEST(Background, StandsOnceInTheLowerRightCorner)
{
    const QImage corner = ComposeBackground(Dot(), { 20, 10 }, Placement::LowerRight, Qt::black);
    EXPECT_EQ(corner.pixelColor(18, 8), QColor(Qt::red));
    EXPECT_EQ(corner.pixelColor(19, 9), QColor(Qt::white));
    EXPECT_EQ(corner.pixelColor(17, 8), QColor(Qt::black));
}

TEST(Background, WithoutAPictureIsPlainGround)
{
    EXPECT_EQ(ComposeBackground(QImage(), { 4, 4 }, Placement::Tiled, Qt::black).pixelColor(2, 2),
        QColor(Qt::black));
}

TEST_F(BackgroundPictureTest, TheFileIsReadOnce)
{
    EXPECT_EQ(background.Of(path, [] {}).size(), QSize(2, 2));
    const OtherReader none({});
    ASSERT_TRUE(none.HasMoved());
    EXPECT_EQ(background.Of(path, [] {}).size(), QSize(2, 2));
}

TEST_F(BackgroundPictureTest, WhoAsksForItWhileItIsReadGetsNothingAndReadsNothing)
{
    const QString sign = folder.filePath(QStringLiteral("sign"));
    const OtherReader slow(OtherReader::WaitFor(sign) + OtherReader::TheProgramItself());
    ASSERT_TRUE(slow.IsThere());
    int calls = 0;
    const QImage picture = background.Of(path, [&] {
        ++calls;
        EXPECT_TRUE(background.Of(path, [] { ADD_FAILURE() << "read once more"; }).isNull());
        EXPECT_TRUE(MakeFile(sign, "now"));
    });
    EXPECT_GE(calls, 1);
    EXPECT_EQ(picture.size(), QSize(2, 2));
}

TEST_F(BackgroundPictureTest, AnotherFileAskedForMeanwhileIsNotReplacedByTheFirst)
{
    const QString sign = folder.filePath(QStringLiteral("sign"));
    const QString other = folder.filePath(QStringLiteral("no such file"));
    const OtherReader slow(OtherReader::WaitFor(sign) + OtherReader::TheProgramItself());
    ASSERT_TRUE(slow.IsThere());
    background.Of(path, [&] {
        EXPECT_TRUE(background.Of(other, [] {}).isNull());
        EXPECT_TRUE(MakeFile(sign, "now"));
    });
    EXPECT_TRUE(background.Of(other, [] { ADD_FAILURE() << "it was kept"; }).isNull());
}
