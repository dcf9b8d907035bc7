#include "frame/Background.h"

#include <gtest/gtest.h>

namespace {

QImage Dot()
{
    QImage source(2, 2, QImage::Format_RGB32);
    source.fill(Qt::white);
    source.setPixelColor(0, 0, Qt::red);
    return source;
}

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
