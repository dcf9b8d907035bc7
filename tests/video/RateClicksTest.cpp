#include "video/RateClicks.h"

#include <gtest/gtest.h>

namespace {

/// The rates that a series of clicks leads to; a click that goes back to 1 asks for none.
std::vector<double> Series(std::optional<double> (RateClicks::*click)(double), int clicks)
{
    RateClicks counters;
    std::vector<double> rates;
    double rate = 1;
    for (int i = 0; i < clicks; ++i)
        rates.push_back(rate = (counters.*click)(rate).value_or(1.0));
    return rates;
}

} // namespace

TEST(RateClicks, FiveIncreasesLeadToFiveAndTheSixthBackToOne)
{
    EXPECT_EQ(Series(&RateClicks::Increase, 7), (std::vector<double> { 1, 2, 3, 4, 5, 1, 2 }));
}

TEST(RateClicks, TheSixthIncreaseAsksForNoRateAndIsNotTested)
{
    RateClicks counters;
    for (int i = 0; i < 5; ++i)
        counters.Increase(1);
    EXPECT_EQ(counters.Increase(5), std::nullopt);
}

TEST(RateClicks, NineDecreasesGoDownByTenthsAndTheTenthBackToOne)
{
    const auto rates = Series(&RateClicks::Decrease, 10);
    for (size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(rates[i], 1.0 - 0.1 * double(i), 1e-9);
    EXPECT_EQ(rates[9], 1.0);
}
