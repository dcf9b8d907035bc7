#pragma once

#include <QImage>
#include <new>

namespace imaging {

/// The picture in another format. Throws std::bad_alloc where QImage would give a null picture.
inline QImage Converted(const QImage& picture, QImage::Format format)
{
    QImage converted = picture.convertToFormat(format);
    if (converted.isNull() && !picture.isNull())
        throw std::bad_alloc();
    return converted;
}

} // namespace imaging
