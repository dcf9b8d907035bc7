#include "media/PacketStore.h"

#include <gtest/gtest.h>

namespace media {

namespace {

PacketPtr PacketOf(int bytes)
{
    PacketPtr packet(av_packet_alloc());
    av_new_packet(packet.get(), bytes);
    return packet;
}

} // namespace

TEST(PacketStore, OffersBeyondTheLimitAreDeclined)
{
    PacketStore store(100);
    store.Offer(0, *PacketOf(60));
    store.Offer(1, *PacketOf(60));
    EXPECT_TRUE(store.Find(0));
    EXPECT_FALSE(store.Find(1));
}

TEST(PacketStore, WhatIsPutDrivesOutTheFarthest)
{
    PacketStore store(100);
    store.Offer(0, *PacketOf(40));
    store.Offer(50, *PacketOf(40));
    store.Put(51, *PacketOf(40));
    EXPECT_FALSE(store.Find(0));
    EXPECT_TRUE(store.Find(50));
    EXPECT_TRUE(store.Find(51));
    EXPECT_EQ(store.Bytes(), 80);
}

TEST(PacketStore, ThePacketAtHandIsKeptHoweverLarge)
{
    PacketStore store(0);
    store.Put(3, *PacketOf(1000));
    store.Put(4, *PacketOf(1000));
    EXPECT_FALSE(store.Find(3));
    EXPECT_TRUE(store.Find(4));
}

TEST(PacketStore, APacketPutTwiceCountsOnce)
{
    PacketStore store(100);
    store.Put(3, *PacketOf(40));
    store.Put(3, *PacketOf(40));
    EXPECT_EQ(store.Bytes(), 40);
}

} // namespace media
