#include "media/player/FactSheet.h"

#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;
using player::FactSheet;

namespace {

constexpr auto Forever = 1h; // no test may take so long

} // namespace

TEST(FactSheetTest, TheNewestFactsAreRead)
{
    FactSheet sheet;
    EXPECT_EQ(sheet.Read().frames, 0);
    sheet.Write({ 12, false, 4, QSize(320, 240) });
    EXPECT_EQ(sheet.Read().frames, 12);
    EXPECT_EQ(sheet.Read().size, QSize(320, 240));
}

TEST(FactSheetTest, WaitingEndsWithTheWholeIndex)
{
    FactSheet sheet;
    std::thread engine([&] {
        for (int frames = 1; frames < 100; ++frames)
            sheet.Write({ frames, false, 4, {} });
        sheet.Write({ 100, true, 4, {} });
    });
    EXPECT_EQ(sheet.Await(Forever).frames, 100);
    engine.join();
}

TEST(FactSheetTest, WaitingEndsWhenTheTimeIsUp)
{
    FactSheet sheet;
    sheet.Write({ 12, false, 4, {} });
    EXPECT_EQ(sheet.Await(1ms).frames, 12);
}
