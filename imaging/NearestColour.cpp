#include "imaging/NearestColour.h"

#include <algorithm>

namespace imaging {
namespace {

struct Bounds {
    int least;
    int most;
};

/// The squares of the distances from a value to the nearest and the furthest of a run of values.
Bounds SquaredDistances(int value, int first, int last)
{
    const int near = std::max({ first - value, value - last, 0 });
    const int far = std::max(value - first, last - value);
    return { near * near, far * far };
}

QList<int> FirstOfEach(const QList<QRgb>& palette)
{
    QList<int> indices;
    for (qsizetype i = 0; i < palette.size(); ++i)
        if (palette.indexOf(palette[i]) == i)
            indices += int(i);
    return indices;
}

} // namespace

/// How far the colours are at least, and at most, from the cells of one axis.
class NearestColour::Distances {
public:
    template <typename Channel> Distances(const std::vector<Candidate>& colours, Channel channel)
    {
        for (int cell = 0; cell < Side; ++cell)
            for (const Candidate& colour : colours)
                bounds_[size_t(cell)].push_back(
                    SquaredDistances(colour.*channel, cell << CellBits, ((cell + 1) << CellBits) - 1));
    }
    const std::vector<Bounds>& From(int cell) const { return bounds_[size_t(cell)]; }

private:
    std::array<std::vector<Bounds>, Side> bounds_;
};

NearestColour::NearestColour(const QList<QRgb>& palette)
{
    std::vector<Candidate> colours;
    for (const int index : FirstOfEach(palette)) {
        const QRgb colour = palette[index];
        colours.push_back({ short(qBlue(colour)), short(qGreen(colour)), short(qRed(colour)), short(index) });
    }
    const Distances blues(colours, &Candidate::blue);
    const Distances greens(colours, &Candidate::green);
    const Distances reds(colours, &Candidate::red);
    for (int cell = 0; cell < Side * Side * Side; ++cell) {
        const auto& blue = blues.From(cell >> 2 * SideBits);
        const auto& green = greens.From(cell >> SideBits & (Side - 1));
        const auto& red = reds.From(cell & (Side - 1));
        int furthest = Far;
        for (size_t i = 0; i < colours.size(); ++i)
            furthest = std::min(furthest, blue[i].most + green[i].most + red[i].most);
        for (size_t i = 0; i < colours.size(); ++i)
            if (blue[i].least + green[i].least + red[i].least <= furthest)
                candidates_.push_back(colours[i]);
        begins_[size_t(cell) + 1] = candidates_.size();
    }
}

} // namespace imaging
