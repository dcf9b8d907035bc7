#include "capture/NewCapture.h"

#include "tests/testing/EditSamples.h"
#include "tests/testing/FakeCapture.h"
#include "tests/testing/ReasonOf.h"

#include <gtest/gtest.h>

namespace {

QImage Filled(QColor color)
{
    return EditSamples::Filled(color, { 20, 10 });
}

class NewCaptureTest : public testing::Test {
protected:
    FakeFrame frame;
    FakeCapture opened { QImage() };

    void SetUp() override
    {
        frame.whenViewerOpens = [this] { opened.MakeActive(frame); };
    }
    void Open(const char* opThumb)
    {
        ASSERT_TRUE(frame.Store("OpThumb", opThumb));
        ShowEdited(frame, Reader::Tools, Filled(Qt::green));
    }
    QStringList Opened()
    {
        QStringList opening = frame.log;
        opening.removeAll(QStringLiteral("PumpEvents"));
        return opening;
    }
};

} // namespace

TEST_F(NewCaptureTest, WithoutASettingItGoesToAWindowAndTheStrip)
{
    ShowEdited(frame, Reader::Visual, Filled(Qt::green));
    EXPECT_EQ(Opened(),
        QStringList({ QStringLiteral("OpenViewer"), QStringLiteral("AddThumbnail"),
            QStringLiteral("ShowThumbnails"), QStringLiteral("ShowFront") }));
    EXPECT_EQ(opened.lead.Bitmap(), Filled(Qt::green));
    EXPECT_TRUE(frame.enabled.value(Command::Save));
}

TEST_F(NewCaptureTest, With2ItGoesToAWindowAlone)
{
    Open("2");
    EXPECT_EQ(Opened(), QStringList(QStringLiteral("OpenViewer")));
    EXPECT_EQ(opened.clip, Filled(Qt::green));
    EXPECT_TRUE(frame.enabled.value(Command::Save));
}

TEST_F(NewCaptureTest, With0TheThumbnailIsWhatTheClipboardHolds)
{
    frame.clipboard.picture = Filled(Qt::red);
    Open("0");
    EXPECT_EQ(Opened(), QStringList({ QStringLiteral("AddThumbnail"), QStringLiteral("ShowThumbnails") }));
    EXPECT_EQ(frame.hold.Bitmap(), Filled(Qt::red));
}

TEST_F(NewCaptureTest, With0AndAnEmptyClipboardTheThumbnailIsWhatWasHeldAndSavingGoesOff)
{
    frame.hold.SetBitmap(Filled(Qt::blue));
    frame.enabled[Command::Save] = true;
    Open("0");
    EXPECT_EQ(frame.hold.Bitmap(), Filled(Qt::blue));
    EXPECT_FALSE(frame.enabled.value(Command::Save));
    EXPECT_EQ(Opened().first(), QStringLiteral("AddThumbnail"));
}

TEST_F(NewCaptureTest, AnotherSettingShowsItNowhere)
{
    Open("3");
    EXPECT_EQ(Opened(), QStringList());
    EXPECT_TRUE(opened.lead.Bitmap().isNull());
}

TEST_F(NewCaptureTest, AClipboardThatGivesNothingStillLeavesAThumbnailOfWhatWasHeldAndIsTold)
{
    frame.hold.SetBitmap(Filled(Qt::blue));
    frame.clipboard.picture = Filled(Qt::red);
    frame.clipboard.givesNone = true;
    EXPECT_EQ(ReasonOf([this] { Open("0"); }), QStringLiteral("There is no picture on the clipboard."));
    EXPECT_EQ(Opened(), QStringList({ QStringLiteral("AddThumbnail"), QStringLiteral("ShowThumbnails") }));
    EXPECT_EQ(frame.hold.Bitmap(), Filled(Qt::blue));
}

TEST_F(NewCaptureTest, WithoutItsWindowAnEditStillComesOnTheStripAndTheFailureIsTold)
{
    frame.whenViewerOpens = {};
    EXPECT_EQ(ReasonOf([this] { Open("1"); }), QStringLiteral("The new capture window was closed."));
    EXPECT_TRUE(Opened().contains(QStringLiteral("AddThumbnail")));
    EXPECT_FALSE(frame.enabled.value(Command::Save));
}

TEST_F(NewCaptureTest, ACaptureFromTheClipboardEndsWithTheFirstFailure)
{
    frame.clipboard.picture = Filled(Qt::red);
    frame.clipboard.givesNone = true;
    ASSERT_TRUE(frame.Store("OpThumb", "0"));
    EXPECT_FALSE(ReasonOf([this] { ShowNewCapture(frame, Reader::Capture); }).isEmpty());
    EXPECT_EQ(Opened(), QStringList());
}
