#include "imaging/ErrorDiffusion.h"

#include <algorithm>

namespace imaging {
namespace {

constexpr DiffusionKernel Kernels[] = {
    { Dithering::FloydSteinberg, 16,
        { { { 0, 0, 0, 0, 7, 0, 0 }, //
            { 0, 0, 3, 5, 1, 0, 0 } } } },
    { Dithering::Stucki, 42,
        { { { 0, 0, 0, 0, 8, 4, 0 }, //
            { 0, 2, 4, 8, 4, 2, 0 }, //
            { 0, 1, 2, 4, 2, 1, 0 } } } },
    { Dithering::Burkes, 32,
        { { { 0, 0, 0, 0, 8, 4, 0 }, //
            { 0, 2, 4, 8, 4, 2, 0 } } } },
    { Dithering::Sierra, 32,
        { { { 0, 0, 0, 0, 5, 3, 0 }, //
            { 0, 2, 4, 5, 4, 2, 0 }, //
            { 0, 0, 2, 3, 2, 0, 0 } } } },
    { Dithering::StevensonArce, 200,
        { { { 0, 0, 0, 0, 0, 32, 0 }, //
            { 12, 0, 26, 0, 30, 0, 16 }, //
            { 0, 12, 0, 26, 0, 12, 0 }, //
            { 5, 0, 12, 0, 12, 0, 5 } } } },
    { Dithering::Jarvis, 48,
        { { { 0, 0, 0, 0, 7, 5, 0 }, //
            { 0, 3, 5, 7, 5, 3, 0 }, //
            { 0, 1, 3, 5, 3, 1, 0 } } } },
};

constexpr bool GivesAllAway(const DiffusionKernel& kernel)
{
    int sum = 0;
    for (const DiffusionKernel::Row& row : kernel.shares)
        for (const int share : row)
            sum += share;
    return sum == kernel.whole;
}
static_assert(std::ranges::all_of(Kernels, GivesAllAway));

} // namespace

const DiffusionKernel* KernelOf(Dithering method)
{
    const DiffusionKernel* kernel = std::ranges::find(Kernels, method, &DiffusionKernel::method);
    return kernel == std::end(Kernels) ? nullptr : kernel;
}

ErrorDiffusion::ErrorDiffusion(const DiffusionKernel& kernel, const QList<QRgb>& palette, int width)
    : kernel_(kernel)
    , palette_(palette)
    , nearest_(palette)
    , width_(width)
    , asked_(size_t(3) * size_t(width))
{
    for (Line& line : errors_)
        line.values.resize(asked_.size() + size_t(2 * Margin));
}

void ErrorDiffusion::Row(const uchar* from, int channels, uchar* to)
{
    const int step = -errors_.front().step;
    std::rotate(errors_.begin(), errors_.end() - 1, errors_.end());
    Line& errors = errors_.front();
    std::ranges::fill(errors.values, 0.0F);
    errors.step = step;
    Ask(from, channels);
    Walk(errors, to);
}

/// What the pixels are, and what those of the rows above were off.
void ErrorDiffusion::Ask(const uchar* from, int channels)
{
    float* asked = asked_.data();
    for (int x = 0; x < width_; ++x, from += channels, asked += 3)
        for (int channel = 0; channel < 3; ++channel)
            asked[channel] = from[channel];
    for (size_t above = 1; above < errors_.size(); ++above)
        AddFrom(errors_[above], kernel_.shares[above]);
}

void ErrorDiffusion::AddFrom(const Line& line, const DiffusionKernel::Row& shares)
{
    for (size_t place = 0; place < shares.size(); ++place) {
        if (shares[place] == 0)
            continue;
        const int distance = (int(place) - DiffusionKernel::Reach) * line.step;
        const float part = float(shares[place]) / float(kernel_.whole);
        const float* errors = line.values.data() + (Margin - 3 * distance);
        for (size_t i = 0; i < asked_.size(); ++i)
            asked_[i] += part * errors[i];
    }
}

void ErrorDiffusion::Walk(Line& errors, uchar* to)
{
    constexpr float slack = 128; // colours that no palette has would pile up what is off without an end
    // No kernel reaches further than two within the row.
    const DiffusionKernel::Row& shares = kernel_.shares.front();
    const float toNext = float(shares[DiffusionKernel::Reach + 1]) / float(kernel_.whole);
    const float toSecond = float(shares[DiffusionKernel::Reach + 2]) / float(kernel_.whole);
    const int step = errors.step;
    int x = step > 0 ? 0 : width_ - 1;
    for (int done = 0; done < width_; ++done, x += step) {
        const float* asked = asked_.data() + qsizetype(3) * x;
        float* error = errors.values.data() + Margin + qsizetype(3) * x;
        std::array<int, 3> wanted {};
        for (int i = 0; i < 3; ++i) {
            error[i] = std::clamp(asked[i] + toNext * error[i - 3 * step] + toSecond * error[i - 6 * step],
                -slack, 255 + slack);
            wanted[size_t(i)] = cvRound(std::clamp(error[i], 0.0F, 255.0F));
        }
        const int index = remembered_(wanted[0], wanted[1], wanted[2]);
        const QRgb colour = palette_[index];
        error[0] -= float(qBlue(colour));
        error[1] -= float(qGreen(colour));
        error[2] -= float(qRed(colour));
        to[x] = uchar(index);
    }
}

} // namespace imaging
