#pragma once

#include <QColor>
#include <QDateTime>
#include <QImage>
#include <QSize>

#include <functional>

enum class Placement { Tiled, LowerRight };

/// The frame's background for a client area of clientSize pixels: the source tiled from the upper left, or
/// once in the lower right corner of the ground. The result is 5 pixels (75 twips) larger than the area in
/// both directions.
QImage ComposeBackground(const QImage& source, QSize clientSize, Placement placement, QColor ground);

/// The picture file behind the frame's windows, decoded anew only when the file changes.
class BackgroundPicture {
public:
    /// Null when the file cannot be read. whileWaiting is called meanwhile; what asks for the same file then
    /// gets null.
    QImage Of(const QString& path, const std::function<void()>& whileWaiting);

private:
    QString path_;
    QDateTime written_;
    QImage picture_;
};
