#include "viewers/ThumbLayout.h"

#include <gtest/gtest.h>

TEST(ThumbLayout, CellsStandTenPixelsApartAndBreakIntoRows)
{
    ThumbLayout layout({ 100, 80 });
    EXPECT_EQ(layout.Next(370), QPoint(8, 8));
    EXPECT_EQ(layout.Next(370), QPoint(118, 8));
    EXPECT_EQ(layout.Next(370), QPoint(228, 8)) << "328 fits within 370 - 30";
    EXPECT_EQ(layout.Next(370), QPoint(8, 98));
    EXPECT_EQ(layout.RowCount(), 2);
}

TEST(ThumbLayout, ThePanelGrowsByACellAndSixtyPixelsWhereTheNextRowDoesNotFit)
{
    ThumbLayout layout({ 100, 80 });
    for (const int height : { 96, 236, 376 }) {
        layout.Next(130);
        EXPECT_EQ(layout.PanelHeight(), height) << "row " << layout.RowCount();
    }
}

TEST(ThumbLayout, ACellWiderThanThePanelHasARowOfItsOwnAtTheLeft)
{
    ThumbLayout layout({ 500, 80 });
    layout.Next(300);
    EXPECT_EQ(layout.Next(300), QPoint(8, 98));
    EXPECT_EQ(layout.Next(300), QPoint(8, 188));
}

TEST(ThumbLayout, ThePanelGrowsWithTheRowsAndHoldsEveryCell)
{
    ThumbLayout layout({ 100, 80 });
    for (int i = 0; i < 1000; ++i) {
        const QPoint place = layout.Next(130);
        EXPECT_GE(layout.PanelHeight(), place.y() + 80);
    }
    EXPECT_EQ(layout.RowCount(), 1000);
}
