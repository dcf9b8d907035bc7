#include "media/CaptionBytes.h"

#include <gtest/gtest.h>

namespace media {

namespace {

QByteArray Hex(const char* text)
{
    return QByteArray::fromHex(text);
}

Bytes BytesOf(const QByteArray& array)
{
    return { reinterpret_cast<const uint8_t*>(array.constData()), size_t(array.size()) };
}

QByteArray InSei(const char* hex)
{
    return CaptionsInSei(BytesOf(Hex(hex)));
}

QByteArray InUserData(const char* hex)
{
    return CaptionsInUserData(BytesOf(Hex(hex)));
}

} // namespace

TEST(CaptionBytes, TheTripletsOfASeiMessageAreFound)
{
    EXPECT_EQ(InSei("04 11 b50031 47413934 03 42 ff fc9420 fd8080 ff 80"), Hex("fc9420fd8080"));
}

TEST(CaptionBytes, MessagesOfOtherKindsArePassedOver)
{
    EXPECT_EQ(InSei("01 02 aabb 04 0e b50031 47413934 03 41 ff fc9420 ff 80"), Hex("fc9420"));
    EXPECT_EQ(InSei("04 05 b500310000 80"), QByteArray());
}

TEST(CaptionBytes, TheEscapesOfTheUnitAreTakenOut)
{
    EXPECT_EQ(InSei("04 11 b50031 47413934 03 42 ff fc0000 03 01 0000 ff 80").left(6), Hex("fc0000010000"));
}

TEST(CaptionBytes, ASeiCutShortGivesTheWholeTripletsThatAreLeft)
{
    EXPECT_EQ(InSei("04 ff 20 b50031 47413934 03 5f ff fc9420 fd80"), Hex("fc9420"));
    EXPECT_EQ(InSei("04 ff ff"), QByteArray());
    EXPECT_EQ(InSei(""), QByteArray());
}

TEST(CaptionBytes, UserDataOfAPictureIsFoundBehindItsHeaders)
{
    EXPECT_EQ(
        InUserData("000001 00 1234 000001 b5 8888 000001 b2 47413934 03 42 ff fc9420 fd8080 ff 000001 01 55"),
        Hex("fc9420fd8080"));
}

TEST(CaptionBytes, WhatLooksLikeUserDataInThePictureItselfIsNone)
{
    EXPECT_EQ(InUserData("000001 00 1234 000001 01 55 000001 b2 47413934 03 41 ff fc9420 ff"), QByteArray());
}

TEST(CaptionBytes, UserDataThatSaysItHasNoCaptionsHasNone)
{
    EXPECT_EQ(InUserData("000001 b2 47413934 03 02 ff fc9420 fd8080 ff"), QByteArray());
    EXPECT_EQ(InUserData("000001 b2 44544731 41 ff"), QByteArray());
}

TEST(CaptionBytes, TheFieldsOfADiscGoByTurnsWhateverTheyAreMarkedAs)
{
    EXPECT_EQ(InUserData("000001 b8 00 000001 b2 4343 01 f8 9e ff9420 ff8080 ff9421 fe8081 000001 00 12"),
        Hex("fc9420fd8080fc9421fd8081"));
    EXPECT_EQ(InUserData("000001 b2 4343 01 f8 1e ff8080 ff9420 00"), Hex("fd8080fc9420"));
}

} // namespace media
