#include "edit/UndoRing.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// A picture that tells the number of the edit before which it was taken.
QImage Before(int edit)
{
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(QRgb(edit));
    return picture;
}

int EditOf(const QImage& picture)
{
    return picture.isNull() ? 0 : int(picture.pixel(0, 0) & 0xFF);
}

/// The edit whose picture an undo brings back, shown and counted.
int Undone(UndoRing& ring)
{
    const int edit = EditOf(ring.Undo());
    ring.CountUndone();
    return edit;
}

UndoRing After(int edits)
{
    UndoRing ring;
    for (int edit = 1; edit <= edits; ++edit)
        ring.CopyLast(Before(edit));
    return ring;
}

struct Order {
    int edits;
    const char* undone; ///< the pictures that six undos bring back, by the edit before which they were taken
};
class UndoOrder : public testing::TestWithParam<Order> { };

} // namespace

TEST_P(UndoOrder, UndoReadsTheRingByCount)
{
    UndoRing ring = After(GetParam().edits);
    EXPECT_EQ(ring.UndoCount(), GetParam().edits);
    std::string undone;
    for (int press = 0; press < 6; ++press)
        undone += std::to_string(Undone(ring));
    EXPECT_EQ(undone, GetParam().undone);
    EXPECT_EQ(ring.UndoCount(), 0);
    EXPECT_EQ(ring.UndoSlot(), 0);
}

INSTANTIATE_TEST_SUITE_P(OneToNineEdits, UndoOrder,
    testing::Values(Order { 1, "111111" }, Order { 2, "211111" }, Order { 3, "321111" },
        Order { 4, "432111" }, Order { 5, "432555" }, Order { 6, "436555" }, Order { 7, "476555" },
        Order { 8, "876555" }, Order { 9, "876999" }),
    [](const auto& row) { return "After" + std::to_string(row.param.edits) + "Edits"; });

TEST(UndoRingTest, UndoWithNoEditYetDoesNothing)
{
    UndoRing ring;
    EXPECT_TRUE(ring.Undo().isNull());
    EXPECT_EQ(ring.UndoCount(), 0);
}

TEST(UndoRingTest, TheFifthEditTakesTheFirstSlotAndTheCountGoesOn)
{
    const UndoRing ring = After(5);
    EXPECT_EQ(ring.UndoSlot(), 1);
    EXPECT_EQ(ring.UndoCount(), 5);
}

TEST(UndoRingTest, AnUndoLeavesTheSlotSoANewEditGoesOneAboveTheOneReadNext)
{
    UndoRing ring = After(2);
    EXPECT_EQ(Undone(ring), 2);
    EXPECT_EQ(ring.UndoSlot(), 2);
    ring.CopyLast(Before(3));
    EXPECT_EQ(ring.UndoSlot(), 3);
    EXPECT_EQ(Undone(ring), 2) << "slot 2, not the newest in slot 3";
}

TEST(UndoRingTest, WithAllUndoneTheFirstSlotComesBackAndANewEditReplacesIt)
{
    UndoRing ring = After(1);
    Undone(ring);
    EXPECT_EQ(Undone(ring), 1);
    ring.CopyLast(Before(2));
    EXPECT_EQ(ring.UndoSlot(), 1);
    EXPECT_EQ(Undone(ring), 2);
}

TEST(UndoRingTest, AnUndoBeforeTheLastOneIsCountedGivesTheSamePicture)
{
    UndoRing ring = After(3);
    EXPECT_EQ(EditOf(ring.Undo()), 3);
    EXPECT_EQ(ring.UndoCount(), 3);
    EXPECT_EQ(Undone(ring), 3);
    ring.CountUndone();
    EXPECT_EQ(ring.UndoCount(), 1);
}

TEST(UndoRingTest, TheCountNeverFallsBelowNone)
{
    UndoRing ring = After(1);
    ring.Undo();
    ring.CountUndone();
    ring.CountUndone();
    EXPECT_EQ(ring.UndoCount(), 0);
    EXPECT_EQ(ring.UndoSlot(), 0);
}
