#pragma once

#include <QByteArray>
#include <QImage>

#include <chrono>
#include <functional>

namespace imaging {

/// For the reading program.
inline constexpr std::chrono::milliseconds LongestWait { 30'000 };

/// Like PictureFile::Decode, for a file that comes from anywhere: its kind and size are looked at here, its
/// content only by a program of its own ("taq-reader" beside this one, or in the libexec of its installation)
/// that can reach neither files nor network and has bounded memory and time. Throws PictureError, also when
/// that program dies, is missing, cannot confine itself or takes longer than longestWait. whileWaiting is
/// called about twenty times a second meanwhile.
QImage DecodeConfined(const QByteArray& file, const std::function<void()>& whileWaiting,
    std::chrono::milliseconds longestWait = LongestWait);

} // namespace imaging
