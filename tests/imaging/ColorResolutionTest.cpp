#include "imaging/ColorResolution.h"

#include "OperationTable.h"
#include "Pictures.h"
#include "imaging/NearestColour.h"
#include "imaging/Palettes.h"

#include <QColor>
#include <array>
#include <climits>
#include <cmath>
#include <set>

using namespace imaging;

namespace {

constexpr Dithering AllDithering[] = { Dithering::None, Dithering::FloydSteinberg, Dithering::Stucki,
    Dithering::Burkes, Dithering::Sierra, Dithering::StevensonArce, Dithering::Jarvis, Dithering::Ordered };

QList<QRgb> BlackAndWhite()
{
    return FixedPalette(1);
}

double MeanRed(const QImage& picture, QRect part)
{
    double sum = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            sum += picture.pixelColor(x, y).red();
    return sum / (part.width() * part.height());
}

std::set<QRgb> ColoursIn(const QImage& picture)
{
    std::set<QRgb> colours;
    const QImage pixels = Colours(picture);
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x)
            colours.insert(pixels.pixel(x, y));
    return colours;
}

int SquaredDistance(QRgb one, QRgb other)
{
    const int r = qRed(one) - qRed(other), g = qGreen(one) - qGreen(other), b = qBlue(one) - qBlue(other);
    return r * r + g * g + b * b;
}

/// Greys without those from 101 to 254: what is below is shown as it is, and what is between is far off.
QList<QRgb> GreysWithAGap()
{
    QList<QRgb> palette;
    for (int grey = 0; grey <= 100; ++grey)
        palette += qRgb(grey, grey, grey);
    return palette += qRgb(255, 255, 255);
}

} // namespace

TEST(ColorResolution, GivesEveryDepthWithAPaletteOfItsFullSize)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const int bits : { 1, 4, 8 })
        for (const auto kind : { PaletteKind::Fixed, PaletteKind::Optimized, PaletteKind::Identity })
            for (const Dithering method : AllDithering) {
                const QImage result = WithColorResolution(photo, bits, kind, method, 1 << bits);
                EXPECT_EQ(BitsPerPixel(result), bits);
                EXPECT_EQ(result.colorCount(), 1 << bits);
            }
    for (const int bits : { 16, 24, 32 })
        for (const auto order : { PaletteKind::OrderRgb, PaletteKind::OrderBgr })
            EXPECT_EQ(BitsPerPixel(WithColorResolution(photo, bits, order, Dithering::None, 0)), bits);
}

TEST(ColorResolution, StoresRedOrBlueFirst)
{
    const QImage picture = Pictures::Plain({ 1, 1 }, QColor(1, 2, 3));
    for (const int bits : { 24, 32 }) {
        const QImage rgb = WithColorResolution(picture, bits, PaletteKind::OrderRgb, Dithering::None, 0);
        const QImage bgr = WithColorResolution(picture, bits, PaletteKind::OrderBgr, Dithering::None, 0);
        EXPECT_EQ(rgb.constBits()[0], 1) << bits;
        EXPECT_EQ(bgr.constBits()[0], 3) << bits;
        EXPECT_EQ(rgb.pixelColor(0, 0), bgr.pixelColor(0, 0)) << bits;
    }
}

TEST(ColorResolution, RefusesADepthThatThereIsNotAndAPaletteThatADepthCannotHave)
{
    const QImage picture = Pictures::Plain({ 2, 2 }, Qt::red);
    const auto change = [&](int bits, PaletteKind kind) {
        WithColorResolution(picture, bits, kind, Dithering::None, 0);
    };
    for (const int bits : { 0, 2, 7, 15, 48 })
        EXPECT_THROW(change(bits, PaletteKind::Fixed), PictureError) << bits;
    EXPECT_THROW(change(8, PaletteKind::OrderBgr), PictureError);
    EXPECT_THROW(change(24, PaletteKind::Fixed), PictureError);
}

TEST(ColorResolution, MoreBitsLoseNothing)
{
    const QImage paletted = AtDepth(Pictures::Photo({ 61, 43 }), 8);
    EXPECT_EQ(Colours(WithColorResolution(paletted, 24, PaletteKind::OrderBgr, Dithering::None, 0)),
        Colours(paletted));
}

TEST(ColorResolution, UsesNoMoreColoursThanAskedFor)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const int colours : { 2, 5, 100 }) {
        const QImage result = WithColorResolution(photo, 8, PaletteKind::Optimized, Dithering::None, colours);
        EXPECT_LE(ColoursIn(result).size(), size_t(colours));
        EXPECT_EQ(BitsPerPixel(result), 8);
    }
}

