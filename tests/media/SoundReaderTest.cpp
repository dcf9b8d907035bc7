#include "media/Sound.h"

#include "media/FrameServer.h"
#include "tests/clips/Clips.h"
#include "tests/testing/Files.h"

#include <QFile>
#include <cmath>
#include <gtest/gtest.h>

namespace {

media::Source FileOf(const char* clip)
{
    return { media::Source::Kind::File, QFile::encodeName(ClipPath(QString::fromLatin1(clip))) };
}

/// Where the sound of a clip ends, and the longest step between two of its blocks.
struct Extent {
    double start = 0;
    double end = 0;
    double longestGap = 0;
};

Extent ExtentOf(media::SoundReader& reader)
{
    Extent extent;
    bool isFirst = true;
    while (const auto block = reader.Read()) {
        if (isFirst)
            extent.start = extent.end = block->start;
        isFirst = false;
        extent.longestGap = std::max(extent.longestGap, block->start - extent.end);
        extent.end = block->start + double(media::FramesIn(block->samples)) / media::SoundRate;
    }
    return extent;
}

} // namespace

class SoundReaderTest : public testing::Test {
protected:
    media::Interrupt interrupt_;
};

TEST_F(SoundReaderTest, EverySoundThatIsPromisedIsReadToItsEnd)
{
    const std::pair<const char*, double> clips[] = { { "h264_closed.mp4", 4 }, { "h264_opengop.ts", 4 },
        { "mpeg2_interlaced.mpg", 4 }, { "wmv2.wmv", 4 }, { "flv1.flv", 4 }, { "theora.ogv", 3 },
        { "pcm_mono8.avi", 1 }, { "surround.mkv", 1 }, { "start_offset.ts", 4 }, { "audio_change.ts", 4 },
        { "audio_longer.mkv", 5 }, { "video_longer.mkv", 2 } };
    for (const auto& [clip, length] : clips) {
        const auto reader = media::SoundReader::Open(FileOf(clip), interrupt_);
        const Extent extent = ExtentOf(*reader);
        EXPECT_NEAR(extent.start, 0, 0.3) << clip;
        EXPECT_NEAR(extent.end, length, 0.3) << clip;
        EXPECT_LT(extent.longestGap, 0.11) << clip;
    }
}

TEST_F(SoundReaderTest, AHoleInTheFileShowsInTheTimes)
{
    const auto reader = media::SoundReader::Open(FileOf("audio_gap.mkv"), interrupt_);
    EXPECT_NEAR(ExtentOf(*reader).longestGap, 1, 0.1);
}

TEST_F(SoundReaderTest, ASeekLeadsToTheBlockOfTheMomentOrShortlyBefore)
{
    for (const char* clip : { "h264_closed.mp4", "h264_opengop.ts", "mpeg2_interlaced.mpg", "wmv2.wmv",
             "flv1.flv", "start_offset.ts", "audio_longer.mkv", "vfr.mkv" }) {
        const auto reader = media::SoundReader::Open(FileOf(clip), interrupt_);
        for (const double moment : { 1.7, 0.4, 1.9, 0.0 }) {
            reader->Seek(moment);
            const auto block = reader->Read();
            ASSERT_TRUE(block) << clip;
            EXPECT_LE(block->start, std::max(moment, 0.3)) << clip << " at " << moment;
        }
    }
}

TEST_F(SoundReaderTest, ABeepIsAtItsTimeFromWhereverItIsReached)
{
    const auto reader = media::SoundReader::Open(FileOf("avsync.mp4"), interrupt_);
    for (const double moment : { 2.9, 0.95, 1.5 }) {
        reader->Seek(moment);
        double beep = 0;
        while (beep == 0) {
            const auto block = reader->Read();
            ASSERT_TRUE(block);
            for (std::size_t i = 0; i < block->samples.size() && beep == 0; ++i) {
                const double at = block->start + double(i / media::SoundChannels) / media::SoundRate;
                if (at > moment && std::abs(block->samples[i]) > 0.1F)
                    beep = at;
            }
        }
        EXPECT_NEAR(beep, std::ceil(moment), 0.002) << "from " << moment;
    }
}

TEST_F(SoundReaderTest, TheSameFromMemory)
{
    const QByteArray block = FileBytes(ClipPath(QStringLiteral("h264_closed.mp4")));
    const auto reader = media::SoundReader::Open({ media::Source::Kind::Memory, block }, interrupt_);
    reader->Seek(3);
    EXPECT_NEAR(ExtentOf(*reader).end, 4, 0.1);
}

TEST_F(SoundReaderTest, WhereThereIsNoSoundItSaysSo)
{
    EXPECT_THROW(media::SoundReader::Open(FileOf("no_audio.mp4"), interrupt_), media::MediaError);
}

TEST_F(SoundReaderTest, ARaisedInterruptEndsTheReading)
{
    const auto reader = media::SoundReader::Open(FileOf("h264_closed.mp4"), interrupt_);
    interrupt_.Raise();
    EXPECT_THROW(ExtentOf(*reader), media::MediaError);
}
