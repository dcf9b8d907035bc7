#include "imaging/Resample.h"

#include "imaging/PictureError.h"

#include <QColor>
#include <gtest/gtest.h>

using imaging::Resample;
using imaging::Resampling;

namespace {

QImage Checks(QSize size, QImage::Format format = QImage::Format_BGR888)
{
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, (x + y) % 2 ? Qt::white : Qt::black);
    return image;
}

} // namespace

TEST(Resample, SmoothGivesTheMeanOfPixelsThatFallTogether)
{
    const QImage grey = Resample(Checks({ 8, 6 }), { 4, 3 }, Resampling::Smooth);
    ASSERT_EQ(grey.size(), QSize(4, 3));
    EXPECT_EQ(grey.format(), QImage::Format_BGR888);
    for (int x = 0; x < 4; ++x)
        EXPECT_NEAR(grey.pixelColor(x, 1).red(), 127, 1);
}

TEST(Resample, NearestMixesNoColours)
{
    const QImage large = Resample(Checks({ 2, 2 }), { 6, 6 }, Resampling::Nearest);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(large.pixelColor(x, y), QColor((x / 3 + y / 3) % 2 ? Qt::white : Qt::black));
}

TEST(Resample, TheSameSizeSharesThePixels)
{
    const QImage picture = Checks({ 8, 6 });
    EXPECT_EQ(Resample(picture, { 8, 6 }, Resampling::Smooth).constBits(), picture.constBits());
}

TEST(Resample, TransparentColoursDoNotBleed)
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixelColor(0, 0, QColor(255, 0, 0, 255));
    picture.setPixelColor(1, 0, QColor(0, 255, 0, 0));
    const QColor mixed = Resample(picture, { 1, 1 }, Resampling::Smooth).pixelColor(0, 0);
    EXPECT_EQ(mixed.green(), 0);
    EXPECT_EQ(mixed.red(), 255);
    EXPECT_NEAR(mixed.alpha(), 128, 1);
}

TEST(Resample, NearestKeepsThePaletteAndSmoothDropsIt)
{
    const QImage paletted = Checks({ 4, 4 }).convertToFormat(QImage::Format_Indexed8);
    EXPECT_EQ(Resample(paletted, { 2, 2 }, Resampling::Nearest).format(), QImage::Format_Indexed8);
    EXPECT_EQ(Resample(paletted, { 2, 2 }, Resampling::Smooth).format(), QImage::Format_BGR888);
}

TEST(Resample, RefusesASizeNoPictureMayHave)
{
    for (const QSize size : { QSize(0, 5), QSize(5, -1), QSize(16385, 1), QSize(16384, 16384) })
        EXPECT_THROW(Resample(Checks({ 4, 4 }), size, Resampling::Smooth), imaging::PictureError);
}
