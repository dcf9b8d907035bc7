#pragma once

#include <QList>
#include <QRgb>
#include <array>
#include <vector>

namespace imaging {

/// Which colour of a palette is nearest to another: the least sum of the squares of the three differences,
/// and of several that are equally near the first. Exact, and quick, because each part of the colour space
/// keeps the few that may be nearest to anything in it. May be asked by several threads at once.
class NearestColour {
public:
    /// 1 to 256 colours; alpha does not count.
    explicit NearestColour(const QList<QRgb>& palette);

    /// Channels from 0 to 255.
    int operator()(int blue, int green, int red) const
    {
        const size_t cell = CellOf(blue, green, red);
        int nearest = 0, least = Far;
        for (size_t i = begins_[cell]; i < begins_[cell + 1]; ++i) {
            const Candidate& colour = candidates_[i];
            const int b = colour.blue - blue, g = colour.green - green, r = colour.red - red;
            const int distance = b * b + g * g + r * r;
            if (distance < least) {
                least = distance;
                nearest = colour.index;
            }
        }
        return nearest;
    }

private:
    static constexpr int Far = 4 * 255 * 255;
    static constexpr int SideBits = 4;
    static constexpr int Side = 1 << SideBits; ///< cells along an axis
    static constexpr int CellBits = 8 - SideBits;

    struct Candidate {
        short blue, green, red, index;
    };

    static size_t CellOf(int blue, int green, int red)
    {
        return size_t((blue >> CellBits) << 2 * SideBits | (green >> CellBits) << SideBits | red >> CellBits);
    }
    class Distances;

    std::vector<Candidate> candidates_; ///< those of all cells, one cell behind the other
    std::array<size_t, Side * Side * Side + 1> begins_ {};
};

} // namespace imaging
