#include "imaging/Palettes.h"

#include "imaging/Matrix.h"
#include "imaging/NearestColour.h"
#include "imaging/TrueColour.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_set>
#include <vector>

namespace imaging {
namespace {

/// Colours that are hardly apart, taken together.
struct Cluster {
    double weight = 0; ///< pixels
    std::array<double, 3> colour {}; ///< their mean: blue, green, red

    void operator+=(const Cluster& other)
    {
        const double both = weight + other.weight;
        for (size_t i = 0; i < 3; ++i)
            colour[i] = (colour[i] * weight + other.colour[i] * other.weight) / both;
        weight = both;
    }
    std::array<int, 3> Rounded() const { return { qRound(colour[0]), qRound(colour[1]), qRound(colour[2]) }; }
    QRgb Rgb() const
    {
        const auto [blue, green, red] = Rounded();
        return qRgb(red, green, blue);
    }
};
using Clusters = std::vector<Cluster>;

/// The clusters of a picture: cubes of four levels a side.
Clusters ClustersOf(const cv::Mat& pixels)
{
    struct Cube {
        quint32 count = 0;
        std::array<quint32, 3> sums {}; ///< above the cube's corner, so that 32 bits hold them
    };
    constexpr int sideBits = 2;
    constexpr size_t cubes = 256 >> sideBits;
    const auto along = [](uchar value) { return size_t(value) >> sideBits; };
    std::vector<Cube> histogram(cubes * cubes * cubes);
    for (int y = 0; y < pixels.rows; ++y) {
        const uchar* at = pixels.ptr(y);
        for (int x = 0; x < pixels.cols; ++x, at += pixels.channels()) {
            Cube& cube = histogram[(along(at[0]) * cubes + along(at[1])) * cubes + along(at[2])];
            ++cube.count;
            for (size_t i = 0; i < 3; ++i)
                cube.sums[i] += at[i] & ((1 << sideBits) - 1);
        }
    }
    Clusters clusters;
    for (size_t i = 0; i < histogram.size(); ++i) {
        const auto& [count, sums] = histogram[i];
        const size_t corner[] = { i / cubes / cubes, i / cubes % cubes, i % cubes };
        if (count == 0)
            continue;
        Cluster cluster { double(count), {} };
        for (size_t channel = 0; channel < 3; ++channel)
            cluster.colour[channel] = double(corner[channel] << sideBits) + double(sums[channel]) / count;
        clusters.push_back(cluster);
    }
    return clusters;
}

/// Clusters that share one colour of the palette until they are cut apart.
class Box {
public:
    explicit Box(std::span<Cluster> clusters)
        : clusters_(clusters)
    {
        for (const Cluster& cluster : clusters_)
            mean_ += cluster;
        for (const Cluster& cluster : clusters_)
            for (size_t i = 0; i < 3; ++i) {
                const double distance = cluster.colour[i] - mean_.colour[i];
                errors_[i] += cluster.weight * distance * distance;
            }
    }

    const Cluster& Mean() const { return mean_; }
    /// What the one colour is off, summed over its pixels.
    double Error() const { return errors_[0] + errors_[1] + errors_[2]; }

    /// Cuts at the mean across the axis along which the colours differ most; what is cut off is returned.
    Box Cut()
    {
        const auto axis = size_t(std::ranges::max_element(errors_) - errors_.begin());
        const auto high = std::partition(clusters_.begin(), clusters_.end(),
            [&](const Cluster& cluster) { return cluster.colour[axis] <= mean_.colour[axis]; });
        const auto kept = size_t(high - clusters_.begin());
        Box cutOff(clusters_.subspan(kept));
        *this = Box(clusters_.first(kept));
        return cutOff;
    }

private:
    std::span<Cluster> clusters_;
    Cluster mean_;
    std::array<double, 3> errors_ {};
};

QList<QRgb> CutApart(Clusters& clusters, int colours)
{
    std::vector<Box> boxes { Box(clusters) };
    while (int(boxes.size()) < colours) {
        const auto worst = std::ranges::max_element(boxes, {}, &Box::Error);
        if (worst->Error() < 1) // not even one pixel is off by a level
            break;
        boxes.push_back(worst->Cut());
    }
    QList<QRgb> palette;
    for (const Box& box : boxes)
        palette += box.Mean().Rgb();
    return palette;
}

/// Moves every colour to the mean of those it is nearest to.
void Settle(QList<QRgb>& palette, const Clusters& clusters)
{
    Clusters means(size_t(palette.size()));
    const NearestColour nearest(palette);
    for (const Cluster& cluster : clusters) {
        const auto [blue, green, red] = cluster.Rounded();
        means[size_t(nearest(blue, green, red))] += cluster;
    }
    for (qsizetype i = 0; i < palette.size(); ++i)
        if (means[size_t(i)].weight > 0)
            palette[i] = means[size_t(i)].Rgb();
}

/// The colours of a picture, in the order of their numbers; one too many when there are more than so many.
QList<QRgb> OwnColours(const cv::Mat& pixels, int most)
{
    std::unordered_set<QRgb> colours;
    QRgb last = 0; // opaque colours differ from it
    for (int y = 0; y < pixels.rows; ++y) {
        const uchar* at = pixels.ptr(y);
        for (int x = 0; x < pixels.cols && int(colours.size()) <= most; ++x, at += pixels.channels())
            if (const QRgb colour = qRgb(at[2], at[1], at[0]); colour != last)
                colours.insert(last = colour);
    }
    QList<QRgb> sorted(colours.begin(), colours.end());
    std::ranges::sort(sorted);
    return sorted;
}

} // namespace

QList<QRgb> OptimizedPalette(const QImage& picture, int colours)
{
    const QImage whole = TrueColour(picture);
    const cv::Mat pixels = PixelsOf(whole);
    if (QList<QRgb> own = OwnColours(pixels, colours); own.size() <= colours)
        return own;
    constexpr int rounds = 3; // more moves the colours no further that the eye would see
    Clusters clusters = ClustersOf(pixels);
    QList<QRgb> palette = CutApart(clusters, colours);
    for (int round = 0; round < rounds; ++round)
        Settle(palette, clusters);
    return palette;
}

} // namespace imaging
