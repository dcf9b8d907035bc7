#include "imaging/Edges.h"
#include "imaging/Filters.h"

#include "OperationTable.h"
#include "Pictures.h"

#include <QColor>
#include <array>
#include <cmath>

using namespace imaging;

namespace {

QImage PlainGrey(int level)
{
    return Pictures::Plain({ 30, 20 }, QColor(level, level, level));
}

QImage WithSpot(QPoint place)
{
    QImage picture = PlainGrey(60);
    picture.setPixelColor(place, Qt::white);
    return picture;
}

int RedAt(const QImage& picture, int x, int y)
{
    return picture.pixelColor(std::clamp(x, 0, picture.width() - 1), std::clamp(y, 0, picture.height() - 1))
        .red();
}

/// The sum of the weighted neighbours; those beyond an edge are those of the edge.
int Weighted(const QImage& picture, int x, int y, const std::array<int, 9>& weights)
{
    int sum = 0;
    for (int i = 0; i < 9; ++i)
        sum += weights[size_t(i)] * RedAt(picture, x + i % 3 - 1, y + i / 3 - 1);
    return sum;
}

/// The mean of the most frequent of sixteen tones, counted pixel by pixel; of equally frequent ones that with
/// the larger sum of red, then green, then blue.
QColor MostFrequent(const QImage& picture, QRect square)
{
    std::array<std::array<int, 4>, 16> tones {}; // count, red, green, blue
    const QRect inside = square & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            auto& tone = tones[size_t(29 * colour.blue() + 150 * colour.green() + 77 * colour.red()) / 4096];
            tone = { tone[0] + 1, tone[1] + colour.red(), tone[2] + colour.green(), tone[3] + colour.blue() };
        }
    const auto [count, red, green, blue] = *std::ranges::max_element(tones);
    const auto mean = [&](int sum) { return (sum + count / 2) / count; };
    return { mean(red), mean(green), mean(blue) };
}

} // namespace

TEST(Sharpen, LeavesEvenGroundAndLiftsEdges)
{
    EXPECT_EQ(Sharpened(PlainGrey(60), 1000), PlainGrey(60));
    const QImage edge = Pictures::TwoColours({ 60, 40 });
    const QImage photo = Pictures::Photo({ 60, 40 });
    EXPECT_GT(Difference(Sharpened(photo, 500), photo), Difference(Sharpened(photo, 100), photo));
    EXPECT_GT(Difference(Sharpened(edge, 100), edge), 10);
}

TEST(Sharpen, BelowZeroSoftens)
{
    const QImage spot = WithSpot({ 15, 10 });
    const QImage soft = Sharpened(spot, -1000);
    const double middle =
        std::pow(0.3990502, 2); // of a Gauss curve of one pixel, seven pixels wide, in both ways
    EXPECT_NEAR(RedAt(soft, 15, 10), 60 + 195 * middle, 1);
    EXPECT_NEAR(RedAt(Sharpened(spot, -500), 15, 10), (255 + RedAt(soft, 15, 10)) / 2, 1);
}

TEST(Median, TakesSpotsAwayAndKeepsEdges)
{
    EXPECT_EQ(WithMedian(WithSpot({ 15, 10 }), 3), PlainGrey(60));
    EXPECT_EQ(WithMedian(WithSpot({ 0, 0 }), 5), PlainGrey(60));
    QImage halves = PlainGrey(0);
    for (int y = 0; y < 20; ++y)
        for (int x = 13; x < 30; ++x)
            halves.setPixelColor(x, y, Qt::white);
    EXPECT_EQ(WithMedian(halves, 9), halves);
}

TEST(Median, TakesAnEvenSizeForTheOddOneAboveIt)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const int size : { 2, 4, 12, 24 })
        EXPECT_EQ(WithMedian(photo, size), WithMedian(photo, size + 1)) << size;
    EXPECT_NE(WithMedian(photo, 4), WithMedian(photo, 3));
    EXPECT_EQ(WithMedian(photo, 99), WithMedian(photo, 25));
}

