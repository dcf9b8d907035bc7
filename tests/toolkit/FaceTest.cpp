#include "toolkit/Strip.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

const QColor Tint(10, 200, 90);

QImage Drawn(Face face, qreal pixelRatio)
{
    return Strip::Cell(face, Tint, Strip::CellSize, pixelRatio)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

int InkedPixels(const QImage& image)
{
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked += qAlpha(image.pixel(x, y)) > 0;
    }
    return inked;
}

} // namespace

TEST(Strip, EveryFaceHasAPictureInItsCell)
{
    for (int face = 1; face < static_cast<int>(Face::Count); ++face)
        EXPECT_GT(InkedPixels(Drawn(static_cast<Face>(face), 1)), 6) << "face " << face;
}

TEST(Strip, NoTwoFacesOfAStripLookAlike)
{
    for (int face = 1; face < static_cast<int>(Face::Count); ++face) {
        for (int other = face - CellOf(static_cast<Face>(face)); other < face; ++other)
            EXPECT_NE(Drawn(static_cast<Face>(face), 2), Drawn(static_cast<Face>(other), 2))
                << "faces " << other << " and " << face;
    }
}

TEST(Strip, CellsAreRenderedAtTheScreensScaleNotStretched)
{
    const QImage twice = Drawn(Face::Print, 2);
    EXPECT_EQ(twice.size(), QSize(40, 40));
    EXPECT_NE(twice, Drawn(Face::Print, 1).scaled(40, 40));
    EXPECT_EQ(Drawn(Face::Print, 1.5).size(), QSize(30, 30));
}

TEST(Strip, ACellTakesTheColourItIsAskedFor)
{
    const QImage cell = Drawn(Face::Pause, 1);
    const QColor bar = cell.pixelColor(6, 10);
    EXPECT_EQ(bar.rgb(), Tint.rgb());
    EXPECT_EQ(qAlpha(cell.pixel(0, 0)), 0);
}

TEST(Strip, ACellDoesNotShowItsNeighboursInk)
{
    // Pause stands between play and frame back; its bars end four pixels before the cell's edges.
    const QImage cell = Drawn(Face::Pause, 1);
    for (int y = 0; y < cell.height(); ++y) {
        EXPECT_EQ(qAlpha(cell.pixel(0, y)), 0);
        EXPECT_EQ(qAlpha(cell.pixel(cell.width() - 1, y)), 0);
    }
}

TEST(Strip, CellsAreCountedFromTheFirstOfTheirStrip)
{
    EXPECT_EQ(CellOf(Face::OpenVideos), 0);
    EXPECT_EQ(CellOf(Face::Save), 9);
    EXPECT_EQ(CellOf(Face::Play), 0);
    EXPECT_EQ(CellOf(Face::NextVideo), 15);
}
