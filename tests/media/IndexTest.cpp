#include "media/PacketIndex.h"
#include "tests/clips/Clips.h"

#include <gtest/gtest.h>

namespace media {

namespace {

constexpr int64_t Room = 1 << 24;
constexpr const char* Awkward[] = { "h264_opengop.ts", "xvid_packed.avi", "ts_discont.ts", "cut_head.ts",
    "editlist.mp4", "h264_longgop.mp4", "vp8_altref.webm", "mpeg2_interlaced.mpg", "lost_packets.mkv",
    "h264_raw.h264" };

Source FileOf(const char* clip)
{
    return { Source::Kind::File, ClipPath(QString::fromUtf8(clip)).toUtf8() };
}

std::vector<int> OrdinalsOf(const PacketIndex& index)
{
    std::vector<int> ordinals;
    for (int number = 0; number < index.Frames(); ++number)
        ordinals.push_back(index.OrdinalOf(number));
    return ordinals;
}

std::vector<int> WholeIndex(const char* clip)
{
    Interrupt interrupt;
    PacketIndex index(FileOf(clip), interrupt, Room);
    while (index.Extend()) { }
    return OrdinalsOf(index);
}

} // namespace

TEST(PacketIndex, ANumberOnceGivenNeverChanges)
{
    for (const char* clip : Awkward) {
        SCOPED_TRACE(clip);
        const std::vector<int> whole = WholeIndex(clip);
        Interrupt interrupt;
        PacketIndex index(FileOf(clip), interrupt, Room);
        while (index.Extend()) {
            const std::vector<int> known = OrdinalsOf(index);
            ASSERT_LE(known.size(), whole.size());
            ASSERT_TRUE(std::equal(known.begin(), known.end(), whole.begin()));
        }
        EXPECT_TRUE(index.IsComplete());
    }
}

TEST(PacketIndex, AReadThatWasBrokenOffIsTakenUpAgain)
{
    for (const char* clip : Awkward) {
        SCOPED_TRACE(clip);
        Interrupt interrupt;
        PacketIndex index(FileOf(clip), interrupt, Room);
        for (int packets = 0; packets < 40; ++packets)
            index.Extend();
        const AVFormatContext* const file = &index.Media().Format();
        interrupt.SetDeadline(Interrupt::Clock::now() - std::chrono::seconds(1));
        EXPECT_THROW(index.Extend(), MediaError);
        interrupt.ClearDeadline();
        index.Extend();
        const bool canSeek = index.Fact(0).dts != NoStamp;
        EXPECT_TRUE(&index.Media().Format() == file || !canSeek) << "opened anew";
        while (index.Extend()) { }
        EXPECT_EQ(OrdinalsOf(index), WholeIndex(clip));
    }
}

TEST(PacketIndex, HoweverOftenItIsBrokenOffItIsTheSame)
{
    for (const char* clip : { "xvid_packed.avi", "mpeg4_nvop.avi", "cut_head.ts", "lost_packets.mkv" }) {
        SCOPED_TRACE(clip);
        Interrupt interrupt;
        PacketIndex index(FileOf(clip), interrupt, Room);
        for (auto patience = std::chrono::microseconds(50); !index.IsComplete(); patience += patience / 5) {
            interrupt.SetDeadline(Interrupt::Clock::now() + patience);
            try {
                while (index.Extend()) { }
            } catch (const MediaError& error) {
                ASSERT_EQ(error.failure, Failure::TimedOut);
            }
        }
        EXPECT_EQ(OrdinalsOf(index), WholeIndex(clip));
    }
}

TEST(PacketIndex, NothingIsDecodedForACleanFile)
{
    Interrupt interrupt;
    PacketIndex index(FileOf("h264_closed.mp4"), interrupt, Room);
    while (index.Extend()) { }
    EXPECT_TRUE(index.IsIntact());
}

TEST(PacketIndex, ALeadingPictureIsReachedFromTheKeyBefore)
{
    Interrupt interrupt;
    PacketIndex index(FileOf("h264_opengop.mp4"), interrupt, Room);
    while (index.Extend()) { }
    for (int number = 0; number < index.Frames(); ++number) {
        const int entry = index.EntryFor(number, INT_MAX);
        EXPECT_TRUE(index.Fact(entry).Has(PacketFact::Key));
        EXPECT_LE(index.Fact(entry).number, number);
        EXPECT_LE(entry, index.OrdinalOf(number));
    }
}

TEST(PacketIndex, DamageIsPassedOverForANearEntryOnly)
{
    Interrupt interrupt;
    PacketIndex index(FileOf("long_10fps.mp4"), interrupt, Room);
    while (index.Extend()) { }
    constexpr int last = 199; // keys are 0, 50, 100 and 150
    index.MarkDamagedEntry(150);
    EXPECT_EQ(index.EntryFor(last, INT_MAX), 100);
    index.MarkDamagedEntry(100);
    EXPECT_EQ(index.EntryFor(last, INT_MAX), 50);
    index.MarkDamagedEntry(50);
    EXPECT_EQ(index.EntryFor(last, INT_MAX), 150) << "too far for the look of damage";
}

} // namespace media
