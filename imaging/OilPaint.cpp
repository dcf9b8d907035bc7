#include "imaging/Filters.h"

#include "imaging/Operation.h"

#include <algorithm>
#include <array>
#include <vector>

namespace imaging {
namespace {

constexpr int ToneBits = 4;
constexpr size_t Tones = 1 << ToneBits;

/// How many pixels, and the sums of their colours, in one number, so that all are added at once and the
/// larger number is that of more pixels: blue, green and red take 18 bits each, the count what is above. 20 x
/// 20 pixels do not overflow.
using Tally = uint64_t;
constexpr int ChannelBits = 18;
constexpr Tally ChannelMask = (Tally(1) << ChannelBits) - 1;

Tally TallyOf(const uchar* pixel)
{
    return Tally(1) << 3 * ChannelBits | Tally(pixel[2]) << 2 * ChannelBits | Tally(pixel[1]) << ChannelBits
        | pixel[0];
}

void PutMean(Tally tally, uchar* pixel)
{
    const auto count = uint32_t(tally >> 3 * ChannelBits);
    for (int channel = 0; channel < 3; ++channel)
        pixel[channel] = uchar((uint32_t(tally >> channel * ChannelBits & ChannelMask) + count / 2) / count);
}

/// A tally for each tone.
struct Tallies : std::array<Tally, Tones> {
    Tallies() { fill(0); }

    Tally& Of(const uchar* pixel)
    {
        const int lightness = 29 * pixel[0] + 150 * pixel[1] + 77 * pixel[2]; // 256ths
        return (*this)[size_t(lightness) >> (16 - ToneBits)];
    }
    void operator+=(const Tallies& other)
    {
        for (size_t tone = 0; tone < Tones; ++tone)
            (*this)[tone] += other[tone];
    }
    void operator-=(const Tallies& other)
    {
        for (size_t tone = 0; tone < Tones; ++tone)
            (*this)[tone] -= other[tone];
    }
    Tally Largest() const { return *std::max_element(begin(), end()); }
};

/// The tallies of a square that wanders over a picture: those of its columns go down row by row, and their
/// sum to the right column by column, so that the size of the square costs nothing.
class Brush {
public:
    Brush(const cv::Mat& from, int size)
        : from_(from)
        , before_(size / 2)
        , behind_(size - size / 2)
        , columns_(size_t(from.cols))
    {
        for (int y = 0; y < std::min(behind_ - 1, from.rows); ++y)
            Add(y);
    }

    void Paint(int y, cv::Mat& to)
    {
        if (y + behind_ - 1 < from_.rows)
            Add(y + behind_ - 1);
        if (y - before_ - 1 >= 0)
            Remove(y - before_ - 1);
        Tallies square;
        for (int x = 0; x < std::min(behind_ - 1, from_.cols); ++x)
            square += columns_[size_t(x)];
        const int channels = from_.channels();
        uchar* pixel = to.ptr(y);
        for (int x = 0; x < from_.cols; ++x, pixel += channels) {
            if (x + behind_ - 1 < from_.cols)
                square += columns_[size_t(x + behind_ - 1)];
            if (x - before_ - 1 >= 0)
                square -= columns_[size_t(x - before_ - 1)];
            PutMean(square.Largest(), pixel);
        }
    }

private:
    void Add(int y)
    {
        const uchar* pixel = from_.ptr(y);
        for (Tallies& column : columns_) {
            column.Of(pixel) += TallyOf(pixel);
            pixel += from_.channels();
        }
    }
    void Remove(int y)
    {
        const uchar* pixel = from_.ptr(y);
        for (Tallies& column : columns_) {
            column.Of(pixel) -= TallyOf(pixel);
            pixel += from_.channels();
        }
    }

    const cv::Mat& from_;
    int before_;
    int behind_;
    std::vector<Tallies> columns_;
};

} // namespace

QImage OilPainted(const QImage& picture, int size, const Progress& progress)
{
    const int side = std::clamp(size, 2, 20);
    const auto paint = [&](const cv::Mat& from, cv::Mat& to) {
        to.create(from.size(), from.type());
        Brush brush(from, side);
        for (int y = 0; y < from.rows; ++y)
            brush.Paint(y, to);
    };
    return OnPixels(picture, { .reach = side / 2 }, paint, progress);
}

} // namespace imaging
