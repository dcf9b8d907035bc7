#include "tests/clips/BarCode.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace {

TEST(BarCode, EveryNumberAndTagIsReadBack)
{
    for (int number = 0; number < 4096; ++number) {
        const BarCode code { number, number % 16 };
        ASSERT_EQ(ReadBarCode(PictureWith(code, QSize(96, 60))), code);
    }
}

TEST(BarCode, SurvivesScalingToOddSizes)
{
    const BarCode code { 2742, 13 };
    const QImage picture = PictureWith(code);
    for (const QSize size : { QSize(1920, 1080), QSize(321, 241), QSize(101, 77), QSize(64, 48) })
        EXPECT_EQ(ReadBarCode(picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)), code);
}

TEST(BarCode, SurvivesPaletteAndGrey)
{
    const BarCode code { 1365, 5 };
    for (const auto format : { QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_Mono })
        EXPECT_EQ(ReadBarCode(PictureWith(code).convertToFormat(format)), code);
}

TEST(BarCode, SurvivesCoarseJpeg)
{
    const BarCode code { 3003, 10 };
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(PictureWith(code).save(&buffer, "JPG", 25));
    EXPECT_EQ(ReadBarCode(QImage::fromData(bytes)), code);
}

TEST(BarCode, IsNotSeenWhereThereIsNone)
{
    QImage grey(320, 240, QImage::Format_RGB32);
    grey.fill(Qt::gray);
    EXPECT_FALSE(ReadBarCode(grey));
    EXPECT_FALSE(ReadBarCode(QImage()));
    EXPECT_FALSE(ReadBarCode(PictureWith({ 1, 1 }, QSize(40, 29))));
}

TEST(BarCode, OneDamagedCellMakesTheNumberUnreadable)
{
    QImage picture = PictureWith({ 77, 3 });
    for (int y = 0; y < 32; ++y)
        for (int x = 100; x < 120; ++x)
            picture.setPixelColor(x, y, Qt::gray);
    EXPECT_EQ(NumberIn(picture), -1);
}

} // namespace
