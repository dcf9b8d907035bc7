#include "toolkit/ShadowStrip.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>
#include <vector>

namespace {

/// A strip's alphas as they are seen, row by row from the top.
using Alphas = std::vector<std::vector<int>>;

Alphas AlphasOf(const ShadowStrip& strip, QRgb color = qRgb(0, 0, 0))
{
    const QImage picture = strip.Picture(color);
    Alphas rows;
    for (int y = 0; y < picture.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < picture.width(); ++x)
            rows.back().push_back(qAlpha(reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x]));
    }
    return rows;
}

} // namespace

TEST(ShadowStrip, ASoftBottomStripIsStrongestAtTheFormAndFadesAtItsLeftEnd)
{
    const Alphas expected {
        { 0, 47, 95, 143, 191, 191 },
        { 0, 31, 63, 95, 127, 127 },
        { 0, 15, 31, 47, 63, 63 },
        { 0, 0, 0, 0, 0, 0 },
    };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Bottom, QSize(6, 4) }), expected);
}

TEST(ShadowStrip, ASoftRightStripFadesAtBothEndsAndAwayFromTheForm)
{
    const Alphas expected {
        { 85, 56, 28 },
        { 170, 113, 56 },
        { 255, 170, 85 },
        { 255, 170, 85 },
        { 255, 170, 85 },
        { 170, 113, 56 },
        { 85, 56, 28 },
        { 0, 0, 0 },
    };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Right, QSize(3, 8) }), expected);
}

TEST(ShadowStrip, WhereTheRampsOfBothEndsMeetTheRisingOneGoesFirst)
{
    const Alphas expected {
        { 63, 47, 31, 15 },
        { 127, 95, 63, 31 },
        { 191, 143, 95, 47 },
        { 127, 95, 63, 31 },
        { 63, 47, 31, 15 },
        { 0, 0, 0, 0 },
    };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Right, QSize(4, 6) }), expected);
}

TEST(ShadowStrip, ARightStripLowerThanWideOnlyRises)
{
    const Alphas expected { { 63, 47, 31, 15 }, { 0, 0, 0, 0 } };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Right, QSize(4, 2) }), expected);
}

TEST(ShadowStrip, ABottomStripNarrowerThanHighNeverReachesItsPeak)
{
    const Alphas expected { { 0, 47 }, { 0, 31 }, { 0, 15 }, { 0, 0 } };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Bottom, QSize(2, 4) }), expected);
}

TEST(ShadowStrip, AFlatStripIsABlock)
{
    const Alphas expected { { 255, 255, 255 }, { 255, 255, 255 } };
    EXPECT_EQ(AlphasOf({ ShadowStrip::Right, QSize(3, 2), false }), expected);
    EXPECT_EQ(AlphasOf({ ShadowStrip::Bottom, QSize(3, 2), false }), expected);
}

TEST(ShadowStrip, AStripOfNoDepthHasNoPicture)
{
    EXPECT_TRUE(ShadowStrip({ ShadowStrip::Right, QSize(0, 50) }).Picture(0).isNull());
    EXPECT_TRUE(ShadowStrip({ ShadowStrip::Bottom, QSize(50, 0) }).Picture(0).isNull());
}

TEST(ShadowStrip, EveryColourUnderEveryAlphaIsRoundedToTheNearest)
{
    for (int alpha = 0; alpha <= 255; ++alpha) {
        for (int value = 0; value <= 255; ++value) {
            const QRgb pixel = ShadowStrip::Premultiplied(qRgb(value, 255 - value, 0), alpha);
            ASSERT_EQ(qRed(pixel), (2 * value * alpha + 255) / 510) << value << " under " << alpha;
            ASSERT_EQ(qGreen(pixel), (2 * (255 - value) * alpha + 255) / 510) << value << " under " << alpha;
            ASSERT_EQ(qBlue(pixel), 0);
            ASSERT_EQ(qAlpha(pixel), alpha);
        }
    }
}

TEST(ShadowStrip, ItsPixelsAreBlueGreenRedAlphaInMemory)
{
    const QImage picture = ShadowStrip { ShadowStrip::Right, QSize(1, 1), false }.Picture(qRgb(30, 20, 10));
    const uchar* const bytes = picture.constBits();
    EXPECT_EQ((std::vector<int> { bytes[0], bytes[1], bytes[2], bytes[3] }),
        (std::vector<int> { 10, 20, 30, 255 }));
    EXPECT_EQ(picture.format(), QImage::Format_ARGB32_Premultiplied);
}

TEST(ShadowStrip, ItsPlaceIsPushedDownAndToTheRightByTheDepth)
{
    const QRect form(100, 50, 300, 200);
    EXPECT_EQ(ShadowStrip::Place(ShadowStrip::Right, form, 10), QRect(400, 60, 10, 200));
    EXPECT_EQ(ShadowStrip::Place(ShadowStrip::Bottom, form, 10), QRect(110, 250, 290, 10));
}

TEST(ShadowStrip, AFormNarrowerThanTheDepthHasNoBottomStrip)
{
    EXPECT_TRUE(ShadowStrip::Place(ShadowStrip::Bottom, QRect(0, 0, 6, 50), 10).isEmpty());
}

TEST(ShadowStrip, ARoundedStyleClearsTwelvePixelsOfTheUpperRightCorner)
{
    QImage strip = ShadowStrip { ShadowStrip::Right, QSize(7, 8), false }.Picture(qRgb(9, 9, 9));
    ShadowStrip::RoundCorner(strip);
    const int o = 255;
    const Alphas expected {
        { o, o, 0, 0, 0, 0, 0 },
        { o, o, o, o, 0, 0, 0 },
        { o, o, o, o, o, 0, 0 },
        { o, o, o, o, o, o, 0 },
        { o, o, o, o, o, o, 0 },
        { o, o, o, o, o, o, o },
        { o, o, o, o, o, o, o },
        { o, o, o, o, o, o, o },
    };
    for (int y = 0; y < strip.height(); ++y)
        for (int x = 0; x < strip.width(); ++x)
            EXPECT_EQ(strip.pixel(x, y), expected[size_t(y)][size_t(x)] ? qRgb(9, 9, 9) : 0) << x << " " << y;
}

TEST(ShadowStrip, RoundingACornerStaysInsideASmallStrip)
{
    QImage strip = ShadowStrip { ShadowStrip::Right, QSize(2, 3), false }.Picture(0);
    ShadowStrip::RoundCorner(strip);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 2; ++x)
            EXPECT_EQ(strip.pixel(x, y), 0u);
}
