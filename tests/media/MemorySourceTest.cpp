#include "tests/media/Opened.h"
#include "tests/testing/Files.h"

#include <gtest/gtest.h>

namespace media {

namespace {

QByteArray BytesOf(const QString& clip)
{
    return FileBytes(ClipPath(clip));
}

} // namespace

TEST(MemorySource, ABlockGivesThePicturesOfItsFile)
{
    for (const char* name : { "h264_closed.mp4", "faststart.mp4", "nocues.mkv", "mpeg4_bf.avi",
             "h264_opengop.ts", "mpeg2_interlaced.mpg" }) {
        SCOPED_TRACE(name);
        const QString clip = QString::fromLatin1(name);
        const Opened file(clip);
        Interrupt interrupt;
        for (const qsizetype packets : { qsizetype(1) << 24, qsizetype(0) }) {
            const auto block =
                FrameServer::Open({ Source::Kind::Memory, BytesOf(clip) }, interrupt, { .packets = packets });
            block->ExtendIndex(1 << 30);
            ASSERT_EQ(block->KnownFrames(), file->KnownFrames());
            for (const int number : { 0, 61, 30, block->KnownFrames() - 1 })
                EXPECT_EQ(SumOf(block->Get(number, Purpose::Jump).ToStill()),
                    SumOf(file->Get(number, Purpose::Jump).ToStill()));
        }
    }
}

TEST(MemorySource, APlayListInMemoryIsRefused)
{
    Interrupt interrupt;
    for (const char* name : { "hls/vod.m3u8", "hls/evil_local.m3u8", "evil_concat.ffconcat" }) {
        SCOPED_TRACE(name);
        try {
            FrameServer::Open({ Source::Kind::Memory, BytesOf(QString::fromLatin1(name)) }, interrupt);
            FAIL() << "opened";
        } catch (const MediaError& error) {
            EXPECT_EQ(error.failure, Failure::NotAVideo);
        }
    }
}

TEST(MemorySource, AnEmptyBlockIsEmpty)
{
    Interrupt interrupt;
    try {
        FrameServer::Open({ Source::Kind::Memory, {} }, interrupt);
        FAIL() << "opened";
    } catch (const MediaError& error) {
        EXPECT_EQ(error.failure, Failure::Empty);
    }
}

} // namespace media
