#include "imaging/Tones.h"

#include "imaging/Matrix.h"
#include "imaging/Operation.h"
#include "imaging/TrueColour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace imaging {
namespace {

constexpr double White = 255;
constexpr int Whole = 1000; ///< of the amounts that go from -1000 to 1000

double PartOf(int amount)
{
    return std::clamp(amount, -Whole, Whole) / double(Whole);
}

/// Takes every channel along a curve, which maps 0 to 255 to any number.
template <typename Curve> QImage Along(const QImage& picture, const Progress& progress, Curve&& curve)
{
    std::array<uchar, 256> values {};
    bool isNeutral = true;
    for (int value = 0; value < 256; ++value) {
        values[size_t(value)] = cv::saturate_cast<uchar>(curve(double(value)));
        isNeutral = isNeutral && values[size_t(value)] == value;
    }
    if (isNeutral)
        return picture;
    const cv::Mat table(1, 256, CV_8U, values.data());
    return OnColours(
        picture, [&](const cv::Mat& from, cv::Mat& to) { cv::LUT(from, table, to); }, progress);
}

struct Range {
    double low = White;
    double high = 0;

    void Take(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

Range RangeOfPixels(const QImage& picture)
{
    cv::Mat pixels = PixelsOf(picture), colours = pixels;
    if (pixels.channels() == 4) {
        colours.create(pixels.size(), CV_8UC3);
        constexpr int withoutAlpha[] = { 0, 0, 1, 1, 2, 2 };
        cv::mixChannels(&pixels, 1, &colours, 1, withoutAlpha, 3);
    }
    Range range;
    cv::minMaxIdx(colours.reshape(1), &range.low, &range.high);
    return range;
}

/// Colours that stand in the palette and nowhere in the picture do not count.
Range RangeOfPalette(const QImage& picture)
{
    const QImage indexed = Indexed(picture);
    const auto isUsed = UsedColours(indexed);
    Range range;
    for (qsizetype i = 0; i < indexed.colorCount(); ++i) {
        const QRgb colour = indexed.color(int(i));
        if (isUsed[size_t(i)])
            for (const int value : { qRed(colour), qGreen(colour), qBlue(colour) })
                range.Take(value);
    }
    return range;
}

} // namespace

QImage Inverted(const QImage& picture, const Progress& progress)
{
    return OnColours(
        picture, [](const cv::Mat& from, cv::Mat& to) { cv::bitwise_not(from, to); }, progress);
}

QImage WithBrightness(const QImage& picture, int amount, const Progress& progress)
{
    const double added = White * PartOf(amount);
    return Along(picture, progress, [&](double value) { return value + added; });
}

QImage WithContrast(const QImage& picture, int amount, const Progress& progress)
{
    constexpr double middle = White / 2;
    const double slope = std::tan((PartOf(amount) + 1) * std::numbers::pi / 4);
    return Along(picture, progress,
        [&](double value) { return std::clamp((value - middle) * slope + middle, 0.0, White); });
}

QImage WithGamma(const QImage& picture, int gamma, const Progress& progress)
{
    const double power = 100.0 / std::clamp(gamma, 1, 500);
    return Along(picture, progress, [&](double value) { return White * std::pow(value / White, power); });
}

QImage Posterized(const QImage& picture, int levels, const Progress& progress)
{
    const int steps = std::clamp(levels, 2, 64) - 1;
    return Along(
        picture, progress, [&](double value) { return std::round(value / White * steps) * White / steps; });
}

QImage Solarized(const QImage& picture, int threshold, const Progress& progress)
{
    const double bound = std::clamp(threshold, 0, 255);
    return Along(picture, progress, [&](double value) { return value > bound ? White - value : value; });
}

QImage WithStretchedIntensity(const QImage& picture, const Progress& progress)
{
    const Range range = HasPalette(picture) ? RangeOfPalette(picture) : RangeOfPixels(TrueColour(picture));
    if (range.low >= range.high)
        return picture;
    return Along(picture, progress,
        [&](double value) { return (value - range.low) * White / (range.high - range.low); });
}

} // namespace imaging
