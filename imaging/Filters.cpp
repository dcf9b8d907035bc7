#include "imaging/Filters.h"

#include "imaging/Operation.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

/// Replaces all tiles of an area by their means; all are of one size.
void EvenTiles(const cv::Mat& from, cv::Mat to, cv::Size tile)
{
    cv::Mat means;
    cv::resize(from, means, { from.cols / tile.width, from.rows / tile.height }, 0, 0, cv::INTER_AREA);
    cv::resize(means, to, to.size(), 0, 0, cv::INTER_NEAREST);
}

/// The whole tiles along a side, and what is left of one at its end.
std::vector<cv::Range> Runs(int length, int tile)
{
    const int whole = length - length % tile;
    std::vector<cv::Range> runs { { 0, whole }, { whole, length } };
    std::erase_if(runs, [](const cv::Range& run) { return run.empty(); });
    return runs;
}

} // namespace

QImage Sharpened(const QImage& picture, int amount, const Progress& progress)
{
    constexpr int reach = 3;
    constexpr double sigma = 1;
    if (amount == 0)
        return picture;
    const double part = amount > 0 ? std::min(amount, 1000) / 200.0 : std::max(amount, -1000) / 1000.0;
    const auto sharpen = [&](const cv::Mat& from, cv::Mat& to) {
        cv::Mat soft;
        cv::GaussianBlur(from, soft, { 2 * reach + 1, 2 * reach + 1 }, sigma, sigma,
            cv::BORDER_REPLICATE | cv::BORDER_ISOLATED);
        cv::addWeighted(from, 1 + part, soft, -part, 0, to);
    };
    return OnPixels(picture, { .reach = reach }, sharpen, progress);
}

QImage WithMedian(const QImage& picture, int size, const Progress& progress)
{
    const int side = std::clamp(size, 2, 25) | 1;
    return OnPixels(
        picture, { .reach = side / 2 },
        [&](const cv::Mat& from, cv::Mat& to) { cv::medianBlur(from, to, side); }, progress);
}

QImage Mosaic(const QImage& picture, int size, const Progress& progress)
{
    const int tile = std::clamp(size, 0, 1000);
    if (tile <= 1)
        return picture;
    const auto mosaic = [&](const cv::Mat& from, cv::Mat& to) {
        for (const cv::Range& rows : Runs(from.rows, tile))
            for (const cv::Range& columns : Runs(from.cols, tile))
                EvenTiles(from(rows, columns), to(rows, columns),
                    { std::min(tile, columns.size()), std::min(tile, rows.size()) });
    };
    return OnPixels(picture, { .together = tile }, mosaic, progress);
}

} // namespace imaging
