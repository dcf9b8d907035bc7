#include "app/Lead.h"

#include "imaging/ColorResolution.h"
#include "imaging/Colours.h"
#include "imaging/Edges.h"
#include "imaging/Filters.h"
#include "imaging/Mirror.h"
#include "imaging/PictureFile.h"
#include "imaging/Rotate.h"
#include "imaging/Tones.h"
#include "imaging/Underlay.h"
#include "tests/testing/ReasonOf.h"
#include "tests/testing/SmallMemory.h"

#include <QSignalSpy>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

using namespace imaging;

namespace {

QImage Sample(QSize size = { 20, 10 })
{
    QImage image(size, QImage::Format_BGR888);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, QColor((x * 13 + 40) % 256, (y * 17 + 90) % 256, (x * y) % 256));
    return image;
}

struct Row {
    const char* name;
    std::function<void(Lead&)> member;
    std::function<QImage(const QImage&)> function;
};

const Row Rows[] = {
    { "Flip", [](Lead& l) { l.Flip(); }, Flipped },
    { "Reverse", [](Lead& l) { l.Reverse(); }, Reversed },
    { "Rotate grown", [](Lead& l) { l.Rotate(3000, true, Qt::white); },
        [](const QImage& p) { return Rotated(p, 3000, RotatedSize::Grown, Qt::white); } },
    { "Rotate kept", [](Lead& l) { l.Rotate(3000, false, Qt::white); },
        [](const QImage& p) { return Rotated(p, 3000, RotatedSize::Kept, Qt::white); } },
    { "Grayscale", [](Lead& l) { l.Grayscale(); }, [](const QImage& p) { return Grey(p); } },
    { "Invert", [](Lead& l) { l.Invert(); }, [](const QImage& p) { return Inverted(p); } },
    { "Brightness", [](Lead& l) { l.Brightness(200); },
        [](const QImage& p) { return WithBrightness(p, 200); } },
    { "Contrast", [](Lead& l) { l.Contrast(200); }, [](const QImage& p) { return WithContrast(p, 200); } },
    { "Saturation", [](Lead& l) { l.Saturation(200); },
        [](const QImage& p) { return WithSaturation(p, 200); } },
    { "Hue", [](Lead& l) { l.Hue(90); }, [](const QImage& p) { return WithHue(p, 90); } },
    { "Gamma", [](Lead& l) { l.Gamma(50); }, [](const QImage& p) { return WithGamma(p, 50); } },
    { "Sharpen", [](Lead& l) { l.Sharpen(200); }, [](const QImage& p) { return Sharpened(p, 200); } },
    { "StretchIntensity", [](Lead& l) { l.StretchIntensity(); },
        [](const QImage& p) { return WithStretchedIntensity(p); } },
    { "Median", [](Lead& l) { l.Median(3); }, [](const QImage& p) { return WithMedian(p, 3); } },
    { "Mosaic", [](Lead& l) { l.Mosaic(3); }, [](const QImage& p) { return Mosaic(p, 3); } },
    { "Posterize", [](Lead& l) { l.Posterize(3); }, [](const QImage& p) { return Posterized(p, 3); } },
    { "Solarize", [](Lead& l) { l.Solarize(90); }, [](const QImage& p) { return Solarized(p, 90); } },
    { "Oil", [](Lead& l) { l.Oil(4); }, [](const QImage& p) { return OilPainted(p, 4); } },
    { "Emboss east", [](Lead& l) { l.Emboss(0, 2); },
        [](const QImage& p) { return Embossed(p, Direction::East, 2); } },
    { "Emboss south", [](Lead& l) { l.Emboss(3, 2); },
        [](const QImage& p) { return Embossed(p, Direction::South, 2); } },
    { "SpatialFilter", [](Lead& l) { l.SpatialFilter(27); },
        [](const QImage& p) { return SpatiallyFiltered(p, SpatialCode::ShiftHorizontal); } },
    { "Underlay tiled",
        [](Lead& l) {
            l.Underlay(Sample({ 7, 5 }), 0);
        },
        [](const QImage& p) {
            return Underlaid(p, Sample({ 7, 5 }), UnderlayFit::Tiled);
        } },
    { "Underlay stretched",
        [](Lead& l) {
            l.Underlay(Sample({ 7, 5 }), 1);
        },
        [](const QImage& p) {
            return Underlaid(p, Sample({ 7, 5 }), UnderlayFit::Stretched);
        } },
    { "SetColorResolution", [](Lead& l) { l.SetColorResolution(4, 1, 7, 16); },
        [](const QImage& p) {
            return WithColorResolution(p, 4, PaletteKind::Fixed, Dithering::Ordered, 16);
        } },
};

class LeadOperationsTest : public testing::Test {
protected:
    LeadOperationsTest() { lead.SetBitmap(Sample()); }

    Lead lead;
};

} // namespace

