#include "app/SettingValue.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace SettingValue;

TEST(SettingValue, BooleansAreWords)
{
    EXPECT_EQ(Text(true), QStringLiteral("True"));
    EXPECT_EQ(Text(false), QStringLiteral("False"));
    EXPECT_EQ(Parse<bool>(QStringLiteral("true")), true);
    EXPECT_EQ(Parse<bool>(QStringLiteral("False")), false);
    EXPECT_EQ(Parse<bool>(QStringLiteral("perhaps")), std::nullopt);
}

TEST(SettingValue, IntegersHaveSixteenBits)
{
    EXPECT_EQ(Text(qint16(-7)), QStringLiteral("-7"));
    EXPECT_EQ(Parse<qint16>(QStringLiteral("32767")), 32767);
    EXPECT_EQ(Parse<qint16>(QStringLiteral("32768")), std::nullopt);
    EXPECT_EQ(Parse<qint16>(QStringLiteral("ten")), std::nullopt);
    EXPECT_EQ(Parse<qint16>(QString()), std::nullopt);
}

TEST(SettingValue, LongsHaveThirtyTwoBits)
{
    EXPECT_EQ(Parse<qint32>(QStringLiteral("16777215")), 16777215);
    EXPECT_EQ(Parse<qint32>(QStringLiteral("99999999999")), std::nullopt);
}

TEST(SettingValue, FloatsComeBackAsTheyWere)
{
    for (const float value : { 40.0F, 0.1F, 12.5F, -3.0F, 1e9F })
        EXPECT_EQ(Parse<float>(Text(value)), value);
    EXPECT_EQ(Text(40.0F), QStringLiteral("40"));
    EXPECT_EQ(Text(0.1F), QStringLiteral("0.1"));
    for (const char* text : { "nan", "inf", "1e99", "wide", "1,5" })
        EXPECT_EQ(Parse<float>(QString::fromLatin1(text)), std::nullopt) << text;
}

TEST(SettingValue, FloatsAreDecimalTextHoweverLargeOrSmall)
{
    using Limits = std::numeric_limits<float>;
    EXPECT_EQ(Text(100000.0F), QStringLiteral("100000"));
    EXPECT_EQ(Text(1e-5F), QStringLiteral("0.00001"));
    for (const float value :
        { Limits::max(), Limits::lowest(), Limits::min(), -Limits::denorm_min(), -1.17549435e-38F }) {
        EXPECT_FALSE(Text(value).contains(u'e')) << value;
        EXPECT_EQ(Parse<float>(Text(value)), value);
    }
}

TEST(SettingValue, NumbersAreTheSameInEveryLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(Text(12.5F), QStringLiteral("12.5"));
    EXPECT_EQ(Parse<float>(QStringLiteral("12.5")), 12.5F);
    EXPECT_EQ(Text(qint32(1234567)), QStringLiteral("1234567"));
    QLocale::setDefault(before);
}

} // namespace
