#include "media/DecodedFrame.h"
#include "media/FrameServer.h"
#include "tests/media/Opened.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace media {

namespace {

struct Flat {
    int y;
    int u;
    int v;
};

/// A picture as a decoder gives it, its samples not set.
std::shared_ptr<DecodedFrame> BlankFrame(
    QSize size, AVColorSpace matrix, AVColorRange range, AVPixelFormat format = AV_PIX_FMT_YUV420P)
{
    auto decoded = std::make_shared<DecodedFrame>();
    decoded->memory = std::make_shared<PictureMemory>();
    decoded->frame.reset(av_frame_alloc());
    AVFrame& frame = *decoded->frame;
    frame.format = format;
    frame.width = size.width();
    frame.height = size.height();
    frame.colorspace = matrix;
    frame.color_range = range;
    av_frame_get_buffer(&frame, 0);
    return decoded;
}

/// A picture of one colour.
Picture FlatPicture(Flat colour, int height, AVColorSpace matrix, AVColorRange range,
    AVPixelFormat format = AV_PIX_FMT_YUV420P, int width = 64)
{
    const auto decoded = BlankFrame({ width, height }, matrix, range, format);
    const AVFrame& frame = *decoded->frame;
    std::memset(frame.data[0], colour.y, size_t(frame.linesize[0]) * size_t(height));
    std::memset(frame.data[1], colour.u, size_t(frame.linesize[1]) * size_t((height + 1) / 2));
    std::memset(frame.data[2], colour.v, size_t(frame.linesize[2]) * size_t((height + 1) / 2));
    return { decoded, 0 };
}

/// Samples of all values, the strongest contrasts among them.
void FillWithNoise(const AVFrame& frame)
{
    std::mt19937 generator(unsigned(frame.width));
    const auto noise = [&] {
        const auto value = generator();
        return uint8_t(value % 3 == 0 ? value >> 8 : value % 3 == 1 ? 0 : 255);
    };
    for (const int plane : { 0, 1, 2 })
        std::generate_n(
            frame.data[plane], frame.linesize[plane] * (plane == 0 ? frame.height : frame.height / 2), noise);
}

/// The still as the library makes it with its best settings.
QImage StillOfTheLibrary(const AVFrame& frame, int matrix, bool isFullRange)
{
    QImage still(frame.width, frame.height, QImage::Format_BGR888);
    const ScalerPtr scaler(
        sws_getContext(frame.width, frame.height, AV_PIX_FMT_YUV420P, frame.width, frame.height,
            AV_PIX_FMT_GBRP, SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT, nullptr, nullptr, nullptr));
    sws_setColorspaceDetails(scaler.get(), sws_getCoefficients(matrix), isFullRange,
        sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, 1 << 16, 1 << 16);
    const FramePtr planes(av_frame_alloc());
    planes->format = AV_PIX_FMT_GBRP;
    planes->width = frame.width;
    planes->height = frame.height;
    av_frame_get_buffer(planes.get(), 0);
    sws_scale(scaler.get(), frame.data, frame.linesize, 0, frame.height, planes->data, planes->linesize);
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x) {
            const auto part = [&](int plane) { return planes->data[plane][y * planes->linesize[plane] + x]; };
            still.setPixel(x, y, qRgb(part(2), part(0), part(1)));
        }
    return still;
}

void ExpectRed(const QImage& image)
{
    const QColor colour = image.pixelColor(image.width() / 2, image.height() / 2);
    EXPECT_NEAR(colour.red(), 255, 3);
    EXPECT_NEAR(colour.green(), 0, 3);
    EXPECT_NEAR(colour.blue(), 0, 3);
}

constexpr Flat RedOfStandardTelevision { 81, 90, 240 };
constexpr Flat RedOfHighDefinition { 63, 102, 240 };
constexpr Flat RedOfJpeg { 76, 85, 255 };

} // namespace

TEST(Convert, TheTaggedColourMatrixIsHonoured)
{
    ExpectRed(FlatPicture(RedOfHighDefinition, 64, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG).ToStill());
    ExpectRed(FlatPicture(RedOfStandardTelevision, 1080, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG).ToStill());
}

TEST(Convert, WithoutATagTheLinesTellTheMatrix)
{
    ExpectRed(
        FlatPicture(RedOfStandardTelevision, 576, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED).ToStill());
    ExpectRed(
        FlatPicture(RedOfHighDefinition, 720, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED).ToStill());
}

TEST(Convert, FullRangeIsHonouredByTagAndByFormat)
{
    ExpectRed(FlatPicture(RedOfJpeg, 64, AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG).ToStill());
    ExpectRed(FlatPicture(RedOfJpeg, 64, AVCOL_SPC_BT470BG, AVCOL_RANGE_UNSPECIFIED, AV_PIX_FMT_YUVJ420P)
                  .ToStill());
}

