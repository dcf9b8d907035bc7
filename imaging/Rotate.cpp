#include "imaging/Rotate.h"

#include "imaging/Matrix.h"
#include "imaging/NearestColour.h"
#include "imaging/PictureFile.h"
#include "imaging/PictureLimits.h"
#include "imaging/TrueColour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>
#include <optional>

namespace imaging {
namespace {

constexpr int Quarter = 9000;
constexpr int Turn = 4 * Quarter;

/// The turn that cv::rotate makes for an angle, if it is one of quarters.
std::optional<cv::RotateFlags> QuarterTurn(int angle)
{
    switch (angle) {
    case Quarter:
        return cv::ROTATE_90_CLOCKWISE;
    case 2 * Quarter:
        return cv::ROTATE_180;
    case 3 * Quarter:
        return cv::ROTATE_90_COUNTERCLOCKWISE;
    default:
        return {};
    }
}

struct Angle {
    explicit Angle(int hundredths)
        : cosine(std::cos(hundredths * CV_PI / 18000))
        , sine(std::sin(hundredths * CV_PI / 18000))
    {
    }
    double cosine;
    double sine;

    /// The smallest frame that holds a turned picture.
    QSize Frame(QSize size) const
    {
        constexpr double slack = 1e-6; // of the sines
        const double width = std::abs(size.width() * cosine) + std::abs(size.height() * sine);
        const double height = std::abs(size.width() * sine) + std::abs(size.height() * cosine);
        return { int(std::ceil(width - slack)), int(std::ceil(height - slack)) };
    }

    /// Takes the middle of one frame to that of another; pixels stand at whole numbers.
    cv::Matx23d Between(QSize from, QSize to) const
    {
        const double x = (from.width() - 1) / 2.0, y = (from.height() - 1) / 2.0;
        return { cosine, -sine, (to.width() - 1) / 2.0 - cosine * x + sine * y, //
            sine, cosine, (to.height() - 1) / 2.0 - sine * x - cosine * y };
    }
};

/// A picture as Format_Indexed8, and the number of its fill.
struct Filled {
    QImage picture;
    int index;
};

/// The fill stands in the palette if it can: behind its end, or in place of a colour that no pixel has.
Filled WithFill(QImage picture, const QColor& fill)
{
    QList<QRgb> colours = picture.colorTable();
    const auto isUsed = UsedColours(picture);
    const auto unused = std::ranges::find(isUsed, false) - isUsed.begin();
    if (!colours.contains(fill.rgb()) && unused < 1 << BitsPerPixel(picture)) {
        colours.resize(std::max<qsizetype>(colours.size(), unused + 1));
        colours[unused] = fill.rgb();
        picture.setColorTable(colours);
    }
    return { picture, NearestColour(colours)(fill.blue(), fill.green(), fill.red()) };
}

QImage OntoFrame(const QImage& picture, const cv::Matx23d& way, QSize frame, cv::Scalar fill, int curve)
{
    QImage result = LikePicture(picture, frame);
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices(
        [&] { cv::warpAffine(PixelsOf(picture), to, way, to.size(), curve, cv::BORDER_CONSTANT, fill); });
    return result;
}

/// Where the pixels of a quarter turn come from: the one that becomes the first of the result, and how many
/// bytes there are from it to those that come to its right and below it.
struct Walk {
    const uchar* first;
    ptrdiff_t right;
    ptrdiff_t down;
};

Walk WalkOf(const cv::Mat& from, cv::RotateFlags turn)
{
    const auto line = ptrdiff_t(from.step), pixel = ptrdiff_t(from.elemSize());
    if (turn == cv::ROTATE_90_CLOCKWISE)
        return { from.ptr(from.rows - 1), -line, pixel };
    return { from.ptr(0, from.cols - 1), line, -pixel };
}

/// The walk is a copy: what is written could change it otherwise, for all that the compiler knows.
template <typename Pixel> void WriteTile(Walk walk, cv::Mat& to, const cv::Rect& tile)
{
    const cv::Point end = tile.br();
    for (int y = tile.y; y < end.y; ++y) {
        const uchar* at = walk.first + tile.x * walk.right + y * walk.down;
        auto* const row = reinterpret_cast<Pixel*>(to.ptr(y));
        for (int x = tile.x; x < end.x; ++x, at += walk.right)
            row[x] = *reinterpret_cast<const Pixel*>(at);
    }
}

/// Every row of the result is written once and in its order, in tiles, for the pixels of a column stand far
/// apart in memory: a tile is as high as some cache lines of the picture are long, and so narrow that all
/// these lines stay near the processor.
template <size_t bytes> void TurnPixels(const Walk& walk, cv::Mat& to)
{
    constexpr int high = 128, wide = 16;
    const cv::Rect whole({}, to.size());
    cv::parallel_for_(cv::Range(0, (to.rows + high - 1) / high), [&](const cv::Range& part) {
        for (int band = part.start; band < part.end; ++band)
            for (int x = 0; x < to.cols; x += wide)
                WriteTile<std::array<uchar, bytes>>(walk, to, cv::Rect(x, band * high, wide, high) & whole);
    });
}

void TurnByQuarters(const cv::Mat& from, cv::Mat& to, cv::RotateFlags turn)
{
    if (turn == cv::ROTATE_180)
        return cv::rotate(from, to, turn);
    const Walk walk = WalkOf(from, turn);
    switch (from.elemSize()) {
    case 1:
        return TurnPixels<1>(walk, to);
    case 2:
        return TurnPixels<2>(walk, to);
    case 3:
        return TurnPixels<3>(walk, to);
    case 4:
        return TurnPixels<4>(walk, to);
    default: // deeper than any capture
        cv::rotate(from, to, turn);
    }
}

QImage QuarterTurned(const QImage& picture, cv::RotateFlags turn)
{
    const QImage whole = WholeBytes(picture);
    QImage result = LikePicture(whole, turn == cv::ROTATE_180 ? whole.size() : whole.size().transposed());
    cv::Mat to = OwnPixelsOf(result);
    WithMatrices([&] { TurnByQuarters(PixelsOf(whole), to, turn); });
    return result;
}

} // namespace

QImage Rotated(const QImage& picture, int hundredths, RotatedSize size, const QColor& fill)
{
    const int angle = (hundredths % Turn + Turn) % Turn;
    if (angle == 0)
        return picture;
    const std::optional<cv::RotateFlags> quarter = QuarterTurn(angle);
    const bool keepsFrame = size == RotatedSize::Kept;
    if (quarter && (!keepsFrame || angle == 2 * Quarter))
        return QuarterTurned(picture, *quarter);
    const QSize frame = keepsFrame ? picture.size() : Angle(angle).Frame(picture.size());
    CheckPictureSize(frame.width(), frame.height());
    const cv::Matx23d way = Angle(angle).Between(picture.size(), frame);
    if (HasPalette(picture)) {
        const Filled filled = WithFill(Indexed(picture), fill);
        return OntoFrame(filled.picture, way, frame, filled.index, cv::INTER_NEAREST);
    }
    const cv::Scalar opaque(fill.blue(), fill.green(), fill.red(), 255);
    const int curve = quarter ? cv::INTER_NEAREST : cv::INTER_CUBIC;
    return AtDepthOf(picture, Unmixed(OntoFrame(Mixable(picture), way, frame, opaque, curve)));
}

} // namespace imaging
