#include "imaging/Colours.h"
#include "imaging/Tones.h"

#include "OperationTable.h"
#include "Pictures.h"

#include <QColor>
#include <cmath>

using namespace imaging;

namespace {

/// Every level of grey once.
QImage Ramp()
{
    return Pictures::GreyRamp({ 256, 1 });
}

std::vector<int> Levels(const QImage& picture)
{
    std::vector<int> levels;
    for (int x = 0; x < picture.width(); ++x)
        levels.push_back(picture.pixelColor(x, 0).red());
    return levels;
}

QColor Only(QColor colour, QImage (*operation)(const QImage&, int, const Progress&), int value)
{
    return operation(Pictures::Plain({ 1, 1 }, colour), value, {}).pixelColor(0, 0);
}

} // namespace

TEST(Brightness, AddsThePartOfTheRangeAndGoesToItsEnds)
{
    for (const int amount : { -1000, -600, -1, 1, 37, 1000 }) {
        const std::vector<int> levels = Levels(WithBrightness(Ramp(), amount));
        for (int level = 0; level < 256; ++level)
            EXPECT_EQ(
                levels[size_t(level)], std::clamp(int(std::lround(level + amount * 255 / 1000.0)), 0, 255))
                << amount;
    }
}

TEST(Brightness, IsMonotoneInItsAmount)
{
    std::vector<int> before = Levels(WithBrightness(Ramp(), -1000));
    for (int amount = -950; amount <= 1000; amount += 50) {
        const std::vector<int> levels = Levels(WithBrightness(Ramp(), amount));
        EXPECT_TRUE(std::ranges::is_sorted(levels));
        EXPECT_TRUE(std::ranges::equal(before, levels, std::less_equal {})) << amount;
        before = levels;
    }
}

TEST(Contrast, TurnsAboutTheMiddleFromFlatToUpright)
{
    for (const int level : Levels(WithContrast(Ramp(), -1000)))
        EXPECT_EQ(level, 128);
    for (const int level : Levels(WithContrast(Ramp(), 1000)))
        EXPECT_TRUE(level == 0 || level == 255) << level;
    EXPECT_GT(Levels(WithContrast(Ramp(), 300))[200], 200);
    EXPECT_LT(Levels(WithContrast(Ramp(), 300))[50], 50);
    EXPECT_TRUE(std::ranges::is_sorted(Levels(WithContrast(Ramp(), 700))));
}

TEST(Gamma, KeepsTheEndsAndDarkensBelowAHundred)
{
    for (const int gamma : { 1, 50, 180, 500 }) {
        const std::vector<int> levels = Levels(WithGamma(Ramp(), gamma));
        EXPECT_EQ(levels[0], 0);
        EXPECT_EQ(levels[255], 255);
        EXPECT_EQ(levels[100], std::lround(255 * std::pow(100 / 255.0, 100.0 / gamma)));
    }
    EXPECT_EQ(WithGamma(Ramp(), 0), WithGamma(Ramp(), 1)) << "nothing is darker";
}

TEST(Posterize, LeavesEvenLevels)
{
    const std::vector<int> four = Levels(Posterized(Ramp(), 4));
    EXPECT_EQ(std::set<int>(four.begin(), four.end()), (std::set<int> { 0, 85, 170, 255 }));
    for (const int levels : { 2, 17, 64 }) {
        const std::vector<int> left = Levels(Posterized(Ramp(), levels));
        EXPECT_EQ(std::set<int>(left.begin(), left.end()).size(), size_t(levels));
    }
    EXPECT_EQ(Posterized(Ramp(), 0), Posterized(Ramp(), 2));
    EXPECT_EQ(Posterized(Ramp(), 1000), Posterized(Ramp(), 64));
}

TEST(Solarize, InvertsAboveTheThreshold)
{
    const std::vector<int> levels = Levels(Solarized(Ramp(), 100));
    EXPECT_EQ(levels[100], 100);
    EXPECT_EQ(levels[101], 154);
    EXPECT_EQ(levels[255], 0);
    EXPECT_EQ(Levels(Solarized(Ramp(), 0))[1], 254);
    EXPECT_EQ(Levels(Solarized(Ramp(), 0))[0], 0);
}

TEST(StretchIntensity, ReachesBothEndsAndKeepsTheOrder)
{
    const QImage flat = WithBrightness(WithContrast(Ramp(), -700), 100);
    const std::vector<int> levels = Levels(WithStretchedIntensity(flat));
    EXPECT_EQ(levels.front(), 0);
    EXPECT_EQ(levels.back(), 255);
    EXPECT_TRUE(std::ranges::is_sorted(levels));
}

