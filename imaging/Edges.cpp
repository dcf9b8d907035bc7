#include "imaging/Edges.h"

#include "imaging/Operation.h"

#include <algorithm>
#include <array>
#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

enum class Sign { Positive, Any }; ///< which differences show

struct SpatialRow {
    SpatialCode code;
    Sign sign;
    std::array<float, 9> weights; ///< of the pixel and its neighbours, as they stand in the picture
};

constexpr SpatialRow SpatialRows[] = {
    { SpatialCode::GradientNorth, Sign::Positive, { 1, 1, 1, 1, -2, 1, -1, -1, -1 } },
    { SpatialCode::GradientEast, Sign::Positive, { -1, 1, 1, -1, -2, 1, -1, 1, 1 } },
    { SpatialCode::GradientSouth, Sign::Positive, { -1, -1, -1, 1, -2, 1, 1, 1, 1 } },
    { SpatialCode::GradientWest, Sign::Positive, { 1, 1, -1, 1, -2, -1, 1, 1, -1 } },
    { SpatialCode::SobelHorizontal, Sign::Any, { -1, 0, 1, -2, 0, 2, -1, 0, 1 } },
    { SpatialCode::SobelVertical, Sign::Any, { -1, -2, -1, 0, 0, 0, 1, 2, 1 } },
    { SpatialCode::PrewittHorizontal, Sign::Any, { -1, 0, 1, -1, 0, 1, -1, 0, 1 } },
    { SpatialCode::PrewittVertical, Sign::Any, { -1, -1, -1, 0, 0, 0, 1, 1, 1 } },
    { SpatialCode::ShiftHorizontal, Sign::Any, { 0, 0, 0, -1, 1, 0, 0, 0, 0 } },
    { SpatialCode::ShiftVertical, Sign::Any, { 0, -1, 0, 0, 1, 0, 0, 0, 0 } },
};

void Filter(const cv::Mat& from, cv::Mat& to, const SpatialRow& row)
{
    const cv::Mat weights(3, 3, CV_32F, const_cast<float*>(row.weights.data()));
    if (row.sign == Sign::Positive)
        return cv::filter2D(from, to, CV_8U, weights, { -1, -1 }, 0, cv::BORDER_REPLICATE);
    cv::Mat differences;
    cv::filter2D(from, differences, CV_16S, weights, { -1, -1 }, 0, cv::BORDER_REPLICATE);
    cv::convertScaleAbs(differences, to);
}

/// How much lightness rises towards the right and downwards where a light from there would fall on it.
cv::Point LitSlope(Direction light)
{
    switch (light) {
    case Direction::East:
        return { -1, 0 };
    case Direction::West:
        return { 1, 0 };
    case Direction::North:
        return { 0, 1 };
    case Direction::South:
        return { 0, -1 };
    }
    return {};
}

} // namespace

QImage Embossed(const QImage& picture, Direction light, int depth, const Progress& progress)
{
    constexpr int middle = 128;
    constexpr double unit = 8; // what a Sobel filter makes of one level a pixel
    const cv::Point slope = LitSlope(light);
    const double scale = std::clamp(depth, 0, 1000) / unit * (slope.x + slope.y);
    const auto emboss = [&](const cv::Mat& from, cv::Mat& to) {
        const bool hasAlpha = from.channels() == 4;
        cv::Mat lightness, relief;
        cv::cvtColor(from, lightness, hasAlpha ? cv::COLOR_BGRA2GRAY : cv::COLOR_BGR2GRAY);
        cv::Sobel(lightness, relief, CV_8U, std::abs(slope.x), std::abs(slope.y), 3, scale, middle,
            cv::BORDER_REPLICATE);
        cv::cvtColor(relief, to, hasAlpha ? cv::COLOR_GRAY2BGRA : cv::COLOR_GRAY2BGR);
    };
    return OnPixels(picture, { .reach = 1 }, emboss, progress);
}

QImage SpatiallyFiltered(const QImage& picture, SpatialCode code, const Progress& progress)
{
    const SpatialRow* row = std::ranges::find(SpatialRows, code, &SpatialRow::code);
    return OnPixels(
        picture, { .reach = 1 }, [&](const cv::Mat& from, cv::Mat& to) { Filter(from, to, *row); }, progress);
}

bool IsSpatialCode(int code)
{
    return std::ranges::any_of(SpatialRows, [&](const SpatialRow& row) { return int(row.code) == code; });
}

} // namespace imaging
