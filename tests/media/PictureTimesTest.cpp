#include "tests/media/Opened.h"

#include <QHash>
#include <QSet>
#include <gtest/gtest.h>

namespace media {

namespace {

constexpr double UsualRate = 25;
constexpr double CoarsestTick = 1.01e-3; // seconds, of a container that has any

const QHash<QString, double> Rates {
    { QStringLiteral("hevc_opengop.mp4"), 24 },
    { QStringLiteral("hevc_short.mp4"), 10 },
    { QStringLiteral("ntsc_ms.mkv"), 60000.0 / 1001 },
    { QStringLiteral("cinepak.avi"), 10 },
    { QStringLiteral("slow_halffps.mkv"), 0.5 },
    { QStringLiteral("long_10fps.mp4"), 10 },
    { QStringLiteral("fast_240fps.mp4"), 240 },
    { QStringLiteral("cc608.mpg"), 30000.0 / 1001 },
    { QStringLiteral("cc608.mp4"), 30000.0 / 1001 },
    { QStringLiteral("cc708.mpg"), 30000.0 / 1001 },
    { QStringLiteral("cc_track.mov"), 30000.0 / 1001 },
};
const QSet<QString> Irregular {
    QStringLiteral("xvid_packed.avi"), // three empty slots behind the first picture
    QStringLiteral("mpeg4_nvop.avi"),
    QStringLiteral("avi_dropped.avi"),
    QStringLiteral("vfr.mp4"),
    QStringLiteral("vfr.mkv"),
    QStringLiteral("dup_pts.mkv"),
    QStringLiteral("anim.gif"),
    QStringLiteral("audio_change.ts"), // the second part begins before the first one ends
    QStringLiteral("res_change.ts"),
    QStringLiteral("lost_packets.mkv"),
    QStringLiteral("soft_telecine.mpg"),
};

} // namespace

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

TEST(PictureTimes, AtAConstantRateEveryPictureHasItsOwnTime)
{
    for (const Clip& clip : AllClips()) {
        if (clip.Pictures == 0 || clip.Name.startsWith(QLatin1String("hls/"))
            || Irregular.contains(clip.Name))
            continue;
        SCOPED_TRACE(clip.Name.toStdString());
        const Opened opened(clip.Name);
        const double step = 1 / Rates.value(clip.Name, UsualRate);
        for (int number = 1; number < opened->KnownFrames(); ++number)
            EXPECT_NEAR(opened->TimeOf(number) - opened->TimeOf(number - 1), step, CoarsestTick) << number;
    }
}

TEST(PictureTimes, WithoutStampsTheFirstPictureStandsAtTheStart)
{
    for (const char* clip :
        { "h264_raw.h264", "h264_bframes.avi", "mpeg4_bf.avi", "mpeg2_closed.m2v", "cc608.mpg" })
        EXPECT_EQ(Opened(QString::fromLatin1(clip))->TimeOf(0), 0) << clip;
}

TEST(PictureTimes, ALostPictureLeavesItsTime)
{
    const Opened opened("mpeg4_nvop.avi");
    const std::vector<int> slots = ClipNamed(QStringLiteral("mpeg4_nvop.avi")).Numbers;
    for (int number = 0; number < opened->KnownFrames(); ++number)
        EXPECT_NEAR(opened->TimeOf(number), slots[size_t(number)] / UsualRate, CoarsestTick) << number;
}

TEST(PictureTimes, PackedPicturesHaveTheirOwnTimes)
{
    const Opened opened("xvid_packed.avi");
    for (int number = 2; number < opened->KnownFrames(); ++number)
        EXPECT_NEAR(opened->TimeOf(number) - opened->TimeOf(number - 1), 1 / UsualRate, CoarsestTick)
            << number;
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
