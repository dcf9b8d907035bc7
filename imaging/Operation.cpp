#include "imaging/Operation.h"

#include "imaging/Matrix.h"
#include "imaging/TrueColour.h"

#include <algorithm>

namespace imaging {
namespace {

/// So few that they stay near the processor, so many that those seen twice do not weigh.
int RowsOfBand(Rows rows)
{
    const int wanted = std::max(16, 8 * rows.reach);
    return (wanted + rows.together - 1) / rows.together * rows.together;
}

/// Carries out an operation on some rows at a time.
class Bands {
public:
    Bands(const cv::Mat& from, cv::Mat& to, Rows rows, const PixelOperation& operation)
        : from_(from)
        , to_(to)
        , reach_(rows.reach)
        , rows_(RowsOfBand(rows))
        , operation_(operation)
    {
    }

    void Run(const Progress& progress)
    {
        constexpr int reports = 20;
        const int count = (from_.rows + rows_ - 1) / rows_;
        const int step = std::max(cv::getNumThreads(), (count + reports - 1) / reports);
        for (int first = 0; first < count; first += step) {
            const cv::Range together(first, std::min(first + step, count));
            cv::parallel_for_(together, [&](const cv::Range& part) {
                for (int band = part.start; band < part.end; ++band)
                    RunOne(cv::Range(band * rows_, std::min((band + 1) * rows_, from_.rows)));
            });
            Tell(progress, together.end, count);
        }
    }

private:
    void RunOne(cv::Range rows) const
    {
        const cv::Range seen(std::max(0, rows.start - reach_), std::min(from_.rows, rows.end + reach_));
        cv::Mat target = to_.rowRange(rows);
        if (reach_ == 0) {
            operation_(from_.rowRange(seen), target);
        } else {
            cv::Mat made;
            operation_(from_.rowRange(seen), made);
            made.rowRange(rows - seen.start).copyTo(target);
        }
        if (from_.channels() == 4)
            KeepAlpha(from_.rowRange(rows), target);
    }

    static void KeepAlpha(const cv::Mat& from, cv::Mat& to)
    {
        constexpr int alphaToAlpha[] = { 3, 3 };
        cv::mixChannels(&from, 1, &to, 1, alphaToAlpha, 1);
    }

    const cv::Mat& from_;
    cv::Mat& to_;
    int reach_;
    int rows_;
    const PixelOperation& operation_;
};

QImage OnTrueColour(
    const QImage& picture, Rows rows, const PixelOperation& operation, const Progress& progress)
{
    const cv::Mat from = PixelsOf(picture);
    QImage result = NewPicture(picture.size(), picture.format());
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] { Bands(from, to, rows, operation).Run(progress); });
    return result;
}

QImage OnPalette(const QImage& picture, const PixelOperation& operation)
{
    QImage result = Indexed(picture);
    QList<QRgb> colours = result.colorTable();
    const QImage row(
        reinterpret_cast<const uchar*>(colours.constData()), int(colours.size()), 1, QImage::Format_ARGB32);
    const QImage changed = OnTrueColour(row, {}, operation, {});
    std::copy_n(reinterpret_cast<const QRgb*>(changed.constScanLine(0)), colours.size(), colours.begin());
    result.setColorTable(colours);
    return result;
}

} // namespace

QImage OnColours(const QImage& picture, const PixelOperation& operation, const Progress& progress)
{
    if (HasPalette(picture))
        return OnPalette(picture, operation);
    return AtDepthOf(picture, OnTrueColour(TrueColour(picture), {}, operation, progress));
}

QImage OnPixels(const QImage& picture, Rows rows, const PixelOperation& operation, const Progress& progress)
{
    return AtDepthOf(picture, OnTrueColour(TrueColour(picture), rows, operation, progress));
}

} // namespace imaging
