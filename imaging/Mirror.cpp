#include "imaging/Mirror.h"

#include "imaging/Matrix.h"
#include "imaging/TrueColour.h"

namespace imaging {
namespace {

QImage Mirrored(const QImage& picture, int axis)
{
    const QImage whole = WholeBytes(picture);
    QImage result = LikePicture(whole, whole.size());
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] { cv::flip(PixelsOf(whole), to, axis); });
    return result;
}

} // namespace

QImage Flipped(const QImage& picture)
{
    constexpr int topToBottom = 0;
    return Mirrored(picture, topToBottom);
}

QImage Reversed(const QImage& picture)
{
    constexpr int leftToRight = 1;
    return Mirrored(picture, leftToRight);
}

} // namespace imaging
