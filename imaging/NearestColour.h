#pragma once

#include <QList>
#include <QRgb>
#include <vector>

namespace imaging {

/// Which colour of a palette is nearest to another: the least sum of the squares of the three differences,
/// and of several that are equally near the first. Exact, and quick, because the colour space is divided
/// until each part knows the few that may be nearest to anything in it. May be asked by several threads at
/// once.
class NearestColour {
public:
    /// 1 to 256 colours; alpha does not count.
    explicit NearestColour(const QList<QRgb>& palette);

    /// Channels from 0 to 255.
    int operator()(int blue, int green, int red) const
    {
        const Part* part = parts_.data();
        for (int bit = 7; part->parts > 0; --bit)
            part = &parts_[part->parts
                + size_t((blue >> bit & 1) << 2 | (green >> bit & 1) << 1 | (red >> bit & 1))];
        int nearest = 0, least = Far;
        for (size_t i = part->begin; i < part->end && candidates_[i].bound <= least; ++i) {
            const Candidate& colour = candidates_[i];
            const int b = colour.blue - blue, g = colour.green - green, r = colour.red - red;
            const int distance = b * b + g * g + r * r;
            if (distance < least || (distance == least && colour.index < nearest)) {
                least = distance;
                nearest = colour.index;
            }
        }
        return nearest;
    }

private:
    static constexpr int Far = 4 * 255 * 255;

    struct Candidate {
        short blue, green, red, index;
        int bound = 0; ///< it is nowhere in its part nearer than this; a part has them in this order
    };
    using Candidates = std::vector<Candidate>;
    /// A cube of the colour space, divided into eight or not.
    struct Part {
        size_t parts = 0; ///< where the first of the eight stands; 0 when it is whole
        size_t begin = 0, end = 0; ///< the candidates of a whole one
    };
    struct Cube {
        int blue, green, red, side;

        Cube Eighth(int number) const;
        int LeastDistance(const Candidate& colour) const;
        int MostDistance(const Candidate& colour) const;
        Candidates Nearest(const Candidates& pool) const;
    };

    void Divide(size_t part, Cube cube, const Candidates& pool);

    std::vector<Part> parts_;
    Candidates candidates_;
};

/// The same for many colours one after the other: remembers what it was asked last. For one thread.
class RememberedColours {
public:
    explicit RememberedColours(const NearestColour& nearest)
        : nearest_(nearest)
        , known_(size_t(1) << SlotBits, quint32(nearest(0, 0, 0))) // which is right for black
    {
    }

    int operator()(int blue, int green, int red)
    {
        const quint32 colour = quint32(red) << 16 | quint32(green) << 8 | quint32(blue);
        quint32& known = known_[colour * Scatter >> (32 - SlotBits)];
        if (known >> 8 != colour)
            known = colour << 8 | quint32(nearest_(blue, green, red));
        return int(known & 0xff);
    }

private:
    static constexpr int SlotBits = 14;
    static constexpr quint32 Scatter = 0x9e3779b1;

    const NearestColour& nearest_;
    std::vector<quint32> known_; ///< a colour and, in the low byte, the number of its nearest
};

} // namespace imaging
