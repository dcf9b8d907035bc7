#include "toolkit/MessageTable.h"

#include <gtest/gtest.h>

namespace {

MessageTable TableOf(std::initializer_list<qint32> messages)
{
    MessageTable table;
    for (const qint32 message : messages)
        table.Add(message);
    return table;
}

} // namespace

TEST(MessageTable, ANewOneLetsNothingPass)
{
    const MessageTable table;
    EXPECT_EQ(table.Count(), 0);
    EXPECT_FALSE(table.Lets(5));
    EXPECT_FALSE(table.Lets(MessageTable::AllMessages));
}

TEST(MessageTable, EachMessageAddedGrowsItByOneSlot)
{
    const MessageTable table = TableOf({ 71, 5, 24 });
    EXPECT_EQ(table.Count(), 3);
    for (const qint32 message : { 71, 5, 24 })
        EXPECT_TRUE(table.Lets(message)) << message;
    EXPECT_FALSE(table.Lets(532));
}

TEST(MessageTable, AMessageAlreadyListedLeavesItUnchanged)
{
    MessageTable table = TableOf({ 71, 5 });
    table.Add(71);
    EXPECT_EQ(table.Count(), 2);
    table.Delete(71);
    EXPECT_FALSE(table.Lets(71));
}

TEST(MessageTable, ADeletedMessageLeavesItsSlotWhichTheNextNewOneTakes)
{
    MessageTable table = TableOf({ 71, 5, 24 });
    table.Delete(5);
    EXPECT_EQ(table.Count(), 3);
    EXPECT_FALSE(table.Lets(5));
    table.Add(126);
    EXPECT_EQ(table.Count(), 3);
    EXPECT_TRUE(table.Lets(126));
    table.Add(794);
    EXPECT_EQ(table.Count(), 4);
}

TEST(MessageTable, AFreeSlotIsNoMessageOfItsOwn)
{
    MessageTable table = TableOf({ 71 });
    table.Delete(71);
    EXPECT_EQ(table.Count(), 1);
    EXPECT_FALSE(table.Lets(71));
}

TEST(MessageTable, AFreeSlotBeforeAListedMessageTakesItOnceMore)
{
    MessageTable table = TableOf({ 71, 5 });
    table.Delete(71);
    table.Add(5);
    table.Delete(5);
    EXPECT_TRUE(table.Lets(5));
    table.Delete(5);
    EXPECT_FALSE(table.Lets(5));
    EXPECT_EQ(table.Count(), 2);
}

TEST(MessageTable, AllMessagesPassOnceAskedFor)
{
    MessageTable table;
    table.Add(MessageTable::AllMessages);
    EXPECT_EQ(table.Count(), -1);
    EXPECT_TRUE(table.Lets(1));
    EXPECT_TRUE(table.Lets(794));
}

TEST(MessageTable, ASingleMessageAddedEndsTheStateOfAllMessages)
{
    MessageTable table;
    table.Add(MessageTable::AllMessages);
    table.Add(71);
    EXPECT_EQ(table.Count(), 1);
    EXPECT_TRUE(table.Lets(71));
    EXPECT_FALSE(table.Lets(5));
}

TEST(MessageTable, DeletingASingleMessageDoesNotEndTheStateOfAllMessages)
{
    MessageTable table = TableOf({ 71 });
    table.Add(MessageTable::AllMessages);
    table.Delete(71);
    EXPECT_EQ(table.Count(), -1);
    EXPECT_TRUE(table.Lets(71));
}

TEST(MessageTable, DeletingAllMessagesLetsNothingPass)
{
    for (const qint32 message : { 71, MessageTable::AllMessages }) {
        MessageTable table = TableOf({ message });
        table.Delete(MessageTable::AllMessages);
        EXPECT_EQ(table.Count(), 0);
        EXPECT_FALSE(table.Lets(71));
    }
}

TEST(MessageTable, TheArrayKeepsItsContentsWhenItGrowsAfterACountOfNothingOrAll)
{
    for (const bool all : { false, true }) {
        MessageTable table = TableOf({ 71 });
        if (all)
            table.Add(MessageTable::AllMessages);
        else
            table.Delete(MessageTable::AllMessages);
        table.Add(5);
        EXPECT_EQ(table.Count(), 2);
        EXPECT_TRUE(table.Lets(71));
        EXPECT_FALSE(table.Lets(24));
    }
}

TEST(MessageTable, ACleanOneHasForgottenItsSlots)
{
    MessageTable table = TableOf({ 71, 5 });
    table.Clear();
    table.Add(24);
    EXPECT_EQ(table.Count(), 1);
    EXPECT_FALSE(table.Lets(71));
}
