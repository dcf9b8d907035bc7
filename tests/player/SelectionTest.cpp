#include "media/player/Selection.h"

#include <cmath>
#include <gtest/gtest.h>

using player::PlaySpan;
using player::Selection;

TEST(SelectionTest, BoundsStayInsideTheVideo)
{
    Selection selection;
    selection.SetStart(-2, 4);
    EXPECT_EQ(selection.start, 0);
    selection.SetStart(9, 4);
    EXPECT_EQ(selection.start, 4);
    selection.SetEnd(-3, 4);
    EXPECT_EQ(selection.end, 0);
    selection.SetStart(std::nan(""), 4);
    EXPECT_EQ(selection.start, 0);
}

TEST(SelectionTest, AnEndAtTheDurationIsTheMediaEndAndClearsTheMark)
{
    Selection selection;
    selection.SetEnd(2, 4);
    EXPECT_EQ(selection.end, 2);
    selection.SetEnd(4, 4);
    EXPECT_EQ(selection, Selection());
    selection.SetEnd(std::nan(""), 4);
    EXPECT_EQ(selection, Selection());
}

TEST(SelectionTest, PlayingGoesOnBehindThePictureShown)
{
    EXPECT_EQ((PlaySpan { 10, 20 }.NextAfter(10)), 11);
    EXPECT_EQ((PlaySpan { 10, 20 }.NextAfter(19)), 20);
    EXPECT_EQ(PlaySpan().NextAfter(0), 1);
}

TEST(SelectionTest, PlayingStartsAtTheSelectionFromOutsideAndFromItsEnd)
{
    EXPECT_EQ((PlaySpan { 10, 20 }.NextAfter(20)), 10);
    EXPECT_EQ((PlaySpan { 10, 20 }.NextAfter(3)), 10);
    EXPECT_EQ((PlaySpan { 10, 20 }.NextAfter(77)), 10);
}
