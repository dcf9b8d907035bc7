#pragma once

#include <QColor>
#include <QImage>

/// One of the two strips that make a form's shadow. All of it is arithmetic; nothing is on a screen.
struct ShadowStrip {
    enum Side { Right, Bottom };

    Side side = Right;
    QSize size; ///< pixels; a right strip is as wide, a bottom strip as high as the shadow is deep
    bool isSoft = true; ///< graded, else a block

    /// The alpha of a pixel, 0 to 255. Rows count from the bottom, columns from the left.
    int AlphaAt(int column, int row) const;
    /// The strip in a colour, premultiplied. Null when it has no area.
    QImage Picture(QRgb color) const;

    /// Where a strip stands beside a form.
    static QRect Place(Side side, const QRect& form, int depth);
    /// A colour under an alpha, every part rounded to the nearest number, a half to the even one.
    static QRgb Premultiplied(QRgb color, int alpha);
    /// Clears the upper right corner of a strip where the visual style rounds the form's corners.
    static void RoundCorner(QImage& strip);
};
