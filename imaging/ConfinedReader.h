#pragma once

#include <QByteArray>
#include <QImage>

#include <chrono>
#include <functional>

namespace imaging {

/// Like PictureFile::Decode, for a file that comes from anywhere: its kind and size are looked at here, its
/// content only by a program of its own ("taq-reader" beside this one) that can reach neither files nor
/// network and has bounded memory and time. Throws PictureError, also when that program dies, is missing,
/// cannot confine itself or takes longer than longestWait. whileWaiting is called about twenty times a second
/// meanwhile.
QImage DecodeConfined(const QByteArray& file, const std::function<void()>& whileWaiting,
    std::chrono::milliseconds longestWait = std::chrono::seconds(30));

} // namespace imaging
