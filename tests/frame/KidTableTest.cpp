#include "frame/KidTable.h"

#include "app/ApplicationState.h"

#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class KidTableTest : public testing::Test {
protected:
    QTemporaryDir folder;
    ApplicationState state { folder.path(), folder.path() };
    KidTable kids { state };
    int removed = 0;

    void Open(quintptr handle)
    {
        ++state.KidCount;
        kids.RedimKids();
        EXPECT_EQ(kids.AddKid(handle), 0);
    }
    void Close(quintptr handle)
    {
        EXPECT_EQ(kids.RemoveKid(handle, [this] { ++removed; }), 0);
        --state.KidCount;
    }
};

} // namespace

TEST_F(KidTableTest, TheUpperBoundIsTheCount)
{
    Open(11);
    Open(12);
    EXPECT_EQ(state.Kids, (std::vector<quintptr> { 11, 12, 0 }));
}

TEST_F(KidTableTest, AnUnknownHandleAndTheFirstSlotLookAlike)
{
    Open(11);
    Open(12);
    EXPECT_EQ(kids.FindKid(11), 0);
    EXPECT_EQ(kids.FindKid(12), 1);
    EXPECT_EQ(kids.FindKid(99), 0);
}

TEST_F(KidTableTest, ANewKidTakesTheThirdOnesSlotAndTheHoleStays)
{
    Open(11);
    Open(12);
    Open(13);
    Close(11);
    Open(14);
    EXPECT_EQ(state.KidCount, 3);
    EXPECT_EQ(state.Kids, (std::vector<quintptr> { 0, 12, 14, 0 }));
}

TEST_F(KidTableTest, AKidWhoseSlotWasTakenIsNotFoundAnyMore)
{
    for (const quintptr handle : { 11, 12, 13 })
        Open(handle);
    Close(11);
    Open(14);
    Close(13);
    EXPECT_EQ(removed, 1) << "only the first";
}

TEST_F(KidTableTest, AKidIsBroughtUpByPushingTheOthersBack)
{
    for (const quintptr handle : { 11, 12, 13 })
        Open(handle);
    std::vector<quintptr> stack { 11, 12, 13 }; // the last is on top
    const auto push = [&] { std::rotate(stack.rbegin(), stack.rbegin() + 1, stack.rend()); };
    kids.MakeKidActive(
        0, [&] { return stack.back(); }, push);
    EXPECT_EQ(stack.back(), 11u);
}

TEST_F(KidTableTest, OnAHoleAllGoRoundOnce)
{
    for (const quintptr handle : { 11, 12, 13 })
        Open(handle);
    state.Kids[1] = 0;
    int pushed = 0;
    kids.MakeKidActive(
        1, [] { return quintptr(11); }, [&] { ++pushed; });
    EXPECT_EQ(pushed, 3);
}
