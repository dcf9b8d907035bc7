#include "tests/media/Opened.h"

#include <gtest/gtest.h>

namespace media {

TEST(PictureTimes, InEveryClipTimesRiseAndLeadBackToTheirNumber)
{
    for (const Clip& clip : AllClips()) {
        if (clip.Pictures == 0 || clip.Name.startsWith(QLatin1String("hls/")))
            continue;
        SCOPED_TRACE(clip.Name.toStdString());
        const Opened opened(clip.Name);
        const int count = opened->KnownFrames();
        for (int number = 0; number < count; ++number) {
            const int found = opened->NumberAt(opened->TimeOf(number));
            EXPECT_GE(found, number);
            EXPECT_EQ(opened->TimeOf(found), opened->TimeOf(number));
        }
        EXPECT_GT(opened->Duration(), opened->TimeOf(count - 1));
        EXPECT_EQ(opened->NumberAt(opened->Duration() + 1), count - 1);
    }
}

TEST(PictureTimes, AnIrregularClipKeepsItsTimes)
{
    for (const char* clip : { "vfr.mp4", "vfr.mkv" }) {
        SCOPED_TRACE(clip);
        const Opened opened(QString::fromLatin1(clip));
        const double start = opened->TimeOf(0);
        EXPECT_NEAR(opened->TimeOf(1) - start, 0.060, 0.0015);
        EXPECT_NEAR(opened->TimeOf(3) - start, 0.150, 0.0015);
        EXPECT_NEAR(opened->TimeOf(50) - start, 5.520, 0.0015);
    }
}

TEST(PictureTimes, PositionZeroIsTheStartOfTheContainer)
{
    EXPECT_NEAR(Opened("start_offset.ts")->TimeOf(0), 0, 0.1);
    EXPECT_NEAR(Opened("audio_early.mkv")->TimeOf(0), 1, 0.05);
}

TEST(PictureTimes, ClipsWithoutStampsRunAtTheirRate)
{
    EXPECT_NEAR(Opened("h264_raw.h264")->TimeOf(50), 2.0, 0.05);
    EXPECT_NEAR(Opened("h264_bframes.avi")->TimeOf(50), 2.0, 0.05);
}

TEST(PictureTimes, DroppedPicturesLeaveTheirTime)
{
    const Opened opened("avi_dropped.avi");
    EXPECT_EQ(opened->KnownFrames(), 75);
    EXPECT_NEAR(opened->Duration(), 4.0, 0.05);
}

TEST(PictureTimes, TimeGoesOnOverGluedStreams)
{
    const Opened opened("ts_discont.ts");
    EXPECT_NEAR(opened->TimeOf(150) - opened->TimeOf(0), 6.0, 0.2);
}

TEST(PictureTimes, TheClockMayWrap)
{
    const Opened opened("pts_wrap.ts");
    EXPECT_NEAR(opened->TimeOf(149) - opened->TimeOf(0), 149 * 0.04, 0.01);
}

TEST(PictureTimes, TheLengthIsThatOfThePictures)
{
    EXPECT_NEAR(Opened("audio_longer.mkv")->Duration(), 2.0, 0.05);
    EXPECT_NEAR(Opened("slow_halffps.mkv")->Duration(), 20.0, 0.05);
}

TEST(PictureTimes, SoundIsToldFromSilence)
{
    EXPECT_TRUE(Opened("h264_closed.mp4")->HasSound());
    EXPECT_FALSE(Opened("no_audio.mp4")->HasSound());
}

} // namespace media
