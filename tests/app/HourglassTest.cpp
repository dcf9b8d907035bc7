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
