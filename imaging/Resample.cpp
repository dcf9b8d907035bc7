#include "imaging/Resample.h"

#include "imaging/PictureLimits.h"

#include <opencv2/imgproc.hpp>

namespace imaging {
namespace {

bool IsPlain(QImage::Format format)
{
    return format == QImage::Format_BGR888 || format == QImage::Format_ARGB32
        || format == QImage::Format_ARGB32_Premultiplied || format == QImage::Format_RGB32;
}

/// The picture's own pixels as a matrix; source may not be written through it.
cv::Mat MatrixOf(const QImage& picture)
{
    return { picture.height(), picture.width(), CV_8UC(picture.depth() / 8),
        const_cast<uchar*>(picture.constBits()), size_t(picture.bytesPerLine()) };
}

QImage Smoothed(const QImage& picture, QSize size)
{
    const bool shrinks = size.width() <= picture.width() && size.height() <= picture.height();
    QImage result(size, picture.format());
    cv::Mat to(size.height(), size.width(), CV_8UC(result.depth() / 8), result.bits(),
        size_t(result.bytesPerLine()));
    cv::resize(MatrixOf(picture), to, to.size(), 0, 0, shrinks ? cv::INTER_AREA : cv::INTER_CUBIC);
    return result;
}

/// Colours are mixed by how much of them shows, or what is transparent would bleed into what is not.
QImage SmoothFormat(const QImage& picture)
{
    if (picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return IsPlain(picture.format()) ? picture : picture.convertToFormat(QImage::Format_BGR888);
}

} // namespace

QImage Resample(const QImage& picture, QSize size, Resampling kind)
{
    CheckPictureSize(size.width(), size.height());
    if (size == picture.size())
        return picture;
    if (kind == Resampling::Nearest)
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    const QImage result = Smoothed(SmoothFormat(picture), size);
    return picture.hasAlphaChannel() ? result.convertToFormat(QImage::Format_ARGB32) : result;
}

} // namespace imaging
