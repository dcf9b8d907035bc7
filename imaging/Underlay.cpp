#include "imaging/Underlay.h"

#include "imaging/Converted.h"
#include "imaging/Matrix.h"
#include "imaging/PictureError.h"
#include "imaging/Resample.h"
#include "imaging/TrueColour.h"

namespace imaging {
namespace {

QImage OnWhite(const QImage& picture)
{
    if (!picture.hasAlphaChannel())
        return Converted(picture, QImage::Format_BGR888);
    const QImage mixable = Mixable(picture);
    QImage result = NewPicture(picture.size(), QImage::Format_BGR888);
    for (int y = 0; y < result.height(); ++y) {
        const uchar* from = mixable.constScanLine(y);
        for (uchar *to = result.scanLine(y), *end = to + qsizetype(3) * result.width(); to != end; from += 4)
            for (int channel = 0; channel < 3; ++channel)
                *to++ = uchar(from[channel] + 255 - from[3]);
    }
    return result;
}

cv::Mat Tiles(const QImage& tile, QSize size)
{
    const QSize shown = tile.size().boundedTo(size);
    const cv::Mat part = PixelsOf(tile)(cv::Rect(0, 0, shown.width(), shown.height()));
    const auto times = [](int length, int one) { return (length + one - 1) / one; };
    const cv::Mat tiles = cv::repeat(part, times(size.height(), part.rows), times(size.width(), part.cols));
    return tiles(cv::Rect(0, 0, size.width(), size.height()));
}

} // namespace

QImage Underlaid(const QImage& picture, const QImage& below, UnderlayFit fit)
{
    if (below.isNull())
        throw PictureError(QStringLiteral("There is no picture to lay below."));
    const QImage above = OnWhite(picture);
    QImage paper = OnWhite(below);
    if (fit == UnderlayFit::Stretched)
        paper = Resample(paper, picture.size(), Resampling::Smooth);
    QImage result = NewPicture(picture.size(), QImage::Format_BGR888);
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] { cv::multiply(PixelsOf(above), Tiles(paper, picture.size()), to, 1.0 / 255); });
    return AtDepthOf(picture, result);
}

} // namespace imaging
