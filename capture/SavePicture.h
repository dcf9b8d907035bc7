#pragma once

#include <QImage>
#include <QString>

/// Longest wait for a still, in milliseconds, wherever one is asked for.
inline constexpr int StillTimeout = 5000;

/// Writes a picture as a 24-bit Windows bitmap, whatever the extension of the path, and replaces what stood
/// there. Throws ControlError.
void SavePicture(const QImage& picture, const QString& path);
/// The same under an automatic name, which must be free: false when it is taken, and then nothing is written.
bool SaveNewPicture(const QImage& picture, const QString& path);
