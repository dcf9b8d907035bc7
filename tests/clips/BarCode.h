#pragma once
#include <QImage>
#include <optional>

/// The frame number and the clip tag that a test clip's picture carries in its own pixels: 16 columns over
/// two strips, each a fifteenth of the height, at the top. The first strip is white where a bit is 1, the
/// second is its complement.
struct BarCode {
    int Number = 0; ///< 0 to 4095, counted in display order
    int Tag = 0; ///< 0 to 15, different for neighbouring clips: tells a picture left over from another source

    friend bool operator==(const BarCode&, const BarCode&) = default;
};

/// What the picture shows, at any size down to 48x30; nothing when a cell is not clearly black or white.
std::optional<BarCode> ReadBarCode(const QImage& picture);

/// The number alone; -1 for a picture without a readable code.
int NumberIn(const QImage& picture);

/// A grey picture with the code drawn in, for tests that need a picture but no clip.
QImage PictureWith(const BarCode& code, QSize size = QSize(320, 240));

void PrintTo(const BarCode& code, std::ostream* out);
