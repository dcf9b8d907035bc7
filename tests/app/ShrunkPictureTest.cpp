#include "app/ShrunkPicture.h"

#include <gtest/gtest.h>

namespace {

QImage Halves()
{
    QImage picture(80, 40, QImage::Format_BGR888);
    picture.fill(Qt::black);
    for (int y = 0; y < 40; ++y)
        for (int x = 40; x < 80; ++x)
            picture.setPixelColor(x, y, Qt::white);
    return picture;
}

} // namespace

TEST(ShrunkPictureTest, TheSameIsMadeOnce)
{
    ShrunkPicture shrunk;
    const QImage picture = Halves();
    const uchar* const made = shrunk.Of(picture, picture.rect(), { 10, 5 }).constBits();
    EXPECT_EQ(shrunk.Of(picture, picture.rect(), { 10, 5 }).constBits(), made);
}

TEST(ShrunkPictureTest, AnotherPictureAnotherPartAndAnotherSizeAreMadeAnew)
{
    ShrunkPicture shrunk;
    QImage picture = Halves();
    EXPECT_EQ(shrunk.Of(picture, picture.rect(), { 10, 5 }).pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(shrunk.Of(picture, { 40, 0, 40, 40 }, { 10, 5 }).pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(shrunk.Of(picture, picture.rect(), { 8, 4 }).size(), QSize(8, 4));
    picture.fill(Qt::red);
    EXPECT_EQ(shrunk.Of(picture, picture.rect(), { 8, 4 }).pixelColor(0, 0), QColor(Qt::red));
}
