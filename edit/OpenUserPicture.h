#pragma once

#include <QImage>

/// The first picture of a file that the user chose, at its own depth. Throws ControlError.
QImage OpenUserPicture(const QString& path);
