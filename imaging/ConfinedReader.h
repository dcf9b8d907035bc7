#pragma once

#include <QByteArray>
#include <QImage>
#include <functional>

namespace imaging {

/// Like PictureFile::Decode, for a file that comes from anywhere: its kind and size are looked at here, its
/// content only by a program of its own ("taq-reader" beside this one, or in the libexec of its installation)
/// that can reach neither files nor network and has bounded memory and time. Throws PictureError, also when
/// that program dies, is missing or takes more than 30 seconds. whileWaiting is called about twenty times a
/// second meanwhile.
QImage DecodeConfined(const QByteArray& file, const std::function<void()>& whileWaiting = {});

} // namespace imaging
