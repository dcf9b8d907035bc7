#include "edit/NewSize.h"

#include <gtest/gtest.h>

using enum NewSize::Side;

namespace {

void TypeKeys(NewSize& size, NewSize::Side side, const QString& keys)
{
    for (qsizetype typed = 1; typed <= keys.size(); ++typed)
        size.Type(side, keys.left(typed));
}

} // namespace

TEST(NewSizeTest, TheBarsGoFromOneToTheWidestPictureAndItsHeight)
{
    const NewSize size({ 640, 480 });
    EXPECT_EQ(size.BarOf(Width).minimum, 1);
    EXPECT_EQ(size.BarOf(Width).maximum, 16384);
    EXPECT_EQ(size.BarOf(Height).minimum, 1);
    EXPECT_EQ(size.BarOf(Height).maximum, 12288);
    EXPECT_EQ(size.BarOf(Width).value, 640);
    EXPECT_EQ(size.BoxOf(Height), QStringLiteral("480"));
}

TEST(NewSizeTest, AHighPicturesBarEndsAt32767)
{
    EXPECT_EQ(NewSize({ 100, 3000 }).BarOf(Height).maximum, 32767);
}

TEST(NewSizeTest, WithTheRatioOnTheHeightFollowsTheWidth)
{
    NewSize size({ 640, 480 });
    size.MoveBar(Width, 320);
    EXPECT_EQ(size.BarOf(Height).value, 240);
    EXPECT_EQ(size.BoxOf(Width), QStringLiteral("320"));
    EXPECT_EQ(size.BoxOf(Height), QStringLiteral("240"));
    size.Type(Height, QStringLiteral("120"));
    EXPECT_EQ(size.BarOf(Width).value, 160);
    EXPECT_EQ(size.BoxOf(Width), QStringLiteral("160"));
}

TEST(NewSizeTest, WithTheRatioOffTheHeightStays)
{
    NewSize size({ 640, 480 });
    size.SetKeepsAspect(false);
    size.MoveBar(Width, 320);
    size.Type(Width, QStringLiteral("321"));
    EXPECT_EQ(size.BarOf(Height).value, 480);
    EXPECT_EQ(size.BarOf(Width).value, 321);
}

TEST(NewSizeTest, WhatIsTypedStandsWhereTheOtherSideCannotMatchItExactly)
{
    NewSize size({ 1920, 1080 });
    TypeKeys(size, Width, QStringLiteral("1000"));
    EXPECT_EQ(size.BoxOf(Width), QStringLiteral("1000"));
    EXPECT_EQ(size.BarOf(Width).value, 1000);
    EXPECT_EQ(size.BarOf(Height).value, 563);
}

TEST(NewSizeTest, AHeightOutsideItsBarIsNotTaken)
{
    NewSize size({ 3000, 10 });
    size.MoveBar(Width, 1); // a third of a hundredth of a pixel
    EXPECT_EQ(size.BarOf(Height).value, 10);
}

TEST(NewSizeTest, AnEmptiedBoxMovesNothingAndIsNotAccepted)
{
    NewSize size({ 640, 480 });
    size.Type(Width, QString());
    EXPECT_EQ(size.BarOf(Width).value, 640);
    EXPECT_EQ(size.BarOf(Height).value, 480);
    EXPECT_FALSE(size.IsAcceptable());
    size.MoveBar(Width, 320);
    EXPECT_EQ(size.BoxOf(Width), QStringLiteral("320"));
    EXPECT_TRUE(size.IsAcceptable());
}

TEST(NewSizeTest, WordsMoveNothingAndAreNotAccepted)
{
    NewSize size({ 640, 480 });
    size.Type(Height, QStringLiteral("tall"));
    EXPECT_EQ(size.BarOf(Height).value, 480);
    EXPECT_FALSE(size.IsAcceptable());
}

TEST(NewSizeTest, ANumberBeyondTheBarMovesNothingAndBecomes32767WhenAccepted)
{
    NewSize size({ 640, 480 });
    TypeKeys(size, Width, QStringLiteral("40000"));
    EXPECT_EQ(size.BarOf(Width).value, 4000) << "the last one in the range";
    EXPECT_TRUE(size.HoldBoxes());
    EXPECT_EQ(size.BoxOf(Width), QStringLiteral("32767"));
    EXPECT_EQ(size.BarOf(Width).value, 16384);
    EXPECT_EQ(size.BarOf(Height).value, 3000) << "as the last number of the range left it";
    EXPECT_FALSE(size.IsAcceptable()) << "32767 is above the bar's end";
}

TEST(NewSizeTest, NumbersOfTheRangeAreLeftAloneWhenAccepted)
{
    NewSize size({ 640, 480 });
    EXPECT_FALSE(size.HoldBoxes());
    EXPECT_TRUE(size.IsAcceptable());
}

TEST(NewSizeTest, ClickingTheRatioOffResetsTheHeightOnce)
{
    NewSize size({ 640, 480 });
    size.SetKeepsAspect(false);
    size.MoveBar(Height, 100);
    size.Recouple();
    EXPECT_EQ(size.BarOf(Height).value, 480);
    EXPECT_EQ(size.BarOf(Width).value, 640);
}
