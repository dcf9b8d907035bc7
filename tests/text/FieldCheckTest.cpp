#include "text/FieldCheck.h"

#include <gtest/gtest.h>
#include <limits>

using namespace FieldCheck;

TEST(FieldCheck, TheNumberIsWhatTheTextBeginsWith)
{
    const struct {
        const char* text;
        int number;
    } cases[] = { { "12", 12 }, { " 7 ", 7 }, { "-1", -1 }, { "+5", 5 }, { "30 degrees", 30 }, { "12.9", 12 },
        { "", 0 }, { "-", 0 }, { "abc", 0 }, { "99999999999", std::numeric_limits<int>::max() },
        { "-99999999999", std::numeric_limits<int>::min() } };
    for (const auto& each : cases)
        EXPECT_EQ(NumberIn(QLatin1String(each.text)), each.number) << each.text;
}

TEST(FieldCheck, OnlyANumberOutOfBoundsIsPutBack)
{
    const struct {
        const char* typed;
        const char* held;
    } cases[] = { { "361", "360" }, { "360", "360" }, { "0", "0" }, { "-1", "0" }, { "-", "-" }, { "", "" },
        { "abc", "abc" }, { "007", "007" }, { "99999999999", "360" } };
    for (const auto& each : cases)
        EXPECT_EQ(Within(QLatin1String(each.typed), 360), QLatin1String(each.held)) << each.typed;
}
