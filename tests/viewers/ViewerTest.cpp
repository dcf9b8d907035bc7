#include "viewers/Viewer.h"

#include "app/Hourglass.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "toolkit/TitleStrip.h"

#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ViewerTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;

    void SetUp() override
    {
        frame.clipboard.picture = QImage(120, 90, QImage::Format_BGR888);
        frame.clipboard.picture.fill(Qt::red);
    }
    std::unique_ptr<Viewer> Open()
    {
        auto viewer = std::make_unique<Viewer>(frame);
        viewer->setAttribute(Qt::WA_DeleteOnClose, false);
        viewer->show();
        return viewer;
    }
};

} // namespace

TEST_F(ViewerTest, WindowsAreNumberedOneApartAndNumbersAreNeverGivenAgain)
{
    const auto first = Open();
    auto second = Open();
    EXPECT_EQ(first->Head().Title(), QStringLiteral("Capture Window 1"));
    EXPECT_EQ(second->Head().Title(), QStringLiteral("Capture Window 2"));
    second->close();
    EXPECT_EQ(Open()->Head().Title(), QStringLiteral("Capture Window 3"));
}

TEST_F(ViewerTest, OnceActiveItsWindowTextIsCaptureWindowAndItsTitleKeepsTheNumber)
{
    const auto viewer = Open();
    viewer->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(viewer.get()));
    EXPECT_EQ(viewer->windowTitle(), QStringLiteral("Capture Window"));
    EXPECT_EQ(viewer->Head().Title(), QStringLiteral("Capture Window 1"));
}

TEST_F(ViewerTest, TheWindowIsThePictureAndItsRoom)
{
    const auto viewer = Open();
    EXPECT_EQ(viewer->size(), QSize(120 + 63, 90 + 34));
    EXPECT_GE(viewer->Picture().width(), 120);
    EXPECT_GE(viewer->Picture().height(), 90);
    EXPECT_TRUE(frame.enabled.value(Command::Save));
    EXPECT_TRUE(frame.enabled.value(Command::Print));
}

TEST_F(ViewerTest, AClipboardWithoutAPictureOpensAnEmptyWindow)
{
    frame.clipboard.picture = {};
    const auto viewer = Open();
    EXPECT_TRUE(viewer->Picture().Bitmap().isNull());
    EXPECT_FALSE(frame.enabled.value(Command::Save));
    EXPECT_EQ(frame.log.count(QStringLiteral("PumpEvents")), 1);
}

TEST_F(ViewerTest, APickedThumbnailReplacesWhatTheClipboardHolds)
{
    state.SelectedBitmap = QImage(40, 30, QImage::Format_BGR888);
    state.SelectedBitmap.fill(Qt::blue);
    state.UseSelectedBitmap = true;
    const auto viewer = Open();
    EXPECT_EQ(viewer->Picture().Bitmap(), state.SelectedBitmap);
    EXPECT_FALSE(state.UseSelectedBitmap);
}

TEST_F(ViewerTest, ThePictureIsHeldOnce)
{
    const auto viewer = Open();
    EXPECT_EQ(viewer->Picture().Bitmap().constBits(), frame.clipboard.picture.constBits());
    EXPECT_EQ(viewer->ClipPic().constBits(), frame.clipboard.picture.constBits());
}

TEST_F(ViewerTest, TheLeftButtonZoomsInByTenAndTheRightOut)
{
    const auto viewer = Open();
    Lead& picture = viewer->Picture();
    QTest::mouseClick(&picture, Qt::LeftButton);
    EXPECT_EQ(picture.PaintZoomFactor(), 110);
    QTest::mouseClick(&picture, Qt::RightButton);
    QTest::mouseClick(&picture, Qt::RightButton);
    EXPECT_EQ(picture.PaintZoomFactor(), 90);
    QTest::mouseClick(&picture, Qt::MiddleButton);
    EXPECT_EQ(picture.PaintZoomFactor(), 90);
    EXPECT_EQ(picture.ScaleMode(), int(Lead::ScalePixels));
}