TEST(FixedPalette, HoldsTheSixteenColoursOfADisplayOrACubeAndGreys)
{
    EXPECT_EQ(FixedPalette(1), (QList<QRgb> { 0xff000000, 0xffffffff }));
    const QList<QRgb> sixteen = FixedPalette(4), all = FixedPalette(8);
    EXPECT_EQ(sixteen.size(), 16);
    EXPECT_EQ(sixteen[7], qRgb(192, 192, 192));
    EXPECT_EQ(sixteen[9], qRgb(255, 0, 0));
    ASSERT_EQ(std::set<QRgb>(all.begin(), all.end()).size(), 256U) << "no colour twice";
    for (const int red : { 0, 51, 102, 153, 204, 255 })
        EXPECT_TRUE(all.contains(qRgb(red, 255 - red, 51)));
}

TEST(EveryPalette, ShowsItsOwnColoursAsTheyAreWhateverTheDithering)
{
    const QList<QRgb> palette = FixedPalette(8);
    QImage picture(256, 8, QImage::Format_BGR888);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 256; ++x)
            picture.setPixelColor(x, y, QColor(palette[(x * 7 + y * 31) % 256]));
    for (const Dithering method : AllDithering)
        if (method != Dithering::Ordered) { // which moves every colour before it looks
            EXPECT_EQ(Difference(Dithered(picture, palette, method), picture), 0) << int(method);
        }
}

TEST(OptimizedPalette, IsThePicturesOwnWhereItSuffices)
{
    const QImage two = Pictures::TwoColours({ 61, 43 });
    EXPECT_EQ(OptimizedPalette(two, 256).size(), 2);
    EXPECT_EQ(Colours(WithColorResolution(two, 1, PaletteKind::Optimized, Dithering::None, 2)), Colours(two));
    const QImage ramp = Pictures::GreyRamp({ 61, 300 });
    EXPECT_EQ(
        Colours(WithColorResolution(ramp, 8, PaletteKind::Optimized, Dithering::None, 256)), Colours(ramp));
}

TEST(OptimizedPalette, ComesNearerToAPictureThanTheFixedOne)
{
    const QImage photo = Pictures::Photo({ 200, 150 });
    const auto likeness = [&](PaletteKind kind, int bits) {
        return Pictures::Likeness(WithColorResolution(photo, bits, kind, Dithering::None, 0), photo);
    };
    EXPECT_GT(likeness(PaletteKind::Optimized, 8), 34);
    EXPECT_GT(likeness(PaletteKind::Optimized, 8), likeness(PaletteKind::Fixed, 8) + 6);
    EXPECT_GT(likeness(PaletteKind::Optimized, 4), likeness(PaletteKind::Fixed, 4) + 6);
    EXPECT_GT(likeness(PaletteKind::Identity, 8), 33);
}

TEST(IdentityPalette, KeepsTheDisplaysTwentyColoursAtBothEnds)
{
    const QList<QRgb> palette = IdentityPalette(Pictures::Photo({ 61, 43 }), 8);
    ASSERT_EQ(palette.size(), 256);
    EXPECT_EQ(palette[0], qRgb(0, 0, 0));
    EXPECT_EQ(palette[1], qRgb(128, 0, 0));
    EXPECT_EQ(palette[9], qRgb(166, 202, 240));
    EXPECT_EQ(palette[246], qRgb(255, 251, 240));
    EXPECT_EQ(palette[249], qRgb(255, 0, 0));
    EXPECT_EQ(palette[255], qRgb(255, 255, 255));
    EXPECT_EQ(IdentityPalette(Pictures::Photo({ 61, 43 }), 4), FixedPalette(4));
}

TEST(NearestColour, IsTheNearestOfAllAndTheFirstOfSeveral)
{
    const QImage photo = Pictures::Photo({ 61, 43 });
    for (const QList<QRgb>& palette : { FixedPalette(8), FixedPalette(4), OptimizedPalette(photo, 100),
             QList<QRgb> { qRgb(9, 9, 9) }, QList<QRgb> { qRgb(9, 9, 9), qRgb(9, 9, 9) } }) {
        const NearestColour nearest(palette);
        for (int i = 0; i < 4096; ++i) {
            const QRgb colour = qRgb((i * 37) % 256, (i * 101 + 3) % 256, (i * 59 + i / 16) % 256);
            int least = INT_MAX, expected = -1;
            for (int index = 0; index < palette.size(); ++index)
                if (SquaredDistance(palette[index], colour) < least) {
                    least = SquaredDistance(palette[index], colour);
                    expected = index;
                }
            ASSERT_EQ(nearest(qBlue(colour), qGreen(colour), qRed(colour)), expected);
        }
    }
}

TEST(Dithering, KeepsTheMeanOfEveryGrey)
{
    constexpr int side = 128;
    for (const Dithering method : AllDithering) {
        if (method == Dithering::None)
            continue;
        for (int grey = 5; grey < 256; grey += 25) {
            const QImage plain = Pictures::Plain({ side, side }, QColor(grey, grey, grey));
            EXPECT_NEAR(MeanRed(Dithered(plain, BlackAndWhite(), method), plain.rect()), grey, 3)
                << int(method);
        }
    }
}

