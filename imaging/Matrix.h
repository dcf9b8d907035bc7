#pragma once

#include <QImage>
#include <new>
#include <opencv2/core.hpp>

namespace imaging {

/// The pixels of a picture of whole bytes, only to be read.
inline cv::Mat PixelsOf(const QImage& picture)
{
    return { picture.height(), picture.width(), CV_8UC(picture.depth() / 8),
        const_cast<uchar*>(picture.constBits()), size_t(picture.bytesPerLine()) };
}

/// The pixels of a picture of whole bytes, to be written; they are its own from here on.
inline cv::Mat OwnPixelsOf(QImage& picture)
{
    picture.detach();
    return PixelsOf(picture);
}

/// A picture whose pixels are still to be written. Throws std::bad_alloc where QImage would give a null
/// picture.
inline QImage NewPicture(QSize size, QImage::Format format)
{
    QImage picture(size, format);
    if (picture.isNull())
        throw std::bad_alloc();
    return picture;
}

/// Carries out a step with matrices; when their memory does not suffice, that is std::bad_alloc as
/// everywhere.
template <typename Step> auto WithMatrices(Step&& step)
{
    try {
        return step();
    } catch (const cv::Exception& error) {
        if (error.code == cv::Error::StsNoMem)
            throw std::bad_alloc();
        throw;
    }
}

} // namespace imaging
