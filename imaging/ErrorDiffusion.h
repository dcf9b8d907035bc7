#pragma once

#include "imaging/Dither.h"
#include "imaging/NearestColour.h"

#include <array>
#include <opencv2/core.hpp>
#include <vector>

namespace imaging {

/// To whom a pixel gives what it is off: the row itself, where the pixel stands in the middle, and the three
/// below.
struct DiffusionKernel {
    static constexpr int Reach = 3;
    using Row = std::array<int, 2 * Reach + 1>;

    Dithering method;
    int whole; ///< what the shares add up to
    std::array<Row, Reach + 1> shares;
};

/// The kernel of a method that diffuses; null for the others.
const DiffusionKernel* KernelOf(Dithering method);

/// Goes through a picture row by row, there and back by turns (always the same way would show as slanting
/// threads), and gives each pixel the nearest colour of what it and those before it ask for.
class ErrorDiffusion {
public:
    ErrorDiffusion(const DiffusionKernel& kernel, const QList<QRgb>& palette, int width);

    /// The numbers of the colours for the next row, given as bytes of blue, green, red and perhaps a fourth.
    void Row(const uchar* from, int channels, uchar* to);

private:
    /// A row of blue, green and red with room for the kernel at both ends.
    struct Line {
        std::vector<float> values;
        int step = -1; ///< which way the row was gone through; the first goes to the right
    };
    static constexpr int Margin = 3 * DiffusionKernel::Reach;

    void Ask(const uchar* from, int channels);
    void AddFrom(const Line& line, const DiffusionKernel::Row& shares);
    void Walk(Line& errors, uchar* to);

    const DiffusionKernel& kernel_;
    QList<QRgb> palette_;
    NearestColour nearest_;
    RememberedColours remembered_ { nearest_ };
    int width_;
    std::vector<float> asked_; ///< what the row should show
    std::array<Line, DiffusionKernel::Reach + 1> errors_; ///< of this row and those above it
};

} // namespace imaging
