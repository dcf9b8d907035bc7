#include "desktop/Dib.h"

#include "tests/testing/SmallMemory.h"

#include <gtest/gtest.h>

TEST(Dib, EveryPixelOfATrueColourPictureComesBack)
{
    for (const QSize size : { QSize(1, 1), QSize(5, 3), QSize(64, 48) }) {
        QImage image(size, QImage::Format_BGR888);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                image.setPixelColor(x, y, QColor(x * 7 % 256, y * 11 % 256, (x + y) % 256));
        EXPECT_EQ(Dib::FromImage(image).ToImage(), image) << size.width() << "x" << size.height();
    }
}

TEST(Dib, RowsStandBottomUpInBlueGreenRedPaddedToFourBytes)
{
    QImage image(1, 2, QImage::Format_RGB32);
    image.setPixelColor(0, 0, QColor(1, 2, 3));
    image.setPixelColor(0, 1, QColor(4, 5, 6));
    const Dib dib = Dib::FromImage(image);
    EXPECT_EQ(dib.Block().sliced(40), QByteArray("\x06\x05\x04\x00\x03\x02\x01\x00", 8));
}

TEST(Dib, ABlockThatTheMemoryDoesNotHoldOnceMoreGivesNoPicture)
{
    const Dib dib = Dib::FromImage(QImage(8000, 8000, QImage::Format_BGR888));
    const SmallMemory memory(100);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    EXPECT_TRUE(dib.ToImage().isNull());
}

TEST(Dib, APictureThatTheMemoryDoesNotHoldIsNoHalfBlock)
{
    QImage small(8000, 8000, QImage::Format_Mono);
    small.setColorTable({ qRgb(0, 0, 0), qRgb(255, 255, 255) });
    const SmallMemory memory(100);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    EXPECT_THROW(Dib::FromImage(small), std::bad_alloc);
}

TEST(Dib, AnEmptyPictureGivesAnEmptyBlockAndBack)
{
    const Dib dib = Dib::FromImage(QImage());
    EXPECT_TRUE(dib.IsEmpty());
    EXPECT_TRUE(dib.ToImage().isNull());
}
