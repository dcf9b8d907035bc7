#include "imaging/Mirror.h"
#include "imaging/Rotate.h"
#include "imaging/Underlay.h"

#include "OperationTable.h"
#include "Pictures.h"
#include "imaging/PictureError.h"
#include "imaging/Resample.h"

#include <QColor>

using namespace imaging;

namespace {

/// Black, with one white pixel in the top left corner.
QImage Marked(QSize size)
{
    QImage picture = Pictures::Plain(size, Qt::black);
    picture.setPixelColor(0, 0, Qt::white);
    return picture;
}

QPoint PlaceOfMark(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == QColor(Qt::white))
                return { x, y };
    return { -1, -1 };
}

} // namespace

TEST(Mirror, FlipsTopToBottomAndReversesLeftToRight)
{
    EXPECT_EQ(PlaceOfMark(Flipped(Marked({ 6, 4 }))), QPoint(0, 3));
    EXPECT_EQ(PlaceOfMark(Reversed(Marked({ 6, 4 }))), QPoint(5, 0));
}

TEST(Mirror, WorksOnSingleBits)
{
    const QImage picture = Marked({ 13, 9 }).convertToFormat(QImage::Format_Mono);
    EXPECT_EQ(PlaceOfMark(Flipped(picture)), QPoint(0, 8));
    EXPECT_EQ(PlaceOfMark(Reversed(picture)), QPoint(12, 0));
}

TEST(Rotate, TurnsClockwiseByQuarters)
{
    const QImage picture = Marked({ 6, 4 });
    const auto turned = [&](int angle) { return Rotated(picture, angle, RotatedSize::Grown, Qt::red); };
    EXPECT_EQ(turned(9000).size(), QSize(4, 6));
    EXPECT_EQ(PlaceOfMark(turned(9000)), QPoint(3, 0));
    EXPECT_EQ(PlaceOfMark(turned(18000)), QPoint(5, 3));
    EXPECT_EQ(PlaceOfMark(turned(27000)), QPoint(0, 5));
    EXPECT_EQ(turned(-9000), turned(27000));
    EXPECT_EQ(turned(9000 + 36000), turned(9000));
}

TEST(Rotate, AQuarterMovesEveryPixelToItsPlaceAtEveryDepth)
{
    for (const int bits : Depths) {
        const QImage photo = AtDepth(Pictures::Photo({ 301, 139 }), bits);
        const QImage right = Rotated(photo, 9000, RotatedSize::Grown, Qt::white);
        const QImage left = Rotated(photo, 27000, RotatedSize::Grown, Qt::white);
        ASSERT_EQ(right.size(), photo.size().transposed()) << bits;
        ASSERT_EQ(left.size(), photo.size().transposed()) << bits;
        int misplaced = 0;
        for (int y = 0; y < photo.height(); ++y)
            for (int x = 0; x < photo.width(); ++x)
                misplaced += right.pixel(photo.height() - 1 - y, x) != photo.pixel(x, y)
                    || left.pixel(y, photo.width() - 1 - x) != photo.pixel(x, y);
        EXPECT_EQ(misplaced, 0) << bits;
    }
}

TEST(Rotate, AQuarterInItsOwnFrameMovesPixelsAsTheyAre)
{
    const QImage photo = Pictures::Photo({ 60, 40 });
    const QImage kept = Rotated(photo, 9000, RotatedSize::Kept, Qt::white);
    ASSERT_EQ(kept.size(), photo.size());
    const QImage grown = Rotated(photo, 9000, RotatedSize::Grown, Qt::white);
    EXPECT_EQ(kept.copy(10, 0, 40, 40), grown.copy(0, 10, 40, 40));
    EXPECT_EQ(kept.pixelColor(3, 3), QColor(Qt::white));
}

