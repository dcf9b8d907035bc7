#include "imaging/TextShape.h"

#include "imaging/Converted.h"
#include "imaging/Matrix.h"

#include <QColor>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

#include <opencv2/imgproc.hpp>

namespace imaging::TextShape {
namespace {

/// The shape's own pixels; a const shape may not be written through it.
cv::Mat MatrixOf(const QImage& shape)
{
    return { shape.height(), shape.width(), CV_8UC1, const_cast<uchar*>(shape.constBits()),
        size_t(shape.bytesPerLine()) };
}

QImage Empty(QSize size, QImage::Format format)
{
    QImage image(size, format);
    if (image.isNull())
        throw std::bad_alloc();
    image.fill(Qt::transparent);
    return image;
}

/// Adds the shape, moved, to what is covered already.
void Cover(cv::Mat& covered, const cv::Mat& shape, int right, int down)
{
    const cv::Rect whole(0, 0, shape.cols, shape.rows);
    const cv::Rect to = whole & cv::Rect(right, down, shape.cols, shape.rows);
    if (to.empty())
        return;
    cv::Mat part = covered(to);
    cv::max(part, shape(to - cv::Point(right, down)), part);
}

} // namespace

QImage Of(const QImage& letters)
{
    return Converted(letters, QImage::Format_Alpha8);
}

QImage Swept(const QImage& shape, QPoint way)
{
    QImage swept = Empty(shape.size(), shape.format());
    cv::Mat covered = MatrixOf(swept);
    const cv::Mat still = MatrixOf(shape);
    const int steps = std::max({ std::abs(way.x()), std::abs(way.y()), 1 });
    for (int step = 0; step <= steps; ++step)
        Cover(covered, still, qRound(double(way.x()) * step / steps), qRound(double(way.y()) * step / steps));
    return swept;
}

QImage Widened(const QImage& shape, int reach)
{
    QImage widened = Empty(shape.size(), shape.format());
    cv::Mat covered = MatrixOf(widened);
    const int side = 2 * reach + 1;
    WithMatrices([&] {
        cv::dilate(MatrixOf(shape), covered, cv::getStructuringElement(cv::MORPH_ELLIPSE, { side, side }),
            { -1, -1 }, 1, cv::BORDER_CONSTANT, cv::Scalar(0));
    });
    return widened;
}

QImage Coloured(const QImage& shape, const QColor& color)
{
    QImage coloured = Empty(shape.size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&coloured);
    painter.fillRect(coloured.rect(), color);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, shape);
    return coloured;
}

} // namespace imaging::TextShape