TEST(Convert, AStillIsToTheLastBitThatOfTheBestConversion)
{
    constexpr QSize sizes[] = { { 64, 64 }, { 66, 64 }, { 70, 130 }, { 96, 66 }, { 98, 74 }, { 130, 64 },
        { 720, 576 }, { 854, 480 } };
    for (const QSize size : sizes)
        for (const bool isFullRange : { false, true }) {
            SCOPED_TRACE(
                testing::Message() << size.width() << "x" << size.height() << " full range " << isFullRange);
            const auto decoded =
                BlankFrame(size, AVCOL_SPC_BT709, isFullRange ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG);
            FillWithNoise(*decoded->frame);
            EXPECT_EQ(Picture(decoded, 0).ToStill(),
                StillOfTheLibrary(*decoded->frame, SWS_CS_ITU709, isFullRange));
        }
}

TEST(Convert, AStillIsToTheLastBitThatOfTheBestConversionInEveryColourMatrix)
{
    for (const auto& [tag, matrix] : { std::pair(AVCOL_SPC_SMPTE170M, SWS_CS_ITU601),
             { AVCOL_SPC_BT470BG, SWS_CS_ITU601 }, { AVCOL_SPC_FCC, SWS_CS_FCC },
             { AVCOL_SPC_SMPTE240M, SWS_CS_SMPTE240M }, { AVCOL_SPC_BT2020_NCL, SWS_CS_BT2020 } })
        for (const AVColorRange range : { AVCOL_RANGE_MPEG, AVCOL_RANGE_JPEG }) {
            SCOPED_TRACE(testing::Message() << "matrix " << tag << " range " << range);
            const auto decoded = BlankFrame({ 98, 74 }, tag, range);
            FillWithNoise(*decoded->frame);
            EXPECT_EQ(Picture(decoded, 0).ToStill(),
                StillOfTheLibrary(*decoded->frame, matrix, range == AVCOL_RANGE_JPEG));
        }
}

TEST(Convert, APictureStoredBottomUpIsTheSame)
{
    const auto decoded = BlankFrame({ 102, 70 }, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG);
    AVFrame& frame = *decoded->frame;
    FillWithNoise(frame);
    for (const size_t plane : { 0, 1, 2 }) {
        const int rows = plane == 0 ? frame.height : frame.height / 2;
        frame.data[plane] += ptrdiff_t(rows - 1) * frame.linesize[plane];
        frame.linesize[plane] = -frame.linesize[plane];
    }
    EXPECT_EQ(Picture(decoded, 0).ToStill(), StillOfTheLibrary(frame, SWS_CS_ITU709, false));
}

TEST(Convert, TheScreenShowsTheSameColours)
{
    const Picture picture =
        FlatPicture(RedOfHighDefinition, 720, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED);
    ExpectRed(picture.ToScreen({ 200, 100 }));
    ExpectRed(picture.ToScreen({ 16, 16 }));
}

TEST(Convert, AStillIsTwentyFourBitsAndAScreenPictureOfTheAskedSize)
{
    const Picture picture = FlatPicture(RedOfJpeg, 64, AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG);
    EXPECT_EQ(picture.ToStill().format(), QImage::Format_BGR888);
    EXPECT_EQ(picture.ToScreen({ 31, 17 }).format(), QImage::Format_RGB32);
    EXPECT_EQ(picture.ToScreen({ 31, 17 }).size(), QSize(31, 17));
    EXPECT_TRUE(picture.ToScreen({ 0, 17 }).isNull());
    EXPECT_TRUE(Picture().ToStill().isNull());
}

TEST(Convert, PixelsThatAreNotSquareAreMadeSoByWidth)
{
    const Opened opened("anamorphic.mpg");
    EXPECT_EQ(opened->Size(), QSize(1024, 576));
    EXPECT_EQ(opened->Get(3, Purpose::Jump).ToStill().size(), QSize(1024, 576));
}

TEST(Convert, ATurnedClipIsShownUpright)
{
    const Opened opened("rotate90.mp4");
    const QImage still = opened->Get(0, Purpose::Jump).ToStill();
    EXPECT_EQ(still.size(), QSize(240, 320));
    EXPECT_EQ(still.format(), QImage::Format_BGR888);
    EXPECT_EQ(opened->Size(), still.size());
    EXPECT_EQ(opened->Get(0, Purpose::Jump).ToScreen({ 120, 160 }).size(), QSize(120, 160));
}

TEST(Convert, OddSizesKeepTheirLastColumnAndRow)
{
    const Picture picture =
        FlatPicture(RedOfJpeg, 49, AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG, AV_PIX_FMT_YUV420P, 65);
    const QImage still = picture.ToStill();
    ASSERT_EQ(still.size(), QSize(65, 49));
    EXPECT_EQ(still.pixel(64, 48), still.pixel(0, 0));
}

TEST(Convert, EveryPictureHasItsOwnSizeWhereTheResolutionChanges)
{
    const Opened opened("res_change.ts");
    EXPECT_EQ(opened->Get(49, Purpose::Jump).Size(), QSize(320, 240));
    EXPECT_EQ(opened->Get(50, Purpose::Jump).Size(), QSize(480, 360));
}

} // namespace media
