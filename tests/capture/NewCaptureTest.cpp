#include "capture/NewCapture.h"

#include "tests/testing/FakeCapture.h"

#include <gtest/gtest.h>

namespace {

QImage Filled(QColor color)
{
    QImage picture(20, 10, QImage::Format_BGR888);
    picture.fill(color);
    return picture;
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
        ASSERT_TRUE(frame.state.Settings.SaveSetting(
            QStringLiteral("Options"), QStringLiteral("OpThumb"), QLatin1String(opThumb)));
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
