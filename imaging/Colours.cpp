#include "imaging/Colours.h"

#include "imaging/Operation.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

constexpr float Lightness[] = { 0.114F, 0.587F, 0.299F }; ///< of blue, green and red

/// What each channel takes of each, for colours that move by part away from their grey.
cv::Mat SaturationMatrix(double part)
{
    cv::Mat matrix = cv::Mat::eye(4, 4, CV_32F);
    for (int to = 0; to < 3; ++to)
        for (int from = 0; from < 3; ++from)
            matrix.at<float>(to, from) = float((to == from ? 1 + part : 0) - part * Lightness[from]);
    return matrix;
}

void TurnHue(const cv::Mat& from, cv::Mat& to, double degrees)
{
    cv::Mat colours = from, turned;
    if (from.channels() == 4)
        cv::cvtColor(from, colours, cv::COLOR_BGRA2BGR);
    colours.convertTo(turned, CV_32F, 1.0 / 255);
    cv::cvtColor(turned, turned, cv::COLOR_BGR2HSV);
    cv::add(turned, cv::Scalar(degrees, 0, 0), turned);
    cv::cvtColor(turned, turned, cv::COLOR_HSV2BGR);
    if (from.channels() == 3)
        return turned.convertTo(to, CV_8U, 255);
    turned.convertTo(colours, CV_8U, 255);
    cv::cvtColor(colours, to, cv::COLOR_BGR2BGRA);
}

} // namespace

QImage Grey(const QImage& picture, const Progress& progress)
{
    const auto grey = [](const cv::Mat& from, cv::Mat& to) {
        const bool hasAlpha = from.channels() == 4;
        cv::Mat lightness;
        cv::cvtColor(from, lightness, hasAlpha ? cv::COLOR_BGRA2GRAY : cv::COLOR_BGR2GRAY);
        cv::cvtColor(lightness, to, hasAlpha ? cv::COLOR_GRAY2BGRA : cv::COLOR_GRAY2BGR);
    };
    return OnColours(picture, grey, progress);
}

QImage WithSaturation(const QImage& picture, int amount, const Progress& progress)
{
    if (amount == 0)
        return picture;
    const cv::Mat matrix = SaturationMatrix(std::clamp(amount, -1000, 1000) / 1000.0);
    return OnColours(
        picture,
        [&](const cv::Mat& from, cv::Mat& to) {
            const cv::Range channels(0, from.channels());
            cv::transform(from, to, matrix(channels, channels));
        },
        progress);
}

QImage WithHue(const QImage& picture, int degrees, const Progress& progress)
{
    const int turn = (std::clamp(degrees, -180, 180) + 360) % 360;
    if (turn == 0)
        return picture;
    return OnColours(
        picture, [&](const cv::Mat& from, cv::Mat& to) { TurnHue(from, to, turn); }, progress);
}

} // namespace imaging
