#include "imaging/Resample.h"

#include "imaging/Matrix.h"
#include "imaging/PictureLimits.h"
#include "imaging/TrueColour.h"

#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

QImage Resized(const QImage& picture, QSize size, cv::InterpolationFlags way)
{
    QImage result = LikePicture(picture, size);
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] { cv::resize(PixelsOf(picture), to, to.size(), 0, 0, way); });
    return result;
}

} // namespace

QImage Resample(const QImage& picture, QSize size, Resampling kind)
{
    CheckPictureSize(size.width(), size.height());
    if (size == picture.size())
        return picture;
    if (kind == Resampling::Nearest)
        return Resized(WholeBytes(picture), size, cv::INTER_NEAREST_EXACT);
    const bool shrinks = size.width() <= picture.width() && size.height() <= picture.height();
    return Unmixed(Resized(Mixable(picture), size, shrinks ? cv::INTER_AREA : cv::INTER_CUBIC));
}

} // namespace imaging