TEST_F(ViewerTest, ZoomingOutBelowTenIsLeftToTheControl)
{
    const auto viewer = Open();
    Lead& picture = viewer->Picture();
    picture.SetPaintZoomFactor(20);
    QTest::mouseClick(&picture, Qt::RightButton);
    ASSERT_EQ(picture.PaintZoomFactor(), 10);
    QTest::mouseClick(&picture, Qt::RightButton);
    const int lowest = picture.PaintZoomFactor();
    EXPECT_GT(lowest, 0);
    QTest::mouseClick(&picture, Qt::LeftButton);
    EXPECT_EQ(picture.PaintZoomFactor(), lowest + 10);
}

TEST_F(ViewerTest, ThePopupOffersWhatCanBeDoneWithACapture)
{
    state.AutoSave = true;
    state.AutoDir = true;
    const auto viewer = Open();
    frame.activeForm = viewer.get();
    frame.activeCapture = &viewer->Picture();
    const auto openPopup = [&] {
        QTest::mouseClick(viewer->findChild<QWidget*>(QStringLiteral("Image1")), Qt::LeftButton);
    };
    openPopup();
    EXPECT_EQ(state.PopupKind, 2);
    EXPECT_EQ(frame.log.last(4),
        QStringList({ QStringLiteral("  Save"), QStringLiteral("  Edit Tools"), QStringLiteral("  Help"),
            QStringLiteral("  Exit Viewer") }));
    frame.chosenInMenus(0);
    EXPECT_TRUE(QFile::exists(frame.folder.filePath(QStringLiteral("AutoSave/auto1.bmp"))));
    frame.chosenInMenus(1);
    EXPECT_EQ(frame.log.last(), QStringLiteral("OpenTools"));
    frame.chosenInMenus(2);
    EXPECT_EQ(frame.log.last(), QStringLiteral("OpenHelp"));
    frame.chosenInMenus(3);
    EXPECT_FALSE(viewer->isVisible());
    EXPECT_EQ(frame.log.count(QStringLiteral("RemoveKid")), 1);
}

TEST_F(ViewerTest, AChoiceInThePopupOfAWindowThatIsGoneDoesNothing)
{
    auto viewer = Open();
    QTest::mouseClick(viewer->findChild<QWidget*>(QStringLiteral("Image1")), Qt::LeftButton);
    viewer.reset();
    const QStringList before = frame.log;
    for (const int item : { 0, 1, 2, 3 })
        frame.chosenInMenus(item);
    EXPECT_EQ(frame.log, before);
}

TEST_F(ViewerTest, TheButtonsBearTheirTipsUnlessTipsAreOff)
{
    const std::pair<const char*, const char*> tips[] { { "Cmds(0)", " Close Capture Window " },
        { "Cmds(1)", " Restore/Maximize Window " }, { "Cmds(2)", " Minimize Window " },
        { "Cmds(3)", " Open Graphic Tools " }, { "Cmds(6)", " Save Capture " } };
    for (const bool isOn : { true, false }) {
        state.ToolTip = isOn;
        const auto viewer = Open();
        for (const auto& [name, tip] : tips)
            EXPECT_EQ(viewer->findChild<QWidget*>(QLatin1String(name))->toolTip(),
                isOn ? QLatin1String(tip) : QString())
                << name;
    }
}

TEST_F(ViewerTest, TheToolsButtonOpensTheEditTools)
{
    const auto viewer = Open();
    QTest::mouseClick(viewer->findChild<QWidget*>(QStringLiteral("Cmds(3)")), Qt::LeftButton);
    EXPECT_EQ(frame.log.last(), QStringLiteral("OpenTools"));
}

TEST_F(ViewerTest, TheLastCaptureTakesTheEditToolsAlong)
{
    QWidget tools;
    tools.show();
    state.Tools = &tools;
    const auto first = Open();
    const auto second = Open();
    state.KidCount = 1; // the frame counts
    second->close();
    EXPECT_TRUE(tools.isVisible());
    state.KidCount = 0;
    first->close();
    EXPECT_FALSE(tools.isVisible());
}