TEST(Rotate, GrowsToHoldTheTurnedPicture)
{
    const QImage grown = Rotated(Pictures::Plain({ 100, 50 }, Qt::blue), 3000, RotatedSize::Grown, Qt::white);
    EXPECT_EQ(grown.size(), QSize(112, 94)); // 100 cos 30 + 50 sin 30, 100 sin 30 + 50 cos 30
    EXPECT_EQ(grown.pixelColor(56, 47), QColor(Qt::blue));
    EXPECT_EQ(grown.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(grown.pixelColor(111, 93), QColor(Qt::white));
}

TEST(Rotate, KeepsItsFrameAndFillsTheCornersWhite)
{
    for (const int bits : Depths) {
        const QImage blue = AtDepth(Pictures::Plain({ 100, 50 }, Qt::blue), bits);
        const QImage kept = Rotated(blue, -4500, RotatedSize::Kept, Qt::white);
        EXPECT_EQ(kept.size(), QSize(100, 50));
        EXPECT_EQ(kept.pixelColor(50, 25), QColor(Qt::blue)) << bits;
        EXPECT_EQ(kept.pixelColor(0, 0), QColor(Qt::white)) << bits;
    }
}

TEST(Rotate, FillsWithTheNearestColourOfAPaletteThatIsFull)
{
    QImage picture(10, 10, QImage::Format_Indexed8);
    picture.setColorTable({ qRgb(0, 0, 90), qRgb(200, 210, 190) });
    picture.fill(0);
    picture.setPixel(5, 5, 1);
    const QImage kept = Rotated(picture, 4500, RotatedSize::Kept, Qt::white);
    EXPECT_EQ(kept.pixelColor(0, 0), QColor(200, 210, 190));
    EXPECT_EQ(kept.colorTable(), picture.colorTable());
}

TEST(Rotate, ThereAndBackIsNearlyThePicture)
{
    const QImage photo = Pictures::Photo({ 200, 150 });
    const QImage there = Rotated(photo, 1700, RotatedSize::Grown, Qt::white);
    const QImage back = Rotated(there, -1700, RotatedSize::Kept, Qt::white);
    const QRect middle(40, 30, 120, 90);
    const QPoint shift((back.width() - 200) / 2, (back.height() - 150) / 2);
    EXPECT_GT(Pictures::Likeness(back.copy(middle.translated(shift)), photo.copy(middle)), 25);
}

TEST(Rotate, OfTransparentPicturesMixesWhatShows)
{
    QImage picture(40, 40, QImage::Format_ARGB32);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x)
            picture.setPixel(x, y, x < 20 ? qRgba(255, 40, 0, 255) : qRgba(0, 255, 0, 0));
    const QImage turned = Rotated(picture, 700, RotatedSize::Kept, Qt::transparent);
    for (int y = 10; y < 30; ++y)
        for (int x = 10; x < 30; ++x) {
            const QRgb pixel = turned.pixel(x, y);
            if (qAlpha(pixel) > 20) {
                EXPECT_GT(qRed(pixel), 230) << x << "," << y;
                EXPECT_LT(qGreen(pixel), 60) << x << "," << y;
            }
        }
}

TEST(Rotate, RefusesAFrameNoPictureMayHave)
{
    const QImage large(16000, 4000, QImage::Format_Mono);
    EXPECT_THROW(Rotated(large, 4500, RotatedSize::Grown, Qt::white), PictureError);
}

TEST(Underlay, WhiteOnEitherSideShowsTheOther)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    const QImage white = Pictures::Plain({ 61, 43 }, Qt::white);
    for (const auto fit : { UnderlayFit::Tiled, UnderlayFit::Stretched }) {
        EXPECT_EQ(Underlaid(photo, white, fit), photo);
        EXPECT_EQ(Underlaid(white, photo, fit), photo);
    }
    EXPECT_EQ(Underlaid(photo, Pictures::Plain({ 3, 3 }, Qt::black), UnderlayFit::Tiled),
        Pictures::Plain({ 61, 43 }, Qt::black));
}

TEST(Underlay, TilesFromTheTopLeftCornerOrStretches)
{
    const QImage white = Pictures::Plain({ 61, 43 }, Qt::white);
    const QImage tile = Pictures::Photo({ 25, 20 });
    const QImage tiled = Underlaid(white, tile, UnderlayFit::Tiled);
    for (int y = 0; y < 43; ++y)
        for (int x = 0; x < 61; ++x)
            ASSERT_EQ(tiled.pixelColor(x, y), tile.pixelColor(x % 25, y % 20)) << x << "," << y;
    EXPECT_EQ(Underlaid(white, Pictures::Photo({ 90, 90 }), UnderlayFit::Tiled),
        Pictures::Photo({ 90, 90 }).copy(0, 0, 61, 43));
    EXPECT_EQ(Underlaid(white, tile, UnderlayFit::Stretched), Resample(tile, { 61, 43 }, Resampling::Smooth));
}

TEST(Underlay, ShowsThroughWhatIsTransparent)
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(10, 20, 30, 0));
    picture.setPixel(1, 0, qRgba(0, 0, 0, 255));
    const QImage result =
        Underlaid(picture, Pictures::Plain({ 1, 1 }, QColor(9, 99, 199)), UnderlayFit::Tiled);
    EXPECT_EQ(result.pixel(0, 0), qRgb(9, 99, 199));
    EXPECT_EQ(result.pixel(1, 0), qRgb(0, 0, 0));
}

TEST(Underlay, NeedsAPicture)
{
    EXPECT_THROW(Underlaid(Marked({ 2, 2 }), {}, UnderlayFit::Tiled), PictureError);
}

TEST(Resample, SmoothEdgesOfWhatIsTransparentKeepTheirColour)
{
    QImage picture(8, 1, QImage::Format_ARGB32);
    for (int x = 0; x < 8; ++x)
        picture.setPixel(x, 0, x < 4 ? qRgba(250, 40, 0, 255) : qRgba(0, 0, 0, 0));
    const QImage large = Resample(picture, { 80, 1 }, Resampling::Smooth);
    for (int x = 0; x < 80; ++x)
        if (const QRgb pixel = large.pixel(x, 0); qAlpha(pixel) > 20) {
            EXPECT_GT(qRed(pixel), 230) << x;
        }
}
