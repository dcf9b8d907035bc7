#include "imaging/FormatTable.h"

#include <QString>
#include <gtest/gtest.h>

namespace {

struct Values {
    int format = -7, quality = -7, bits = -7;
    bool operator==(const Values&) const = default;
};

Values ValuesOf(int index)
{
    Values values;
    imaging::WhatTypeFiles(index, values.format, values.quality, values.bits);
    return values;
}

} // namespace

TEST(WhatTypeFiles, GivesFormatQualityAndBitsOfEachRow)
{
    const Values rows[] = { { 6, 0, 24 }, { 10, 2, 24 }, { 4, 0, 32 }, { 2, 0, 8 }, { 3, 0, 32 },
        { 75, 0, 24 }, { 76, 0, 24 } };
    for (int index = 0; index < 7; ++index)
        EXPECT_EQ(ValuesOf(index), rows[index]) << index;
}

TEST(WhatTypeFiles, LeavesTheValuesForAnIndexOutside)
{
    for (const int index : { -1, 7, 1000 })
        EXPECT_EQ(ValuesOf(index), Values()) << index;
}

TEST(FormatIndex, GoesByTheLastThreeLetters)
{
    int index = 0;
    for (const char* extension : { ".bmp", ".jpg", ".tga", ".gif", ".tif", ".png", ".psd" })
        EXPECT_EQ(imaging::FormatIndex(QString::fromLatin1(extension)), index++) << extension;
    EXPECT_EQ(imaging::FormatIndex(u"holiday.PNG"), 5);
    EXPECT_EQ(imaging::FormatIndex(u".jpeg"), -1);
    EXPECT_EQ(imaging::FormatIndex(u""), -1);
}
