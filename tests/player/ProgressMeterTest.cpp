#include "media/player/ProgressMeter.h"

#include <QTest>
#include <gtest/gtest.h>

using player::ProgressMeter;

class ProgressMeterTest : public testing::Test {
protected:
    int reports_ = 0;
    ProgressMeter meter_ { [this] { ++reports_; } };
};

TEST_F(ProgressMeterTest, TheFirstOfferIsReportedAtOnce)
{
    meter_.Offer();
    EXPECT_EQ(reports_, 1);
}

TEST_F(ProgressMeterTest, AStormOfOffersIsOneLateReport)
{
    for (int i = 0; i < 50; ++i)
        meter_.Offer();
    EXPECT_EQ(reports_, 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return reports_ == 2; }));
}

TEST_F(ProgressMeterTest, WhatIsForcedIsReportedEachTime)
{
    for (int i = 0; i < 5; ++i)
        meter_.Force();
    EXPECT_EQ(reports_, 5);
}

TEST_F(ProgressMeterTest, AForcedReportTakesTheWaitingOneWithIt)
{
    meter_.Offer();
    meter_.Offer();
    meter_.Force();
    int lateReports = 0;
    ProgressMeter later([&] { ++lateReports; });
    later.Offer();
    later.Offer();
    ASSERT_TRUE(QTest::qWaitFor([&] { return lateReports == 2; }));
    EXPECT_EQ(reports_, 2);
}
