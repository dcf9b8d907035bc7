#pragma once

#include "imaging/Progress.h"

#include <QImage>

/// Each channel of each pixel along one curve from 0 to 255. Depth, byte order and alpha are kept; with a
/// palette, only its colours change. Values outside a range count as its nearest bound. A curve that changes
/// nothing gives the picture itself.
namespace imaging {

/// The negative; twice gives the picture back.
QImage Inverted(const QImage& picture, const Progress& progress = {});
/// -1000 to 1000, 0 neutral: adds that part of the whole range; -1000 is black, 1000 white.
QImage WithBrightness(const QImage& picture, int amount, const Progress& progress = {});
/// -1000 to 1000, 0 neutral: turns the curve about the middle grey, from flat (-1000: middle grey everywhere)
/// to upright (1000: nothing but the ends).
QImage WithContrast(const QImage& picture, int amount, const Progress& progress = {});
/// In hundredths, 1 to 500, 100 neutral: the channel to the power of 100/gamma; below 100 is darker. Ends
/// stay.
QImage WithGamma(const QImage& picture, int gamma, const Progress& progress = {});
/// 2 to 64 levels, evenly from 0 to 255; each value goes to the nearest.
QImage Posterized(const QImage& picture, int levels, const Progress& progress = {});
/// Values above the threshold, 0 to 255, are inverted; 255 is neutral.
QImage Solarized(const QImage& picture, int threshold, const Progress& progress = {});
/// Stretches the tones evenly, so that the darkest value of any channel in any pixel is 0 and the lightest
/// 255; a picture of a single value stays.
QImage WithStretchedIntensity(const QImage& picture, const Progress& progress = {});

} // namespace imaging