TEST_F(ViewerTest, AnEditIsKeptWithoutSizingTheWindow)
{
    const auto viewer = Open();
    const QSize before = viewer->size();
    viewer->Picture().Rotate(9000, true, Qt::white);
    viewer->KeepEdit();
    EXPECT_EQ(viewer->ClipPic().size(), QSize(90, 120));
    EXPECT_EQ(viewer->size(), before);
}

TEST_F(ViewerTest, AnotherPictureSizesTheWindow)
{
    const auto viewer = Open();
    QImage larger(240, 180, QImage::Format_BGR888);
    larger.fill(Qt::green);
    viewer->ShowPicture(larger);
    EXPECT_EQ(viewer->Picture().Bitmap(), larger);
    EXPECT_EQ(viewer->ClipPic(), larger);
    EXPECT_EQ(viewer->size(), QSize(240 + 63, 180 + 34));
}

TEST_F(ViewerTest, TheSaveButtonSaysFrameSaved)
{
    state.AutoSave = true;
    state.AutoDir = true;
    const auto viewer = Open();
    frame.activeForm = viewer.get();
    frame.activeCapture = &viewer->Picture();
    QTest::mouseClick(viewer->findChild<QWidget*>(QStringLiteral("Cmds(6)")), Qt::LeftButton);
    EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("Frame Saved"));
    EXPECT_TRUE(QFile::exists(frame.folder.filePath(QStringLiteral("AutoSave/auto1.bmp"))));
}

TEST_F(ViewerTest, TheSaveButtonsWordsReplaceAnyOutcome)
{
    frame.dialogs.saveNames.push(QString());
    const auto viewer = Open();
    frame.activeForm = viewer.get();
    frame.activeCapture = &viewer->Picture();
    QTest::mouseClick(viewer->findChild<QWidget*>(QStringLiteral("Cmds(6)")), Qt::LeftButton);
    EXPECT_EQ(frame.status.value(StatusLabel::Operation), QStringLiteral("Frame Saved")) << "cancelled";
}

TEST_F(ViewerTest, WithNoCapAFileIsWrittenBeforeTheWindowShowsItsPicture)
{
    state.NoCap = true;
    const auto viewer = Open();
    EXPECT_TRUE(QFile::exists(frame.folder.filePath(QStringLiteral("AutoSave/auto1.bmp"))));
    EXPECT_EQ(frame.player.stillsGiven, 1);
}

TEST_F(ViewerTest, AFailureWhileThePictureIsLoadedIsTold)
{
    state.NoCap = true;
    frame.player.failsStills = true;
    frame.errors.Expect(
        QStringLiteral("Error Opening Capture!"), QStringLiteral("Error opening clipboard capture."));
    EXPECT_FALSE(Open()->Picture().Bitmap().isNull()) << "the capture itself is not lost";
}

TEST_F(ViewerTest, AFailureLeavesNoThumbnailBehindForTheNextCapture)
{
    state.NoCap = true;
    state.UseSelectedBitmap = true;
    frame.player.failsStills = true;
    frame.errors.Expect(
        QStringLiteral("Error Opening Capture!"), QStringLiteral("Error opening clipboard capture."));
    Open();
    EXPECT_FALSE(state.UseSelectedBitmap);
}

TEST_F(ViewerTest, ClosingTakesTheWindowOutOfTheKidTable)
{
    const auto viewer = Open();
    EXPECT_EQ(frame.log.count(QStringLiteral("AddKid")), 1);
    viewer->close();
    EXPECT_EQ(frame.log.count(QStringLiteral("RemoveKid")), 1);
}

TEST_F(ViewerTest, ThePictureIsPrintedWhereTheSettingPutsIt)
{
    const std::pair<qint16, QPoint> places[] { { 0, { 0, 0 } }, { 4, { 313, 492 } }, { 8, { 626, 985 } } };
    const auto viewer = Open();
    for (const auto& [align, place] : places) {
        state.PPosition = align;
        viewer->PrintMe();
        const QImage page = frame.printers.jobs.last().page;
        EXPECT_EQ(page.pixelColor(place), QColor(Qt::red)) << align;
        EXPECT_EQ(page.pixelColor(place + QPoint(119, 89)), QColor(Qt::red)) << align;
        EXPECT_EQ(page.copy(QRect(place, QSize(120, 90))).pixelColor(60, 45), QColor(Qt::red)) << align;
    }
}

