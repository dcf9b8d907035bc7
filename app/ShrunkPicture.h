#pragma once

#include <QImage>

/// The picture last shown smaller than it is. Making it takes longer than all else in painting, and a window
/// is painted often: for a change of the focus, for what moves away before it.
class ShrunkPicture {
public:
    /// A part of a picture at a smaller size, each pixel the mean of those that fall together.
    const QImage& Of(const QImage& picture, const QRect& part, QSize size);

private:
    qint64 key_ = 0;
    QRect part_;
    QImage shrunk_;
};
