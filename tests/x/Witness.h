#pragma once

#include <QImage>
#include <QString>

/// A reader of videos and pictures that is not the program's: the ffmpeg command line.
namespace Witness {

/// Frame number of a video, as a front-to-back decode delivers it, as 24-bit colours.
QImage FrameOf(const QString& video, int number);
/// A picture file as 24-bit colours; null when it cannot be read. kind takes the name of its coding.
QImage PictureOf(const QString& file, QString* kind);
/// Peak signal to noise ratio in decibels; infinite for equal pictures, -1 for different sizes.
double Likeness(const QImage& one, const QImage& other);

} // namespace Witness
