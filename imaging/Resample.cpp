#include "imaging/Resample.h"

#include "imaging/Matrix.h"
#include "imaging/PictureLimits.h"
#include "imaging/TrueColour.h"

#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

QImage Smoothed(const QImage& picture, QSize size)
{
    const bool shrinks = size.width() <= picture.width() && size.height() <= picture.height();
    QImage result = NewPicture(size, picture.format());
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] {
        cv::resize(PixelsOf(picture), to, to.size(), 0, 0, shrinks ? cv::INTER_AREA : cv::INTER_CUBIC);
    });
    return result;
}

} // namespace

QImage Resample(const QImage& picture, QSize size, Resampling kind)
{
    CheckPictureSize(size.width(), size.height());
    if (size == picture.size())
        return picture;
    if (kind == Resampling::Nearest)
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    return Unmixed(Smoothed(Mixable(picture), size));
}

} // namespace imaging
