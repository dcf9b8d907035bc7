#pragma once

#include "app/Lead.h"

/// Pictures for tests of editing, and what an operation makes of them.
namespace EditSamples {

/// Every pixel differs from its neighbours; the tones go from dark to light without reaching either end.
inline QImage Ramp(QSize size = { 60, 40 })
{
    QImage picture(size, QImage::Format_BGR888);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, QColor(20 + (x * 19) % 200, 20 + (y * 29) % 200, 20 + (x * y) % 200));
    return picture;
}

inline QImage Filled(const QColor& color, QSize size = { 16, 16 })
{
    QImage picture(size, QImage::Format_BGR888);
    picture.fill(color);
    return picture;
}

template <typename Operation> QImage Done(const QImage& picture, Operation&& operation)
{
    Lead lead;
    lead.SetBitmap(picture);
    operation(lead);
    return lead.Bitmap();
}

} // namespace EditSamples
