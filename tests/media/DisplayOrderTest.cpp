#include "media/DisplayOrder.h"

#include <gmock/gmock.h>

namespace media {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

PacketFact Typed(char type)
{
    PacketFact fact;
    fact.type = type;
    return fact;
}

PacketFact Counted(int order, uint16_t flags = 0)
{
    PacketFact fact;
    fact.order = order;
    fact.flags = flags;
    return fact;
}

PacketFact Stamped(int64_t pts)
{
    PacketFact fact;
    fact.pts = pts;
    return fact;
}

std::vector<int> OrderOfAll(Ordering ordering, const std::vector<PacketFact>& facts)
{
    return OrderOf(ordering, facts, 0, int(facts.size()));
}

} // namespace

TEST(DisplayOrder, PacketsOfACodecWithoutReorderingAreShownAsStored)
{
    EXPECT_THAT(OrderOfAll(Ordering::Straight, { Typed('P'), Typed('I'), Typed('B') }), ElementsAre(0, 1, 2));
}

TEST(DisplayOrder, AReferenceIsShownWhenTheNextOneArrives)
{
    const std::vector<PacketFact> facts { Typed('I'), Typed('P'), Typed('B'), Typed('B'), Typed('P'),
        Typed('B') };
    EXPECT_THAT(OrderOfAll(Ordering::HoldReferences, facts), ElementsAre(0, 2, 3, 1, 5, 4));
}

TEST(DisplayOrder, ASecondFieldDoesNotReleaseTheReferenceBeforeIt)
{
    PacketFact second = Typed('P');
    second.Set(PacketFact::SecondField);
    const std::vector<PacketFact> facts { Typed('I'), second, Typed('P'), Typed('B') };
    std::vector<int> shown = OrderOfAll(Ordering::HoldReferences, facts);
    std::erase_if(shown, [&](int ordinal) { return !facts[size_t(ordinal)].IsShown(); });
    EXPECT_THAT(shown, ElementsAre(0, 3, 2));
}

TEST(DisplayOrder, ASecondFieldTakesNoPlaceInTheOrderOfCounts)
{
    const std::vector<PacketFact> facts { Counted(0, PacketFact::Restart),
        Counted(1, PacketFact::SecondField), Counted(8), Counted(9, PacketFact::SecondField), Counted(4),
        Counted(5, PacketFact::SecondField) };
    std::vector<int> shown = OrderOfAll(Ordering::ByCount, facts);
    std::erase_if(shown, [&](int ordinal) { return !facts[size_t(ordinal)].IsShown(); });
    EXPECT_THAT(shown, ElementsAre(0, 4, 2));
}

TEST(DisplayOrder, CountsAreOrderedBetweenTwoRestarts)
{
    const std::vector<PacketFact> facts { Counted(0, PacketFact::Restart), Counted(8), Counted(4), Counted(2),
        Counted(0, PacketFact::Restart), Counted(4), Counted(2) };
    EXPECT_THAT(OrderOfAll(Ordering::ByCount, facts), ElementsAre(0, 3, 2, 1, 4, 6, 5));
}

TEST(DisplayOrder, LeadingPicturesOfAnOpenGroupAreShownBeforeItsKey)
{
    const std::vector<PacketFact> facts { Counted(0, PacketFact::Restart), Counted(4), Counted(2),
        Counted(10, PacketFact::Key), Counted(6), Counted(8) };
    EXPECT_THAT(OrderOfAll(Ordering::ByCount, facts), ElementsAre(0, 2, 1, 4, 5, 3));
}

TEST(DisplayOrder, APlaceIsGivenOnlyOnceNoLaterPacketCanTakeIt)
{
    DisplayOrder order(Ordering::ByCount);
    std::vector<int> shown;
    for (int i = 0; i < int(DisplayOrder::DeepestReorder); ++i)
        order.Add(i, Counted(100 - i), shown);
    EXPECT_THAT(shown, IsEmpty());
    order.Add(16, Counted(1), shown);
    EXPECT_THAT(shown, ElementsAre(16));
}

TEST(DisplayOrder, StampsThatFallAlongTheOrderDisagree)
{
    EXPECT_FALSE(StampsAgree({ Stamped(0), Stamped(2), Stamped(1) }, { 0, 1, 2 }));
    EXPECT_TRUE(StampsAgree({ Stamped(0), Stamped(2), Stamped(1) }, { 0, 2, 1 }));
}

TEST(DisplayOrder, MissingOrDoubledStampsSayNothing)
{
    EXPECT_TRUE(StampsAgree({ Stamped(5), Stamped(NoStamp), Stamped(1) }, { 0, 1, 2 }));
    EXPECT_TRUE(StampsAgree({ Stamped(5), Stamped(1), Stamped(5) }, { 0, 1, 2 }));
}

TEST(DisplayOrder, AJumpInTheCountsIsAHole)
{
    EXPECT_FALSE(HasHoles({ Counted(0), Counted(4), Counted(2) }, { 0, 2, 1 }));
    EXPECT_TRUE(HasHoles({ Counted(0), Counted(8), Counted(2) }, { 0, 2, 1 }));
}

} // namespace media
