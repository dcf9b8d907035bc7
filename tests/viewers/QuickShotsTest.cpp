#include "viewers/QuickShots.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/Files.h"
#include "viewers/ThumbCell.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

class QuickShotsTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    std::unique_ptr<QuickShots> strip;

    void SetUp() override
    {
        state.OpThumb = 0;
        strip = std::make_unique<QuickShots>(frame);
        strip->setAttribute(Qt::WA_DeleteOnClose, false);
        strip->show();
    }
    void Add(QColor colour)
    {
        QImage picture(30, 20, QImage::Format_BGR888);
        picture.fill(colour);
        frame.hold.SetBitmap(picture);
        strip->mnuControlsAdd2();
    }
    void Click(const char* name)
    {
        QTest::mouseClick(strip->findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    }
};

} // namespace

TEST_F(QuickShotsTest, AThumbnailSharesThePixelsOfItsCapture)
{
    Add(Qt::red);
    const auto* cell = strip->findChild<ThumbCell*>(QStringLiteral("Lead3(0)"));
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->Bitmap().constBits(), frame.hold.Bitmap().constBits());
}

TEST_F(QuickShotsTest, WithNothingPickedNothingOpens)
{
    Add(Qt::red);
    Click("Cmds(2)");
    EXPECT_FALSE(frame.log.contains(QStringLiteral("OpenViewer")));
    EXPECT_FALSE(state.UseSelectedBitmap);
}

TEST_F(QuickShotsTest, ThePickedThumbnailOpensInACaptureWindow)
{
    Add(Qt::red);
    Add(Qt::blue);
    Click("Lead3(1)");
    Click("Cmds(2)");
    EXPECT_TRUE(frame.log.contains(QStringLiteral("OpenViewer")));
    EXPECT_TRUE(state.UseSelectedBitmap);
    EXPECT_EQ(state.SelectedBitmap.pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(QuickShotsTest, AllAreSavedUnderTheNextFreeNumbers)
{
    MakeFile(state.Beside(QStringLiteral("AutoSave/AutoThumb1.bmp")), "taken");
    Add(Qt::red);
    Add(Qt::blue);
    Click("Cmds(5)");
    EXPECT_EQ(FilesIn(state.Beside(QStringLiteral("AutoSave"))),
        (QStringList { QStringLiteral("AutoThumb1.bmp"), QStringLiteral("AutoThumb2.bmp"),
            QStringLiteral("AutoThumb3.bmp") }));
    EXPECT_EQ(FileBytes(state.Beside(QStringLiteral("AutoSave/AutoThumb1.bmp"))), QByteArray("taken"));
    EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("All Thumbs Saved"));
}

TEST_F(QuickShotsTest, AllAreSavedWithTheUsersTextWhenAsked)
{
    const auto saved = [this](int number) {
        return QImage(state.Beside(QStringLiteral("AutoSave/AutoThumb%1.bmp").arg(number)));
    };
    state.PositionX = state.PositionY = 0;
    Add(Qt::red);
    Click("Cmds(5)");
    state.UseWatermark = true;
    Click("Cmds(5)");
    EXPECT_EQ(saved(1).size(), saved(2).size());
    EXPECT_NE(saved(1), saved(2));
}

TEST_F(QuickShotsTest, ClosingDropsAllThumbnails)
{
    Add(Qt::red);
    Click("Lead3(0)");
    EXPECT_TRUE(state.QuickShotsOpen);
    strip->close();
    EXPECT_FALSE(state.QuickShotsOpen);
    EXPECT_TRUE(state.SelectedBitmap.isNull());
}

TEST_F(QuickShotsTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*strip), "");
    Add(Qt::red);
    Add(Qt::blue);
    EXPECT_EQ(AccessFaults(*strip), "");
}
