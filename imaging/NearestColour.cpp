#include "imaging/NearestColour.h"

#include <algorithm>

namespace imaging {
namespace {

int LeastSquare(int value, int first, int side)
{
    const int distance = std::max({ first - value, value - (first + side - 1), 0 });
    return distance * distance;
}

int MostSquare(int value, int first, int side)
{
    const int distance = std::max(value - first, first + side - 1 - value);
    return distance * distance;
}

} // namespace

NearestColour::Cube NearestColour::Cube::Eighth(int number) const
{
    const int half = side / 2;
    return { blue + (number >> 2) * half, green + (number >> 1 & 1) * half, red + (number & 1) * half, half };
}

int NearestColour::Cube::LeastDistance(const Candidate& colour) const
{
    return LeastSquare(colour.blue, blue, side) + LeastSquare(colour.green, green, side)
        + LeastSquare(colour.red, red, side);
}

int NearestColour::Cube::MostDistance(const Candidate& colour) const
{
    return MostSquare(colour.blue, blue, side) + MostSquare(colour.green, green, side)
        + MostSquare(colour.red, red, side);
}

/// Those of a pool that may be nearest to a colour of the cube: none that is everywhere further off than
/// another.
NearestColour::Candidates NearestColour::Cube::Nearest(const Candidates& pool) const
{
    int bound = Far;
    for (const Candidate& colour : pool)
        bound = std::min(bound, MostDistance(colour));
    Candidates nearest;
    for (Candidate colour : pool) {
        colour.bound = LeastDistance(colour);
        if (colour.bound <= bound)
            nearest.push_back(colour);
    }
    return nearest;
}

NearestColour::NearestColour(const QList<QRgb>& palette)
    : parts_(1)
{
    Candidates all;
    for (qsizetype i = 0; i < palette.size(); ++i)
        if (palette.indexOf(palette[i]) == i)
            all.push_back(
                { short(qBlue(palette[i])), short(qGreen(palette[i])), short(qRed(palette[i])), short(i) });
    Divide(0, { 0, 0, 0, 256 }, all);
}

void NearestColour::Divide(size_t part, Cube cube, const Candidates& pool)
{
    constexpr size_t few = 16;
    constexpr int smallest = 16;
    Candidates nearest = cube.Nearest(pool);
    if (nearest.size() <= few || cube.side <= smallest) {
        std::ranges::stable_sort(nearest, {}, &Candidate::bound);
        parts_[part].begin = candidates_.size();
        candidates_.insert(candidates_.end(), nearest.begin(), nearest.end());
        parts_[part].end = candidates_.size();
        return;
    }
    const size_t parts = parts_.size();
    parts_.resize(parts + 8);
    parts_[part].parts = parts;
    for (int number = 0; number < 8; ++number)
        Divide(parts + size_t(number), cube.Eighth(number), nearest);
}

} // namespace imaging
