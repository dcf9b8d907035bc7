#pragma once

#include "imaging/Animation.h"

#include <QImage>

#include <functional>

/// The first picture of a file that the user chose, wherever it comes from: at the file's own depth, decoded
/// apart from the program (imaging::DecodeConfined). Throws ControlError. whileWaiting is called about
/// twenty times a second meanwhile. A picture whose file has more pages is marked (imaging::IsAnimated).
QImage OpenUserPicture(const QString& path, const std::function<void()>& whileWaiting);

/// All its pages, as imaging::DecodePagesConfined gives them; the rest as above.
imaging::Pages OpenUserPages(const QString& path, const std::function<void()>& whileWaiting);
