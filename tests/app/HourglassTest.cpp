#include "app/Hourglass.h"

#include <QCursor>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

TEST(Hourglass, TheBusyPointerEndsWithItsScope)
{
    {
        const Hourglass hourglass;
        EXPECT_EQ(CurrentPointer(), Pointer::Busy);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST(Hourglass, ThePointersHaveTheirNumbers)
{
    EXPECT_EQ(int(Pointer::Normal), 0);
    EXPECT_EQ(int(Pointer::Busy), 11);
    EXPECT_EQ(int(Pointer::ArrowWithHourglass), 13);
}

TEST(Hourglass, SettingAPointerReplacesTheOneBefore)
{
    SetPointer(Pointer::Busy);
    SetPointer(Pointer::ArrowWithHourglass);
    EXPECT_EQ(CurrentPointer(), Pointer::ArrowWithHourglass);
    SetPointer(Pointer::Normal);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST(Hourglass, AQuestionIsAskedWithTheNormalPointer)
{
    const Hourglass hourglass;
    {
        const PointerPause pause;
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    }
    EXPECT_EQ(CurrentPointer(), Pointer::Busy);
}

} // namespace

TEST(PointerPause, APointerSetWhileTheUserIsAskedStays)
{
    SetPointer(Pointer::Busy);
    {
        const PointerPause pause;
        SetPointer(Pointer::Normal); // what was waited for is there
    }
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST(PointerPause, AQuestionInsideAQuestionLeavesTheHourglassToComeBack)
{
    SetPointer(Pointer::Busy);
    {
        const PointerPause outer;
        {
            const PointerPause inner;
        }
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    }
    EXPECT_EQ(CurrentPointer(), Pointer::Busy);
    SetPointer(Pointer::Normal);
}
