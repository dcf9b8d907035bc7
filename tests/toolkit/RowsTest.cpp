#include "base/Rows.h"

#include <array>
#include <gtest/gtest.h>

namespace {

enum class Id { First, Second, Third };
struct Row {
    Id id;
};

} // namespace

TEST(Rows, OneRowEachInOrderIsAskedFor)
{
    constexpr std::array whole { Row { Id::First }, Row { Id::Second }, Row { Id::Third } };
    constexpr std::array swapped { Row { Id::First }, Row { Id::Third }, Row { Id::Second } };
    constexpr std::array doubled { Row { Id::First }, Row { Id::Second }, Row { Id::Second } };
    constexpr std::array cut { Row { Id::First }, Row { Id::Second } };
    EXPECT_TRUE(IsOneRowEach(whole, &Row::id, 3));
    EXPECT_FALSE(IsOneRowEach(swapped, &Row::id, 3));
    EXPECT_FALSE(IsOneRowEach(doubled, &Row::id, 3));
    EXPECT_FALSE(IsOneRowEach(cut, &Row::id, 3));
}

TEST(Rows, ATableMayBeginAtALaterEnumerator)
{
    constexpr std::array rows { Row { Id::Second }, Row { Id::Third } };
    EXPECT_TRUE(IsOneRowEach(rows, &Row::id, 2, 1));
    EXPECT_FALSE(IsOneRowEach(rows, &Row::id, 2));
}
