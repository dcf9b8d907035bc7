#pragma once

#include <QRect>
#include <QRegion>

class QImage;
class QColor;

/// The side of a push button's caption on which its picture stands.
namespace PicturePosition {
enum Value { Left = 0, Above = 1, Right = 2, Below = 3 };
}

/// Where the parts of a push button stand, in pixels of the button.
namespace ButtonLayout {

struct Places {
    QRect picture;
    QRect caption;
};

/// Picture and caption together stand in the middle of the button, each in the middle of the other direction;
/// an empty size takes no room. A position that is none of PicturePosition counts as Above.
Places PlacesOf(QSize button, QSize picture, QSize caption, int picturePosition);
/// The room that picture and caption take together.
QSize Together(QSize picture, QSize caption, int picturePosition);
/// Where the mark of the focus runs.
QRect FocusRect(QSize button);
/// The size that a button grows to: no side stays under 10 pixels.
QSize Grown(QSize button);
/// The pixels of a picture that are seen and are not of the mask's colour.
QRegion Shape(const QImage& picture, const QColor& mask);

} // namespace ButtonLayout