TEST_F(ViewerTest, QualityAndColourArePrintedAsTheyAreStoredNow)
{
    const auto viewer = Open();
    state.HighQ = false;
    viewer->PrintMe();
    EXPECT_TRUE(state.HighQ) << "the store's default";
    EXPECT_EQ(frame.printers.jobs.last().quality, 600);
    EXPECT_EQ(frame.printers.jobs.last().color, ColorMode::Color);
    for (const auto& [key, value] : { std::pair("HighQ", "False"), std::pair("BW", "True") })
        ASSERT_TRUE(
            state.Settings.SaveSetting(state.SettingsSection, QLatin1String(key), QLatin1String(value)));
    viewer->PrintMe();
    EXPECT_EQ(frame.printers.jobs.last().quality, 300);
    EXPECT_EQ(frame.printers.jobs.last().color, ColorMode::Monochrome);
}

TEST_F(ViewerTest, ASecondPrintOfTheSamePictureIsTheSame)
{
    const auto viewer = Open();
    viewer->PrintMe();
    EXPECT_FALSE(state.PrintCall);
    viewer->PrintMe();
    ASSERT_EQ(frame.printers.jobs.size(), 2);
    EXPECT_EQ(frame.printers.jobs[1].page, frame.printers.jobs[0].page);
    EXPECT_EQ(frame.printers.jobs[1].at, frame.printers.jobs[0].at);
}

TEST_F(ViewerTest, TheEditIsPrinted)
{
    const auto viewer = Open();
    QImage blue(120, 90, QImage::Format_BGR888);
    blue.fill(Qt::blue);
    viewer->Picture().SetBitmap(blue);
    viewer->KeepEdit();
    state.PPosition = 0;
    viewer->PrintMe();
    EXPECT_EQ(frame.printers.jobs.last().page.pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(ViewerTest, AFailedPrintIsToldAndTheNextOneGoesOn)
{
    const auto viewer = Open();
    frame.printers.failsPrint = true;
    bool isBusy = false;
    frame.printers.whilePrinting = [&] { isBusy = CurrentPointer() == Pointer::Busy; };
    frame.errors.Expect(QStringLiteral("Print Error!"),
        QStringLiteral("Error with printing. Check printer, cables, and printer settings."));
    viewer->PrintMe();
    EXPECT_TRUE(isBusy);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    EXPECT_EQ(frame.errors.lastOwner, &frame.window);
    frame.printers.failsPrint = false;
    viewer->PrintMe();
    EXPECT_EQ(frame.printers.jobs.size(), 1);
}

TEST_F(ViewerTest, WithoutAnyPrinterTheErrorIsTold)
{
    const auto viewer = Open();
    frame.printers.RemoveAll();
    frame.errors.Expect(QStringLiteral("Print Error!"),
        QStringLiteral("Error with printing. Check printer, cables, and printer settings."));
    viewer->PrintMe();
}

TEST_F(ViewerTest, AnEmptyWindowWastesNoPaper)
{
    frame.clipboard.picture = {};
    const auto viewer = Open();
    frame.errors.Expect(QStringLiteral("Print Error!"),
        QStringLiteral("Error with printing. Check printer, cables, and printer settings."));
    viewer->PrintMe();
    EXPECT_TRUE(frame.printers.jobs.isEmpty());
}

TEST_F(ViewerTest, AWindowThatClosesOverItsPrintIsPrintedAllTheSame)
{
    auto viewer = Open();
    frame.whenPumped = [&] { viewer.reset(); };
    viewer->PrintMe();
    EXPECT_EQ(viewer, nullptr);
    EXPECT_EQ(frame.printers.jobs.size(), 1);
}

TEST_F(ViewerTest, EveryControlHasANameAndIsReachedByKeys)
{
    const auto viewer = Open();
    EXPECT_EQ(AccessFaults(*viewer), "");
}
