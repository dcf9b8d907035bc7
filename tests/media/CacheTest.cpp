#include "media/DecodedFrame.h"
#include "media/FrameServer.h"
#include "media/PictureCache.h"
#include "tests/media/Opened.h"

#include <gtest/gtest.h>

namespace media {

namespace {

Picture PictureOf(int number)
{
    auto decoded = std::make_shared<DecodedFrame>();
    decoded->memory = std::make_shared<PictureMemory>();
    decoded->frame.reset(av_frame_alloc());
    decoded->frame->format = AV_PIX_FMT_GRAY8;
    decoded->frame->width = decoded->frame->height = 64;
    av_frame_get_buffer(decoded->frame.get(), 0);
    return { decoded, number };
}

} // namespace

TEST(PictureCache, NeverHoldsMoreBytesThanItsLimit)
{
    const qsizetype one = PictureOf(0).Bytes();
    PictureCache cache(3 * one);
    for (int number = 0; number < 10; ++number) {
        cache.Put(PictureOf(number));
        EXPECT_LE(cache.Bytes(), cache.Limit());
    }
    EXPECT_TRUE(cache.Find(6).IsNull());
    EXPECT_FALSE(cache.Find(7).IsNull());
}

TEST(PictureCache, WhatWasUsedLongestAgoGoesFirst)
{
    PictureCache cache(2 * PictureOf(0).Bytes());
    cache.Put(PictureOf(1));
    cache.Put(PictureOf(2));
    cache.Use(1);
    cache.Put(PictureOf(3));
    EXPECT_FALSE(cache.Find(1).IsNull());
    EXPECT_TRUE(cache.Find(2).IsNull());
}

TEST(PictureCache, APictureLargerThanTheLimitIsNotKept)
{
    PictureCache cache(10);
    cache.Put(PictureOf(1));
    EXPECT_EQ(cache.Bytes(), 0);
    EXPECT_TRUE(cache.Find(1).IsNull());
}

TEST(FrameServer, OneStepBackKeepsTheWholeGroupForTheStepsThatFollow)
{
    const Opened opened("h264_closed.mp4");
    opened->Get(99, Purpose::Jump);
    opened->Get(98, Purpose::Step);
    for (int number = 75; number < 98; ++number)
        EXPECT_FALSE(opened->Cached(number).IsNull()) << number;
}

TEST(FrameServer, PreparedPicturesTakeTheRoomOfThoseThatWerePassed)
{
    const qsizetype one = Opened("h264_closed.mp4")->Get(0, Purpose::Jump).Bytes();
    const Opened opened("h264_closed.mp4", { .pictures = 24 * one });
    int next = opened->Get(70, Purpose::Step).Number();
    while (!opened->Cached(next).IsNull())
        --next;
    while (!opened->Prepare(next, Interrupt::Clock::now())) { }
    const int reserve = opened->Reserve();
    EXPECT_EQ(reserve, 6);
    for (int number = next - 15; number <= next + reserve; ++number)
        EXPECT_FALSE(opened->Cached(number).IsNull()) << number;
}

TEST(FrameServer, PlayedPicturesAreAtHandForAStepBack)
{
    const Opened opened("h264_closed.mp4");
    for (int number = 0; number < 60; ++number)
        opened->Get(number, Purpose::Play);
    EXPECT_FALSE(opened->Cached(58).IsNull());
}

TEST(FrameServer, AJumpKeepsItsPictureAlone)
{
    const Opened opened("h264_closed.mp4");
    opened->Get(60, Purpose::Jump);
    EXPECT_FALSE(opened->Cached(60).IsNull());
    EXPECT_TRUE(opened->Cached(55).IsNull());
}

TEST(FrameServer, LookingIntoTheCacheNeverDecodes)
{
    const Opened opened("h264_closed.mp4");
    opened->Get(60, Purpose::Jump);
    opened.interrupt->Raise(); // decoding would fail now
    EXPECT_TRUE(opened->Cached(50).IsNull());
    EXPECT_FALSE(opened->Cached(60).IsNull());
}

TEST(FrameServer, AWalkEndsWhenTheTakerHasEnough)
{
    const Opened opened("h264_closed.mp4");
    std::vector<int> taken;
    opened->Walk({ 3, 30, 60 }, [&](const Picture& picture) {
        taken.push_back(picture.Number());
        return taken.size() < 2;
    });
    EXPECT_EQ(taken, (std::vector { 3, 30 }));
}

TEST(FrameServer, APictureBeyondTheEndIsAnError)
{
    const Opened opened("one_frame.mp4");
    EXPECT_THROW(opened->Get(1, Purpose::Jump), MediaError);
    EXPECT_THROW(opened->Get(-1, Purpose::Jump), MediaError);
}

TEST(FrameServer, ARaisedInterruptEndsACallAndTheNextOneWorks)
{
    const Opened opened("h264_longgop.mp4");
    opened.interrupt->SetDeadline(Interrupt::Clock::now() - std::chrono::seconds(1));
    try {
        opened->Get(299, Purpose::Jump);
        FAIL() << "no deadline kept";
    } catch (const MediaError& error) {
        EXPECT_EQ(error.failure, Failure::TimedOut);
    }
    opened.interrupt->ClearDeadline();
    EXPECT_EQ(opened->Get(299, Purpose::Jump).Number(), 299);
}

} // namespace media
