#pragma once

#include <QImage>

#include <functional>

/// The first picture of a file that the user chose, wherever it comes from: at the file's own depth, decoded
/// apart from the program (imaging::DecodeConfined). Throws ControlError. whileWaiting is called about
/// twenty times a second meanwhile.
QImage OpenUserPicture(const QString& path, const std::function<void()>& whileWaiting);