TEST(StretchIntensity, LeavesAPictureOfOneValueAndOneOfAllValues)
{
    const QImage plain = Pictures::Plain({ 5, 5 }, QColor(90, 90, 90));
    EXPECT_EQ(WithStretchedIntensity(plain).constBits(), plain.constBits());
    const QImage ramp = Ramp();
    EXPECT_EQ(WithStretchedIntensity(ramp).constBits(), ramp.constBits());
}

TEST(StretchIntensity, DoesNotCountColoursOfThePaletteThatNoPixelHas)
{
    QImage picture(2, 1, QImage::Format_Indexed8);
    picture.setColorTable({ qRgb(0, 0, 0), qRgb(100, 100, 100), qRgb(150, 150, 150), qRgb(255, 255, 255) });
    picture.setPixel(0, 0, 1);
    picture.setPixel(1, 0, 2);
    const QImage stretched = WithStretchedIntensity(picture);
    EXPECT_EQ(stretched.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(stretched.pixelColor(1, 0), QColor(Qt::white));
}

TEST(StretchIntensity, DoesNotCountTransparency)
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(100, 110, 120, 255));
    picture.setPixel(1, 0, qRgba(150, 140, 130, 10));
    const QImage stretched = WithStretchedIntensity(picture);
    EXPECT_EQ(qRed(stretched.pixel(0, 0)), 0);
    EXPECT_EQ(qRed(stretched.pixel(1, 0)), 255);
}

TEST(Grayscale, GivesTheLightnessAndKeepsGreys)
{
    const QImage ramp = Ramp();
    EXPECT_EQ(Grey(ramp), ramp);
    const std::pair<QColor, int> colours[] = { { Qt::red, 76 }, { Qt::green, 150 }, { Qt::blue, 29 } };
    for (const auto& [colour, lightness] : colours) {
        const QColor grey = Grey(Pictures::Plain({ 1, 1 }, colour)).pixelColor(0, 0);
        EXPECT_EQ(grey, QColor(lightness, lightness, lightness));
    }
}

TEST(Saturation, GoesFromGreyToTwiceTheColour)
{
    const QImage photo = Pictures::Photo({ 30, 20 });
    EXPECT_LE(Difference(WithSaturation(photo, -1000), Grey(photo)), 1);
    const QColor twice = Only(QColor(120, 100, 90), WithSaturation, 1000); // its lightness is 105
    EXPECT_NEAR(twice.red(), 135, 1);
    EXPECT_NEAR(twice.green(), 95, 1);
    EXPECT_NEAR(twice.blue(), 75, 1);
    EXPECT_LE(Difference(WithSaturation(Ramp(), 1000), Ramp()), 1) << "greys stay";
}

TEST(Hue, TurnsRedToGreenToBlue)
{
    EXPECT_EQ(Only(Qt::red, WithHue, 120), QColor(Qt::green));
    EXPECT_EQ(Only(Qt::green, WithHue, 120), QColor(Qt::blue));
    EXPECT_EQ(Only(Qt::red, WithHue, -120), QColor(Qt::blue));
    EXPECT_EQ(Only(Qt::red, WithHue, 180), Only(Qt::red, WithHue, -180));
    EXPECT_EQ(Only(QColor(200, 100, 100), WithHue, 60), QColor(200, 200, 100));
}

TEST(Hue, KeepsGreysAndComesBack)
{
    EXPECT_LE(Difference(WithHue(Ramp(), 77), Ramp()), 0);
    const QImage photo = Pictures::Photo({ 61, 43 });
    EXPECT_LE(Difference(WithHue(WithHue(photo, 77), -77), photo), 2);
}

TEST(Amounts, BeyondTheirRangeCountAsItsBound)
{
    const QImage photo = Pictures::Photo({ 30, 20 });
    EXPECT_EQ(WithBrightness(photo, 5000), WithBrightness(photo, 1000));
    EXPECT_EQ(WithContrast(photo, -5000), WithContrast(photo, -1000));
    EXPECT_EQ(WithSaturation(photo, 5000), WithSaturation(photo, 1000));
    EXPECT_EQ(WithHue(photo, 500), WithHue(photo, 180));
    EXPECT_EQ(WithGamma(photo, 9999), WithGamma(photo, 500));
    EXPECT_EQ(Solarized(photo, -1), Solarized(photo, 0));
    EXPECT_EQ(Solarized(photo, 300), Solarized(photo, 255));
    EXPECT_EQ(Posterized(photo, 1), Posterized(photo, 2));
    EXPECT_EQ(Posterized(photo, 99), Posterized(photo, 64));
}