TEST(Mosaic, MakesEachTileTheMeanOfItsPixels)
{
    constexpr int tile = 7;
    const QImage photo = Pictures::Photo({ 61, 43 });
    const QImage mosaic = Mosaic(photo, tile);
    for (int top = 0; top < 43; top += tile)
        for (int left = 0; left < 61; left += tile) {
            const QRect square = QRect(left, top, tile, tile) & photo.rect();
            int sum = 0;
            for (int i = 0; i < square.width() * square.height(); ++i)
                sum += RedAt(photo, left + i % square.width(), top + i / square.width());
            const double mean = double(sum) / (square.width() * square.height());
            EXPECT_NEAR(RedAt(mosaic, left, top), mean, 0.51);
            EXPECT_EQ(RedAt(mosaic, square.right(), square.bottom()), RedAt(mosaic, left, top));
        }
}

TEST(Mosaic, OfATileLargerThanThePictureIsItsMean)
{
    const QImage mosaic = Mosaic(Pictures::Photo({ 61, 43 }), 1000);
    EXPECT_EQ(mosaic, Pictures::Plain({ 61, 43 }, mosaic.pixelColor(0, 0)));
}

TEST(Oil, PaintsTheMeanOfTheMostFrequentTone)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const int size : { 2, 3, 8, 20 }) {
        const QImage painted = OilPainted(photo, size);
        for (int y = 0; y < photo.height(); ++y)
            for (int x = 0; x < photo.width(); ++x)
                ASSERT_EQ(painted.pixelColor(x, y),
                    MostFrequent(photo, QRect(x - size / 2, y - size / 2, size, size)))
                    << size << ": " << x << "," << y;
    }
    EXPECT_EQ(OilPainted(photo, 500), OilPainted(photo, 20));
}

TEST(Emboss, MakesEvenGroundMiddleGreyAndAddsTheSlopeForEachUnit)
{
    EXPECT_EQ(Embossed(PlainGrey(60), Direction::East, 100), PlainGrey(128));
    const QImage ramp =
        Pictures::GreyRamp({ 60, 40 }); // rises by a level a pixel, towards the right and down
    const std::pair<Direction, int> lights[] = { { Direction::East, -5 }, { Direction::West, 5 },
        { Direction::North, 5 }, { Direction::South, -5 } };
    for (const auto& [light, slope] : lights) {
        EXPECT_EQ(RedAt(Embossed(ramp, light, 5), 20, 20), 128 + slope) << int(light);
        EXPECT_EQ(Embossed(ramp, light, 0), Embossed(PlainGrey(0), light, 1).scaled(60, 40)) << "flat";
    }
    EXPECT_EQ(Embossed(ramp, Direction::East, 3000), Embossed(ramp, Direction::East, 1000));
}

TEST(SpatialFilter, WeighsTheNeighboursOfEachCode)
{
    struct Row {
        int code;
        bool isAbsolute;
        std::array<int, 9> weights;
    };
    const Row rows[] = {
        { 8, false, { 1, 1, 1, 1, -2, 1, -1, -1, -1 } },
        { 10, false, { -1, 1, 1, -1, -2, 1, -1, 1, 1 } },
        { 12, false, { -1, -1, -1, 1, -2, 1, 1, 1, 1 } },
        { 14, false, { 1, 1, -1, 1, -2, -1, 1, 1, -1 } },
        { 22, true, { -1, 0, 1, -2, 0, 2, -1, 0, 1 } },
        { 23, true, { -1, -2, -1, 0, 0, 0, 1, 2, 1 } },
        { 24, true, { -1, 0, 1, -1, 0, 1, -1, 0, 1 } },
        { 25, true, { -1, -1, -1, 0, 0, 0, 1, 1, 1 } },
        { 27, true, { 0, 0, 0, -1, 1, 0, 0, 0, 0 } },
        { 28, true, { 0, -1, 0, 0, 1, 0, 0, 0, 0 } },
    };
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const Row& row : rows) {
        ASSERT_TRUE(IsSpatialCode(row.code));
        const QImage filtered = SpatiallyFiltered(photo, SpatialCode(row.code));
        for (int y = 0; y < photo.height(); ++y)
            for (int x = 0; x < photo.width(); ++x) {
                const int sum = Weighted(photo, x, y, row.weights);
                ASSERT_EQ(RedAt(filtered, x, y), std::clamp(row.isAbsolute ? std::abs(sum) : sum, 0, 255))
                    << row.code << ": " << x << "," << y;
            }
    }
    for (const int code : { 0, 9, 26, 29 })
        EXPECT_FALSE(IsSpatialCode(code)) << code;
}
