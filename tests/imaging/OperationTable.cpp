#include "OperationTable.h"

#include "Pictures.h"
#include "imaging/ColorResolution.h"

#include <algorithm>

using namespace imaging;
using Kind = OperationRow::Kind;

namespace {

/// A row for a function of a picture, a value and the progress.
template <typename Function> OperationRow Of(const char* name, Kind kind, Function function, int value)
{
    return { name, kind, [=](const QImage& picture) { return function(picture, value, {}); } };
}

OperationRow SpatialRow(const char* name, SpatialCode code)
{
    return { name, Kind::Pixels, [=](const QImage& picture) { return SpatiallyFiltered(picture, code); } };
}

OperationRow EmbossRow(const char* name, Direction light)
{
    return { name, Kind::Pixels, [=](const QImage& picture) { return Embossed(picture, light, 4); } };
}

OperationRow RotateRow(const char* name, int angle, RotatedSize size)
{
    return { name, Kind::Places,
        [=](const QImage& picture) { return Rotated(picture, angle, size, Qt::white); } };
}

OperationRow UnderlayRow(const char* name, UnderlayFit fit)
{
    return { name, Kind::Pixels, [=](const QImage& picture) {
                return Underlaid(picture, Pictures::TwoColours({ 23, 19 }), fit);
            } };
}

std::vector<OperationRow> MakeOperations()
{
    return {
        { "Flip", Kind::Places, Flipped },
        { "Reverse", Kind::Places, Reversed },
        RotateRow("RotateQuarterGrown", 9000, RotatedSize::Grown),
        RotateRow("RotateQuarterKept", 9000, RotatedSize::Kept),
        RotateRow("RotateHalf", 18000, RotatedSize::Kept),
        RotateRow("RotateGrown", 3000, RotatedSize::Grown),
        RotateRow("RotateKept", -1234, RotatedSize::Kept),
        { "Grayscale", Kind::Colours, [](const QImage& picture) { return Grey(picture); } },
        { "Invert", Kind::Colours, [](const QImage& picture) { return Inverted(picture); } },
        Of("BrightnessUp", Kind::Colours, WithBrightness, 250),
        Of("BrightnessDown", Kind::Colours, WithBrightness, -250),
        Of("ContrastUp", Kind::Colours, WithContrast, 400),
        Of("ContrastDown", Kind::Colours, WithContrast, -400),
        Of("SaturationUp", Kind::Colours, WithSaturation, 600),
        Of("SaturationDown", Kind::Colours, WithSaturation, -600),
        Of("Hue", Kind::Colours, WithHue, 75),
        Of("GammaUp", Kind::Colours, WithGamma, 220),
        Of("GammaDown", Kind::Colours, WithGamma, 45),
        Of("Posterize", Kind::Colours, Posterized, 4),
        Of("Solarize", Kind::Colours, Solarized, 128),
        { "StretchIntensity", Kind::Colours,
            [](const QImage& picture) { return WithStretchedIntensity(WithContrast(picture, -400)); } },
        Of("Sharpen", Kind::Pixels, Sharpened, 200),
        Of("Soften", Kind::Pixels, Sharpened, -800),
        Of("Median", Kind::Pixels, WithMedian, 7),
        Of("Mosaic", Kind::Pixels, Mosaic, 6),
        Of("Oil", Kind::Pixels, OilPainted, 6),
        EmbossRow("EmbossEast", Direction::East),
        EmbossRow("EmbossWest", Direction::West),
        EmbossRow("EmbossNorth", Direction::North),
        EmbossRow("EmbossSouth", Direction::South),
        SpatialRow("GradientNorth", SpatialCode::GradientNorth),
        SpatialRow("GradientEast", SpatialCode::GradientEast),
        SpatialRow("GradientSouth", SpatialCode::GradientSouth),
        SpatialRow("GradientWest", SpatialCode::GradientWest),
        SpatialRow("SobelHorizontal", SpatialCode::SobelHorizontal),
        SpatialRow("SobelVertical", SpatialCode::SobelVertical),
        SpatialRow("PrewittHorizontal", SpatialCode::PrewittHorizontal),
        SpatialRow("PrewittVertical", SpatialCode::PrewittVertical),
        SpatialRow("ShiftHorizontal", SpatialCode::ShiftHorizontal),
        SpatialRow("ShiftVertical", SpatialCode::ShiftVertical),
        UnderlayRow("UnderlayTiled", UnderlayFit::Tiled),
        UnderlayRow("UnderlayStretched", UnderlayFit::Stretched),
    };
}

std::vector<OperationRow> MakeNeutralOperations()
{
    return {
        Of("Brightness", Kind::Colours, WithBrightness, 0),
        Of("Contrast", Kind::Colours, WithContrast, 0),
        Of("Saturation", Kind::Colours, WithSaturation, 0),
        Of("Hue", Kind::Colours, WithHue, 0),
        Of("Gamma", Kind::Colours, WithGamma, 100),
        Of("Solarize", Kind::Colours, Solarized, 255),
        Of("Sharpen", Kind::Pixels, Sharpened, 0),
        Of("MosaicOfNothing", Kind::Pixels, Mosaic, 0),
        Of("MosaicOfOne", Kind::Pixels, Mosaic, 1),
        RotateRow("NoTurn", 0, RotatedSize::Kept),
        RotateRow("WholeTurn", 36000, RotatedSize::Grown),
        RotateRow("WholeTurnBack", -36000, RotatedSize::Kept),
    };
}

} // namespace

const std::vector<OperationRow>& Operations()
{
    static const std::vector<OperationRow> rows = MakeOperations();
    return rows;
}

const std::vector<OperationRow>& NeutralOperations()
{
    static const std::vector<OperationRow> rows = MakeNeutralOperations();
    return rows;
}

QImage AtDepth(const QImage& picture, int bits)
{
    return WithColorResolution(picture, bits, bits <= 8 ? PaletteKind::Optimized : PaletteKind::OrderBgr,
        Dithering::FloydSteinberg, 0);
}

QImage Colours(const QImage& picture)
{
    return picture.convertToFormat(QImage::Format_ARGB32);
}

int Difference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 256;
    const QImage first = Colours(one), second = Colours(other);
    int most = 0;
    for (int y = 0; y < first.height(); ++y) {
        const uchar *a = first.constScanLine(y), *b = second.constScanLine(y);
        for (qsizetype i = 0; i < qsizetype(4) * first.width(); ++i)
            most = std::max(most, std::abs(a[i] - b[i]));
    }
    return most;
}
