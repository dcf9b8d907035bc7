// The operations of the imaging control on its picture.
#include "app/Lead.h"

#include "app/AsControl.h"
#include "imaging/Animation.h"
#include "imaging/ColorResolution.h"
#include "imaging/Colours.h"
#include "imaging/Edges.h"
#include "imaging/Filters.h"
#include "imaging/Mirror.h"
#include "imaging/Resample.h"
#include "imaging/Rotate.h"
#include "imaging/Tones.h"
#include "imaging/TrueColour.h"
#include "imaging/Underlay.h"

#include <QPointer>

#include <type_traits>

namespace {

/// The enumerator with a number that came from outside.
template <typename Enumeration>
Enumeration Known(int number, std::initializer_list<Enumeration> all, const char* what)
{
    for (const Enumeration one : all)
        if (int(one) == number)
            return one;
    throw ControlError(QStringLiteral("There is no %1 %2.").arg(QLatin1String(what)).arg(number));
}

imaging::Direction DirectionOf(int number)
{
    using enum imaging::Direction;
    return Known(number, { East, West, North, South }, "direction");
}

imaging::SpatialCode SpatialCodeOf(int number)
{
    if (!imaging::IsSpatialCode(number))
        throw ControlError(QStringLiteral("There is no spatial filter %1.").arg(number));
    return imaging::SpatialCode(number);
}

imaging::PaletteKind PaletteOf(int number)
{
    using enum imaging::PaletteKind;
    return Known(number, { OrderRgb, Fixed, Optimized, OrderBgr, Identity }, "palette");
}

imaging::Dithering DitheringOf(int number)
{
    using enum imaging::Dithering;
    return Known(number, { None, FloydSteinberg, Stucki, Burkes, Sierra, StevensonArce, Jarvis, Ordered },
        "dithering");
}

} // namespace

template <typename Operation, typename... Values>
void Lead::Change(Operation operation, const Values&... values)
{
    if (bitmap_.isNull())
        throw ControlError(QStringLiteral("There is no picture to change."));
    const QPointer<Lead> self = this;
    const int replacements = replacements_;
    const imaging::Progress progress = [&](int part) {
        if (self)
            Q_EMIT self->Progress(part);
    };
    QImage result = AsControl([&, picture = bitmap_] {
        if constexpr (std::is_invocable_v<Operation, QImage, Values..., imaging::Progress>)
            return operation(picture, values..., progress);
        else
            return operation(picture, values...);
    });
    if (!self || replacements != replacements_)
        return;
    imaging::SetAnimated(result, false); // a page that was changed is none of its file any more
    if (result.size() != bitmap_.size())
        return SetBitmap(result);
    ++replacements_;
    bitmap_ = result;
    onScreen_ = {};
    if (autoRepaint_)
        update();
}

void Lead::Size(int width, int height, int flags)
{
    using enum imaging::Resampling;
    const auto resample = [](const QImage& picture, QSize size, imaging::Resampling kind) {
        return imaging::AtDepthOf(picture, imaging::Resample(picture, size, kind));
    };
    Change(resample, QSize(width, height), flags == SizeSmooth ? Smooth : Nearest);
}

void Lead::Flip()
{
    Change(imaging::Flipped);
}
void Lead::Reverse()
{
    Change(imaging::Reversed);
}
void Lead::Rotate(int angle, bool resize, const QColor& fill)
{
    using enum imaging::RotatedSize;
    Change(imaging::Rotated, angle, resize ? Grown : Kept, fill);
}

void Lead::Grayscale()
{
    Change(imaging::Grey);
}
void Lead::Invert()
{
    Change(imaging::Inverted);
}
void Lead::StretchIntensity()
{
    Change(imaging::WithStretchedIntensity);
}
void Lead::Brightness(int amount)
{
    Change(imaging::WithBrightness, amount);
}
void Lead::Contrast(int amount)
{
    Change(imaging::WithContrast, amount);
}
void Lead::Saturation(int amount)
{
    Change(imaging::WithSaturation, amount);
}
void Lead::Hue(int angle)
{
    Change(imaging::WithHue, angle);
}
void Lead::Gamma(int gamma)
{
    Change(imaging::WithGamma, gamma);
}
void Lead::Posterize(int levels)
{
    Change(imaging::Posterized, levels);
}
void Lead::Solarize(int threshold)
{
    Change(imaging::Solarized, threshold);
}

void Lead::Sharpen(int amount)
{
    Change(imaging::Sharpened, amount);
}
void Lead::Median(int size)
{
    Change(imaging::WithMedian, size);
}
void Lead::Oil(int size)
{
    Change(imaging::OilPainted, size);
}
void Lead::Mosaic(int size)
{
    Change(imaging::Mosaic, size);
}
void Lead::Emboss(int direction, int depth)
{
    Change(imaging::Embossed, DirectionOf(direction), depth);
}
void Lead::SpatialFilter(int code)
{
    Change(imaging::SpatiallyFiltered, SpatialCodeOf(code));
}

void Lead::Underlay(const QImage& picture, int flag)
{
    using enum imaging::UnderlayFit;
    Change(imaging::Underlaid, picture, flag == UnderlayTile ? Tiled : Stretched);
}
void Lead::SetColorResolution(int bits, int palette, int dither, int colours)
{
    Change(imaging::WithColorResolution, bits, PaletteOf(palette), DitheringOf(dither), colours);
}
