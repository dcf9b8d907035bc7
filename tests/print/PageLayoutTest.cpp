#include "print/PageLayout.h"

#include <gtest/gtest.h>

using namespace PageLayout;

TEST(PageLayout, EveryPaperHasItsCodeAndSize)
{
    const QSize custom(100, 120);
    const Paper papers[] { { 256, custom }, { 11, { 148, 210 } }, { 9, { 210, 297 } }, { 8, { 297, 420 } },
        { 12, { 250, 354 } }, { 13, { 182, 257 } }, { 15, { 215, 275 } } };
    for (int size = 0; size < int(std::size(papers)); ++size)
        EXPECT_EQ(PaperOf(size, custom), papers[size]) << size;
}

TEST(PageLayout, APaperThatThereIsNotIsA4)
{
    for (const int size : { -1, 7 })
        EXPECT_EQ(PaperOf(size, { 1, 1 }), PaperOf(2, {})) << size;
}

TEST(PageLayout, ThePageIsThePaperLessAQuarterOfTheMargins)
{
    EXPECT_EQ(PageSize({ 210, 297 }, {}), QSize(794, 1123));
    EXPECT_EQ(PageSize({ 210, 297 }, { 96, 192, 48, 96 }), QSize(794 - 36, 1123 - 72));
    EXPECT_EQ(PageSize({ 254, 127 }, { 1, 0, 0, 0 }), QSize(960, 480)) << "959.75";
}

TEST(PageLayout, MarginsLargerThanThePaperLeaveNoPage)
{
    EXPECT_TRUE(PageSize({ 10, 297 }, { 100, 0, 100, 0 }).isEmpty());
}

TEST(PageLayout, APreviewIsSmallerThanAPrintByAFixedAmount)
{
    EXPECT_EQ(PreviewSize({ 794, 1123 }), QSize(794 - 28, 1123 - 52));
    EXPECT_EQ(PreviewSize({ 378, 378 }), QSize(350, 326));
}

TEST(PageLayout, NinePlacesFromTheTopLeftToTheBottomRight)
{
    const QSize page(800, 1000), picture(301, 200);
    const QPoint places[] { { 0, 0 }, { 249, 0 }, { 499, 0 }, { 0, 400 }, { 249, 400 }, { 499, 400 },
        { 0, 800 }, { 249, 800 }, { 499, 800 } };
    for (int align = 0; align < int(std::size(places)); ++align)
        EXPECT_EQ(PlaceOf(align, page, picture), places[align]) << align;
}

TEST(PageLayout, APlaceThatThereIsNotIsTheTopLeft)
{
    for (const int align : { -1, 9 })
        EXPECT_EQ(PlaceOf(align, { 800, 1000 }, { 300, 200 }), QPoint(0, 0)) << align;
}

TEST(PageLayout, APictureLargerThanThePageStandsAroundItsMiddle)
{
    EXPECT_EQ(PlaceOf(4, { 800, 1000 }, { 1920, 1080 }), QPoint(-560, -40));
    EXPECT_EQ(PlaceOf(4, { 800, 1000 }, { 803, 1001 }), QPoint(-2, -1)) << "halves go down, below 0 too";
    EXPECT_EQ(PlaceOf(8, { 800, 1000 }, { 1920, 1080 }), QPoint(-1120, -80));
}
