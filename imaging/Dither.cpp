#include "imaging/Dither.h"

#include "imaging/ErrorDiffusion.h"
#include "imaging/Matrix.h"
#include "imaging/TrueColour.h"

#include <cmath>

namespace imaging {
namespace {

/// Rows after which progress is told, so that it is about twenty times.
int RowsPerReport(int rows)
{
    return std::max(1, rows / 20);
}

void Diffuse(ErrorDiffusion& diffusion, const cv::Mat& from, cv::Mat& to, const Progress& progress)
{
    const int report = RowsPerReport(from.rows);
    for (int y = 0; y < from.rows; ++y) {
        diffusion.Row(from.ptr(y), from.channels(), to.ptr(y));
        if ((y + 1) % report == 0 || y + 1 == from.rows)
            Tell(progress, y + 1, from.rows);
    }
}

using Pattern = std::array<std::array<int, 8>, 8>;

/// What is added to the pixels of each place, around zero: each half of the thresholds is spread as evenly as
/// can be.
Pattern OrderedPattern(int colours)
{
    const double levels = std::max(2.0, std::cbrt(colours)); // of each channel, as if the palette were a cube
    const double step = 255 / (levels - 1);
    Pattern pattern {};
    for (unsigned y = 0; y < 8; ++y)
        for (unsigned x = 0; x < 8; ++x) {
            unsigned rank = 0;
            for (unsigned bit = 0; bit < 3; ++bit)
                rank = rank << 2 | ((x ^ y) >> bit & 1) << 1 | (y >> bit & 1);
            pattern[y][x] = int(std::lround(step * ((rank + 0.5) / 64 - 0.5)));
        }
    return pattern;
}

/// Each pixel by itself, in all rows at once.
void Match(const NearestColour& nearest, const Pattern& pattern, const cv::Mat& from, cv::Mat& to)
{
    cv::parallel_for_(cv::Range(0, from.rows), [&](const cv::Range& rows) {
        RememberedColours remembered(nearest);
        for (int y = rows.start; y < rows.end; ++y) {
            const auto& added = pattern[size_t(y % 8)];
            const uchar* pixel = from.ptr(y);
            uchar* index = to.ptr(y);
            for (int x = 0; x < from.cols; ++x, pixel += from.channels()) {
                const int more = added[size_t(x % 8)];
                index[x] = uchar(remembered(cv::saturate_cast<uchar>(pixel[0] + more),
                    cv::saturate_cast<uchar>(pixel[1] + more), cv::saturate_cast<uchar>(pixel[2] + more)));
            }
        }
    });
}

} // namespace

QImage Dithered(const QImage& picture, const QList<QRgb>& palette, Dithering method, const Progress& progress)
{
    const QImage whole = TrueColour(picture);
    const cv::Mat from = PixelsOf(whole);
    QImage result = NewPicture(picture.size(), QImage::Format_Indexed8);
    result.setColorTable(palette);
    cv::Mat to = OwnPixelsOf(result);
    if (const DiffusionKernel* kernel = KernelOf(method)) {
        ErrorDiffusion diffusion(*kernel, palette, from.cols);
        Diffuse(diffusion, from, to, progress);
    } else {
        const Pattern pattern =
            method == Dithering::Ordered ? OrderedPattern(int(palette.size())) : Pattern {};
        Match(NearestColour(palette), pattern, from, to);
        Tell(progress, 1, 1);
    }
    return result;
}

} // namespace imaging
