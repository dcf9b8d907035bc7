#pragma once

#include <QImage>
#include <chrono>
#include <functional>
#include <vector>

namespace imaging {

/// One page of a picture that moves: all of the picture as it is to be seen, and how long.
struct Page {
    QImage picture; ///< QImage::Format_ARGB32
    std::chrono::milliseconds time;
};

/// The pages of a file, from the first on: all, or as many as were decoded.
struct Pages {
    std::vector<Page> decoded;
    int inFile = 1; ///< never fewer than decoded
};

/// Whether a picture is the first page of a file that moves. What reads pictures from files marks them so;
/// what is made of such a picture is marked no more.
bool IsAnimated(const QImage& picture);
void SetAnimated(QImage& picture, bool animated);

/// How many pages a GIF file has, counted without decoding any; 1 for every other picture.
int PagesOf(const QByteArray& file);

/// The pages of a file, as many as a bounded memory takes, decoded where DecodeConfined does it. Throws
/// PictureError.
Pages DecodePagesConfined(const QByteArray& file, const std::function<void()>& whileWaiting);

} // namespace imaging