TEST(Dithering, NoneTakesTheNearestColour)
{
    const QImage ramp = Dithered(Pictures::GreyRamp({ 256, 1 }), BlackAndWhite(), Dithering::None);
    for (int x = 0; x < 256; ++x)
        EXPECT_EQ(ramp.pixelColor(x, 0).red(), x < 128 ? 0 : 255) << x;
}

TEST(Dithering, EveryMethodGivesItsOwnPicture)
{
    std::set<QByteArray> pictures;
    const QImage ramp = Pictures::GreyRamp({ 64, 64 });
    for (const Dithering method : AllDithering) {
        const QImage dithered = Dithered(ramp, BlackAndWhite(), method);
        pictures.insert(
            QByteArray(reinterpret_cast<const char*>(dithered.constBits()), dithered.sizeInBytes()));
    }
    EXPECT_EQ(pictures.size(), std::size(AllDithering));
}

TEST(Dithering, EachMethodSharesOutByItsOwnKernel)
{
    using Row = std::array<int, 7>;
    struct Kernel {
        Dithering method;
        int whole;
        std::array<Row, 4> shares;
    };
    const Kernel kernels[] = {
        { Dithering::FloydSteinberg, 16, { Row { 0, 0, 0, 0, 7, 0, 0 }, Row { 0, 0, 3, 5, 1, 0, 0 } } },
        { Dithering::Stucki, 42,
            { Row { 0, 0, 0, 0, 8, 4, 0 }, Row { 0, 2, 4, 8, 4, 2, 0 }, Row { 0, 1, 2, 4, 2, 1, 0 } } },
        { Dithering::Burkes, 32, { Row { 0, 0, 0, 0, 8, 4, 0 }, Row { 0, 2, 4, 8, 4, 2, 0 } } },
        { Dithering::Sierra, 32,
            { Row { 0, 0, 0, 0, 5, 3, 0 }, Row { 0, 2, 4, 5, 4, 2, 0 }, Row { 0, 0, 2, 3, 2, 0, 0 } } },
        { Dithering::StevensonArce, 200,
            { Row { 0, 0, 0, 0, 0, 32, 0 }, Row { 12, 0, 26, 0, 30, 0, 16 }, Row { 0, 12, 0, 26, 0, 12, 0 },
                Row { 5, 0, 12, 0, 12, 0, 5 } } },
        { Dithering::Jarvis, 48,
            { Row { 0, 0, 0, 0, 7, 5, 0 }, Row { 0, 3, 5, 7, 5, 3, 0 }, Row { 0, 1, 3, 5, 3, 1, 0 } } },
    };
    constexpr int ground = 15, off = 77; // what the lightest shown grey of the gap lacks, at most
    constexpr QPoint place(10, 0); // the first row goes to the right
    for (const Kernel& kernel : kernels) {
        QImage picture = Pictures::Plain({ 21, 6 }, QColor(ground, ground, ground));
        picture.setPixelColor(place, QColor(100 + off, 100 + off, 100 + off));
        const QImage dithered = Dithered(picture, GreysWithAGap(), kernel.method);
        for (int y = 0; y < 4; ++y)
            for (int dx = -3; dx <= 3; ++dx) {
                if (y == 0 && dx == 0)
                    continue;
                const double share = double(kernel.shares[size_t(y)][size_t(dx + 3)]) / kernel.whole;
                EXPECT_NEAR(dithered.pixelColor(place + QPoint(dx, y)).red(), ground + off * share, 1.01)
                    << int(kernel.method) << ": " << dx << "," << y;
            }
    }
}

TEST(Dithering, EveryOtherRowGoesBack)
{
    QImage picture = Pictures::Plain({ 21, 6 }, QColor(15, 15, 15));
    picture.setPixelColor(10, 1, QColor(177, 177, 177));
    const QImage dithered = Dithered(picture, GreysWithAGap(), Dithering::FloydSteinberg);
    EXPECT_NEAR(dithered.pixelColor(9, 1).red(), 15 + 77 * 7 / 16.0, 1.01);
    EXPECT_EQ(dithered.pixelColor(11, 1).red(), 15);
}

TEST(Dithering, OrderedRepeatsEveryEightPixels)
{
    const QImage plain = Pictures::Plain({ 32, 24 }, QColor(100, 100, 100));
    const QImage dithered = Dithered(plain, BlackAndWhite(), Dithering::Ordered);
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 32; ++x)
            ASSERT_EQ(dithered.pixelIndex(x, y), dithered.pixelIndex(x % 8, y % 8));
}

TEST(Dithering, ColoursThatNoPaletteHasDoNotSmearFar)
{
    QImage picture = Pictures::Plain({ 60, 40 }, Qt::blue); // which greys cannot show
    for (int y = 20; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            picture.setPixelColor(x, y, Qt::black);
    const QImage dithered = Dithered(picture, BlackAndWhite(), Dithering::FloydSteinberg);
    EXPECT_EQ(MeanRed(dithered, QRect(0, 24, 60, 16)), 0);
}
