// Pictures that move: counted without decoding, decoded apart from the program.
#include "imaging/Animation.h"

#include "imaging/ConfinedReader.h"
#include "imaging/PictureError.h"
#include "imaging/PictureFile.h"
#include "tests/testing/MovingGif.h"

#include <gtest/gtest.h>

using namespace imaging;
using namespace std::chrono_literals;

namespace {

constexpr QSize Size { 20, 10 };
constexpr QRect Whole { 0, 0, 20, 10 };

class AnimationTest : public testing::Test {
protected:
    static void SetUpTestSuite() { PictureFile::Initialise(); }
    const QByteArray three =
        MovingGif(Size).Page(Whole, 1, 20).Page({ 5, 2, 4, 3 }, 2, 0).Page({ 6, 3, 1, 1 }, 3, 30'000).File();
};

} // namespace

TEST_F(AnimationTest, PagesAreCountedWithoutDecodingThem)
{
    EXPECT_EQ(PagesOf(three), 3);
    EXPECT_EQ(PagesOf(MovingGif(Size).Page(Whole, 1, 0).File()), 1);
}

TEST_F(AnimationTest, EveryOtherFileHasOnePage)
{
    EXPECT_EQ(PagesOf({}), 1);
    EXPECT_EQ(PagesOf("GIF89a"), 1);
    QImage picture(Size, QImage::Format_BGR888);
    picture.fill(Qt::red);
    EXPECT_EQ(PagesOf(PictureFile::Encode(picture, Png, 24, 0).Joined()), 1);
    EXPECT_EQ(PagesOf(PictureFile::Encode(picture, Gif, 8, 0).Joined()), 1);
}

TEST_F(AnimationTest, OfAFileThatIsCutOffOrDamagedTheWholePagesCount)
{
    for (qsizetype size = 0; size < three.size(); ++size) {
        const int pages = PagesOf(three.left(size));
        EXPECT_GE(pages, 1);
        EXPECT_LE(pages, 3);
    }
    for (qsizetype at = 13; at < three.size(); ++at) {
        QByteArray damaged = three;
        damaged[at] = char(0xFF);
        EXPECT_GE(PagesOf(damaged), 1);
    }
}

TEST_F(AnimationTest, EachPageIsThePictureAsItIsToBeSeenAndForHowLong)
{
    const std::vector<Page> pages = DecodePagesConfined(three, [] {}).decoded;
    ASSERT_EQ(pages.size(), 3U);
    for (const Page& page : pages) {
        EXPECT_EQ(page.picture.size(), Size);
        EXPECT_EQ(page.picture.pixelColor(0, 0), QColor(Qt::red));
    }
    EXPECT_EQ(pages[0].picture.pixelColor(6, 3), QColor(Qt::red));
    EXPECT_EQ(pages[1].picture.pixelColor(6, 3), QColor(Qt::green));
    EXPECT_EQ(pages[2].picture.pixelColor(6, 3), QColor(Qt::blue));
    EXPECT_EQ(pages[2].picture.pixelColor(5, 2), QColor(Qt::green)) << "over the page before";
    EXPECT_EQ(pages[0].time, 200ms);
    EXPECT_EQ(pages[1].time, 100ms) << "a page without a time is seen all the same";
    EXPECT_EQ(pages[2].time, 60s) << "and none for ever";
}

TEST_F(AnimationTest, WhatTheMemoryDoesNotTakeIsLeftAtTheEndAndCountedAllTheSame)
{
    constexpr int many = 1030; // more than are ever decoded
    constexpr QRect dot { 0, 0, 1, 1 };
    MovingGif gif(dot.size());
    for (int page = 0; page < many; ++page)
        gif.Page(dot, page % 2 ? 3 : 1, 2);
    const Pages pages = DecodePagesConfined(gif.File(), [] {});
    EXPECT_EQ(pages.decoded.size(), 1024U);
    EXPECT_EQ(pages.inFile, many);
    EXPECT_EQ(pages.decoded[1].picture.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(DecodePagesConfined(three, [] {}).inFile, 3);
}

TEST_F(AnimationTest, APictureOfAnotherKindIsItsOnePage)
{
    QImage picture(Size, QImage::Format_BGR888);
    picture.fill(Qt::blue);
    const std::vector<Page> pages =
        DecodePagesConfined(PictureFile::Encode(picture, Bmp, 24, 0).Joined(), [] {}).decoded;
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0].picture.convertToFormat(QImage::Format_BGR888), picture);
}

TEST_F(AnimationTest, NotAPictureIsRefused)
{
    EXPECT_THROW(DecodePagesConfined("text", [] {}), PictureError);
    EXPECT_THROW(DecodePagesConfined(three.left(40), [] {}), PictureError);
}

TEST_F(AnimationTest, OnlyAPictureWithMorePagesIsMarkedAsMoving)
{
    const QImage moving = DecodeConfined(three, [] {});
    EXPECT_TRUE(IsAnimated(moving));
    EXPECT_TRUE(IsAnimated(PictureFile::Decode(three)));
    EXPECT_TRUE(IsAnimated(QImage(moving))) << "wherever it is shared to";
    EXPECT_FALSE(IsAnimated(DecodeConfined(MovingGif(Size).Page(Whole, 1, 0).File(), [] {})));
    EXPECT_FALSE(IsAnimated({}));
}
