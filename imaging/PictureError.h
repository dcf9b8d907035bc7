#pragma once

#include <QString>
#include <stdexcept>

namespace imaging {

/// A picture cannot be read, written or changed as asked; what() says why in the program's words.
class PictureError : public std::runtime_error {
public:
    explicit PictureError(const QString& reason)
        : std::runtime_error(reason.toStdString())
    {
    }
    QString Reason() const { return QString::fromStdString(what()); }
};

} // namespace imaging