TEST_F(LeadOperationsTest, EachDoesWhatItIsNamedFor)
{
    for (const Row& row : Rows) {
        lead.SetBitmap(Sample());
        row.member(lead);
        EXPECT_EQ(lead.Bitmap(), row.function(Sample())) << row.name;
        EXPECT_NE(lead.Bitmap(), Sample()) << row.name;
    }
}

TEST_F(LeadOperationsTest, LeaveTheCopiesInOtherControlsAlone)
{
    Lead before;
    for (const Row& row : Rows) {
        lead.SetBitmap(Sample());
        before.SetBitmap(lead.Bitmap());
        row.member(lead);
        EXPECT_EQ(before.Bitmap(), Sample()) << row.name;
    }
}

TEST_F(LeadOperationsTest, NeedAPicture)
{
    lead.SetBitmap({});
    for (const Row& row : Rows)
        EXPECT_EQ(ReasonOf([&] { row.member(lead); }), "There is no picture to change.") << row.name;
}

TEST_F(LeadOperationsTest, KeepHowThePictureIsShownWhileItKeepsItsSize)
{
    lead.SetDstRect(3, 4, 50, 40);
    lead.Invert();
    lead.Rotate(500, false, Qt::white);
    lead.SetColorResolution(8, 2, 0, 256);
    EXPECT_EQ(lead.DstWidth(), 50);
    EXPECT_EQ(lead.DstHeight(), 40);
    lead.Rotate(9000, true, Qt::white);
    EXPECT_EQ(lead.DstWidth(), 10) << "the whole picture at its new size";
    EXPECT_EQ(lead.DstHeight(), 20);
}

TEST_F(LeadOperationsTest, ThatThereAreNotFailAndLeaveThePicture)
{
    EXPECT_EQ(ReasonOf([&] { lead.Emboss(4, 2); }), "There is no direction 4.");
    EXPECT_EQ(ReasonOf([&] { lead.SpatialFilter(9); }), "There is no spatial filter 9.");
    EXPECT_EQ(ReasonOf([&] { lead.SetColorResolution(8, 3, 0, 256); }), "There is no palette 3.");
    EXPECT_EQ(ReasonOf([&] { lead.SetColorResolution(8, 1, 8, 256); }), "There is no dithering 8.");
    EXPECT_FALSE(ReasonOf([&] { lead.SetColorResolution(7, 1, 0, 128); }).isEmpty());
    EXPECT_FALSE(ReasonOf([&] { lead.Underlay({}, 0); }).isEmpty());
    EXPECT_EQ(lead.Bitmap(), Sample());
}

TEST_F(LeadOperationsTest, SizeKeepsTheDepth)
{
    for (const int bits : { 1, 4, 8, 16, 24, 32 })
        for (const int flags : { Lead::SizePlain, Lead::SizeSmooth }) {
            lead.SetBitmap(Sample());
            lead.SetColorResolution(bits, bits <= 8 ? 2 : 4, 0, 0);
            lead.Size(31, 7, flags);
            EXPECT_EQ(lead.BitmapBits(), bits) << flags;
            EXPECT_EQ(lead.Bitmap().size(), QSize(31, 7));
        }
}

TEST_F(LeadOperationsTest, TellTheirProgressUpToAThousand)
{
    lead.SetBitmap(Sample({ 40, 900 }));
    QSignalSpy told(&lead, &Lead::Progress);
    lead.Oil(5);
    ASSERT_GT(told.size(), 5);
    EXPECT_EQ(told.last(), QVariantList { 1000 });
}

TEST_F(LeadOperationsTest, GiveWayToAPictureThatIsGivenMeanwhile)
{
    lead.SetBitmap(Sample({ 40, 900 }));
    QObject::connect(&lead, &Lead::Progress, &lead, [&] { lead.SetBitmap(Sample()); });
    lead.Oil(5);
    EXPECT_EQ(lead.Bitmap(), Sample());
}

TEST_F(LeadOperationsTest, EndWithoutHarmWhenTheControlIsDeletedMeanwhile)
{
    auto gone = std::make_unique<Lead>();
    gone->SetBitmap(Sample({ 40, 900 }));
    int told = 0;
    QObject::connect(gone.get(), &Lead::Progress, &lead, [&] {
        ++told;
        gone.reset();
    });
    Lead* const control = gone.get();
    control->Oil(5);
    EXPECT_EQ(told, 1);
}

TEST_F(LeadOperationsTest, APictureThatTheMemoryDoesNotHoldTwiceStaysAsItIs)
{
    const QImage picture(8000, 8000, QImage::Format_BGR888);
    lead.SetBitmap(picture);
    const SmallMemory memory(100);
    if (!memory.IsThere())
        GTEST_SKIP() << "this allocator ends the program";
    EXPECT_EQ(ReasonOf([&] { lead.Invert(); }), "There is not enough memory for this picture.");
    EXPECT_EQ(ReasonOf([&] { lead.Rotate(4500, false, Qt::white); }),
        "There is not enough memory for this picture.");
    EXPECT_EQ(lead.Bitmap().constBits(), picture.constBits());
}
