#include "viewers/QuickShots.h"

#include "imaging/PictureFile.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/Files.h"
#include "text/PrintUserText.h"
#include "toolkit/TitleStrip.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QAccessible>
#include <QDir>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <gtest/gtest.h>
#include <optional>

namespace {

/// The pixels a little inside the corners of an area.
std::array<QRgb, 4> CornersOf(const QImage& picture, const QRect& area)
{
    const QRect inside = area.adjusted(2, 2, -2, -2);
    return { picture.pixel(inside.topLeft()), picture.pixel(inside.topRight()),
        picture.pixel(inside.bottomLeft()), picture.pixel(inside.bottomRight()) };
}

/// Black, with a square of another colour in each corner.
QImage WithCorners(QSize size)
{
    QImage picture(size, QImage::Format_BGR888);
    picture.fill(Qt::black);
    const QSize square = size / 8;
    const QPoint last(size.width() - square.width(), size.height() - square.height());
    QPainter painter(&picture);
    painter.fillRect(QRect({ 0, 0 }, square), Qt::red);
    painter.fillRect(QRect({ last.x(), 0 }, square), Qt::green);
    painter.fillRect(QRect({ 0, last.y() }, square), Qt::blue);
    painter.fillRect(QRect(last, square), Qt::yellow);
    return picture;
}

class QuickShotsTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    std::unique_ptr<QuickShots> strip;
    ThumbPanel* panel = nullptr;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    void SetUp() override
    {
        state.OpThumb = 0;
        strip = std::make_unique<QuickShots>(frame);
        strip->setAttribute(Qt::WA_DeleteOnClose, false);
        strip->show();
        panel = strip->findChild<ThumbPanel*>(QStringLiteral("PicInner"));
    }
    void Add(QColor colour)
    {
        QImage picture(30, 20, QImage::Format_BGR888);
        picture.fill(colour);
        frame.hold.SetBitmap(picture);
        strip->mnuControlsAdd2();
    }
    /// A capture wide enough for the user's text, which is to be drawn at the next saving.
    QImage AddWhiteWithText()
    {
        state.UseWatermark = true;
        QImage picture(400, 100, QImage::Format_BGR888);
        picture.fill(Qt::white);
        frame.hold.SetBitmap(picture);
        strip->mnuControlsAdd2();
        return picture;
    }
    QStringList Saved() const { return FilesIn(state.Beside(QStringLiteral("AutoSave"))); }
    QImage SavedAs(const QString& name) const
    {
        return QImage(state.Beside(QStringLiteral("AutoSave/")) + name)
            .convertToFormat(QImage::Format_BGR888);
    }
    /// Saves five, and when two stand on the disk something happens to it.
    void SaveFiveButNoMoreThanTwo(const std::function<void()>& happen)
    {
        for (int i = 0; i < 5; ++i)
            AddWhiteWithText();
        int saved = 0;
        frame.whenPumped = [&] {
            if (++saved == 2)
                happen();
        };
        frame.errors.Expect(QStringLiteral("Error!"), QStringLiteral("Error saving captured video frame."));
        Click("Cmds(5)");
        frame.whenPumped = nullptr;
    }
    void ExpectTwoOfFiveSaved()
    {
        const QStringList files { QStringLiteral("AutoThumb1.bmp"), QStringLiteral("AutoThumb2.bmp") };
        ASSERT_EQ(Saved(), files);
        const QImage plain = panel->Bitmap(4);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(panel->Bitmap(i), WithUserText(plain, state)) << i;
            EXPECT_EQ(SavedAs(files.at(i)), panel->Bitmap(i)) << i;
        }
        EXPECT_EQ(panel->Bitmap(2), plain) << "the one that failed";
        EXPECT_NE(frame.status.value(StatusLabel::Operation), QStringLiteral("All Thumbs Saved"));
    }
    void Pick(int index) { QTest::mouseClick(panel, Qt::LeftButton, {}, panel->CellRect(index).center()); }
    QScrollBar& Vbar() const { return *strip->findChild<QScrollBar*>(QStringLiteral("Vbar")); }
    QWidget* Find(const char* name) { return strip->findChild<QWidget*>(QLatin1String(name)); }
    void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }
};

} // namespace

TEST_F(QuickShotsTest, AThumbnailSharesThePixelsOfItsCapture)
{
    Add(Qt::red);
    EXPECT_EQ(panel->Bitmap(0).constBits(), frame.hold.Bitmap().constBits());
}

TEST_F(QuickShotsTest, ItsTitleAndTheTipsOfItsButtons)
{
    EXPECT_EQ(strip->Head().Title(), QStringLiteral("Captured Thumbnails"));
    Add(Qt::red);
    const struct {
        const char* button;
        const char* tip;
    } expected[] = { { "Cmds(0)", " Close Thumbnail Window " }, { "Cmds(1)", " Minimize Window " },
        { "Cmds(2)", " Open Highlighted Capture " },
        { "Cmds(3)", "Make highlighted picture the programs wallpaper" },
        { "Cmds(4)", " Save as System Wallpaper " }, { "Cmds(5)", "Save ALL pictures to the AutoFolder" } };
    for (const auto& row : expected)
        EXPECT_EQ(Find(row.button)->toolTip(), QLatin1String(row.tip)) << row.button;
    state.ToolTip = false;
    Add(Qt::blue);
    for (const auto& row : expected)
        EXPECT_EQ(Find(row.button)->toolTip(), QString()) << row.button;
}

TEST_F(QuickShotsTest, ItsButtonsMinimizeAndCloseIt)
{
    Click("Cmds(1)");
    EXPECT_EQ(strip->CurrentShape(), ChildForm::Shape::Minimized);
    Click("Cmds(1)");
    EXPECT_EQ(strip->CurrentShape(), ChildForm::Shape::Normal);
    Click("Cmds(0)");
    EXPECT_FALSE(strip->isVisible());
    EXPECT_FALSE(state.QuickShotsOpen);
}

TEST_F(QuickShotsTest, WithACaptureWindowTheCellHoldsThePictureOfTheActiveOne)
{
    frame.clipboard.picture = QImage(60, 40, QImage::Format_BGR888);
    frame.clipboard.picture.fill(Qt::darkGreen);
    Viewer viewer(frame);
    viewer.setAttribute(Qt::WA_DeleteOnClose, false);
    frame.activeForm = &viewer;
    for (const qint16 opThumb : { qint16(1), qint16(2) }) {
        state.OpThumb = opThumb;
        Add(Qt::red); // what the frame holds for the thumbnail alone is not looked at
        EXPECT_EQ(panel->Bitmap(panel->Count() - 1), viewer.ClipPic()) << opThumb;
        EXPECT_EQ(panel->Bitmap(panel->Count() - 1).pixelColor(0, 0), QColor(Qt::darkGreen)) << opThumb;
    }
}

TEST_F(QuickShotsTest, AThumbnailThatIsPickedFlashes)
{
    Add(Qt::red);
    Add(Qt::blue);
    const auto middleOf = [this](int index) {
        return panel->grab(QRect(panel->CellRect(index).center(), QSize(1, 1))).toImage().pixelColor(0, 0);
    };
    ASSERT_EQ(middleOf(1), QColor(Qt::blue));
    Pick(1);
    EXPECT_NE(middleOf(1), QColor(Qt::blue));
    EXPECT_EQ(middleOf(0), QColor(Qt::red));
    EXPECT_TRUE(QTest::qWaitFor([&] { return middleOf(1) == QColor(Qt::blue); }, 10'000));
}

TEST_F(QuickShotsTest, ACellShowsTheWholePictureInItsProportions)
{
    const struct {
        QSize picture;
        QRect shown; ///< in the cell
    } rows[] = { { { 640, 480 }, { 0, 0, 160, 120 } }, { { 640, 160 }, { 0, 40, 160, 40 } },
        { { 160, 480 }, { 60, 0, 40, 120 } } };
    for (const auto& row : rows) {
        const QImage picture = WithCorners(row.picture);
        frame.hold.SetBitmap(picture);
        strip->mnuControlsAdd2();
        const QImage cell = panel->grab(panel->CellRect(panel->Count() - 1)).toImage();
        EXPECT_EQ(CornersOf(cell, row.shown), CornersOf(picture, picture.rect())) << row.shown.height();
    }
}

TEST_F(QuickShotsTest, AllAreSavedInTheFormatOfCaptures)
{
    const struct {
        const char* ext;
        QByteArray mark;
    } formats[] = { { ".jpg", "\xFF\xD8\xFF" }, { ".tga", QByteArray(2, '\0') + '\2' }, { ".gif", "GIF8" },
        { ".tif", "II*" }, { ".png", "\x89PNG" }, { ".psd", "8BPS" } };
    Add(Qt::red);
    for (const auto& format : formats) {
        state.Settings.SaveSetting(
            QStringLiteral("Options"), QStringLiteral("Ext"), QLatin1String(format.ext));
        Click("Cmds(5)");
        const QString path = state.Beside(QStringLiteral("AutoSave/AutoThumb1")) + QLatin1String(format.ext);
        EXPECT_TRUE(FileBytes(path).startsWith(format.mark)) << format.ext;
    }
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
    Pick(1);
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
    Pick(0);
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

TEST_F(QuickShotsTest, ADoubleClickPicksTheThumbnailAndShowsItOnTheWholeScreenBeforeTheFlash)
{
    Add(Qt::red);
    Add(Qt::blue);
    const auto shown = [this] { return panel->grab(panel->CellRect(1)).toImage(); };
    QImage meanwhile;
    frame.whileFullScreen = [&] { meanwhile = shown(); };
    QTest::mouseDClick(panel, Qt::LeftButton, {}, panel->CellRect(1).center());
    EXPECT_EQ(frame.fullScreen.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(state.SelectedBitmap.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(panel->Selected(), 1);
    EXPECT_EQ(frame.log.count(QStringLiteral("ShowFullScreen")), 1);
    EXPECT_NE(shown(), meanwhile) << "it flashes afterwards";
}

TEST_F(QuickShotsTest, EnterPicksAThumbnailAndOnThePickedOneShowsItOnTheWholeScreen)
{
    Add(Qt::red);
    QTest::keyClick(panel, Qt::Key_Return);
    EXPECT_EQ(panel->Selected(), 0);
    EXPECT_TRUE(frame.fullScreen.isNull());
    QTest::keyClick(panel, Qt::Key_Return);
    EXPECT_EQ(frame.fullScreen.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(QuickShotsTest, TheStripMayCloseWhileAPictureStandsOnTheWholeScreen)
{
    Add(Qt::red);
    frame.whileFullScreen = [this] { strip.reset(); };
    QTest::mouseDClick(panel, Qt::LeftButton, {}, panel->CellRect(0).center());
    EXPECT_EQ(strip, nullptr);
}

TEST_F(QuickShotsTest, APressBetweenTheCellsPicksNothing)
{
    Add(Qt::red);
    Add(Qt::blue);
    QTest::mouseClick(panel, Qt::LeftButton, {}, panel->CellRect(0).topRight() + QPoint(5, 20));
    EXPECT_EQ(panel->Selected(), -1);
    EXPECT_TRUE(state.SelectedBitmap.isNull());
}

TEST_F(QuickShotsTest, TheKeysWalkFromCellToCell)
{
    for (int i = 0; i < 7; ++i)
        Add(Qt::red);
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(panel, key);
        return panel->Selected();
    };
    int perRow = 1;
    while (panel->CellRect(perRow).top() == panel->CellRect(0).top())
        ++perRow;
    EXPECT_EQ(press(Qt::Key_Right), 0) << "the first key picks the first";
    EXPECT_EQ(press(Qt::Key_Right), 1);
    EXPECT_EQ(press(Qt::Key_Down), 1 + perRow);
    EXPECT_EQ(press(Qt::Key_Up), 1);
    EXPECT_EQ(press(Qt::Key_Up), 1) << "there is nothing above";
    EXPECT_EQ(press(Qt::Key_End), 6);
    EXPECT_EQ(press(Qt::Key_Home), 0);
    EXPECT_EQ(press(Qt::Key_Left), 0);
    EXPECT_EQ(state.SelectedBitmap.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(QuickShotsTest, AWiderWindowTakesMoreCellsIntoARow)
{
    for (int i = 0; i < 8; ++i)
        Add(Qt::red);
    const int before = panel->CellRect(7).top();
    strip->resize(strip->width() + 400, strip->height());
    QCoreApplication::processEvents();
    EXPECT_LT(panel->CellRect(7).top(), before);
}

TEST_F(QuickShotsTest, AStripNarrowerThanACellHasRowsOfOneAndScrolls)
{
    strip->resize(100, 200);
    for (int i = 0; i < 3; ++i)
        Add(Qt::red);
    QCoreApplication::processEvents();
    ASSERT_LT(panel->width(), ThumbPanel::CellSize.width());
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(panel->CellRect(i).topLeft(), QPoint(8, 8 + i * (120 + 10))) << i;
    Vbar().setValue(50);
    EXPECT_EQ(panel->y(), -50);
}

TEST_F(QuickShotsTest, TheBarMovesThePanelUp)
{
    for (int i = 0; i < 40; ++i)
        Add(Qt::red);
    auto* outer = strip->findChild<QScrollArea*>(QStringLiteral("PicOuter"));
    QCoreApplication::processEvents();
    ASSERT_GT(Vbar().maximum(), 0);
    Vbar().setValue(50);
    EXPECT_EQ(panel->y(), -50);
    QTest::keyClick(panel, Qt::Key_End);
    EXPECT_TRUE(outer->viewport()->rect().contains(panel->CellRect(39).translated(panel->pos())));
}

TEST_F(QuickShotsTest, TenThousandThumbnailsCostNoMoreThanThoseInSight)
{
    const auto widgets = QApplication::allWidgets().size();
    QImage picture(320, 240, QImage::Format_BGR888);
    picture.fill(Qt::red);
    frame.hold.SetBitmap(picture);
    for (int i = 0; i < 10'000; ++i)
        strip->mnuControlsAdd2();
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    for (int i = 0; i <= 100; ++i) {
        Vbar().setValue(Vbar().maximum() * i / 100);
        strip->grab();
    }
    EXPECT_GT(panel->CachedBytes(), 0);
    EXPECT_LE(panel->CachedBytes(), ThumbPanel::MaxCachedBytes);
    Pick(9'999);
    EXPECT_EQ(panel->Selected(), 9'999);
}

TEST_F(QuickShotsTest, EveryCellHasANameForThoseWhoCannotSeeIt)
{
    Add(Qt::red);
    Add(Qt::blue);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(panel);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 2);
    QAccessibleInterface* cell = list->child(1);
    EXPECT_EQ(cell->text(QAccessible::Name), "Thumbnail 2");
    EXPECT_EQ(list->indexOfChild(cell), 1);
    cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(panel->Selected(), 1);
    EXPECT_TRUE(cell->state().selected);
}

TEST_F(QuickShotsTest, WithTheWatermarkOnTheTextIsDrawnIntoEveryThumbnailSaved)
{
    const QImage picture = AddWhiteWithText();
    Click("Cmds(5)");
    EXPECT_NE(panel->Bitmap(0), picture);
    EXPECT_EQ(
        QImage(state.Beside(QStringLiteral("AutoSave/AutoThumb1.bmp"))).convertToFormat(QImage::Format_RGB32),
        panel->Bitmap(0).convertToFormat(QImage::Format_RGB32));
}

TEST_F(QuickShotsTest, TheUsersTextIsDrawnOnTheThumbnailOfThatNumberAsOnACapture)
{
    const QImage picture = AddWhiteWithText();
    AddWhiteWithText();
    strip->ThumbIndex = 1;
    strip->AllThumbWatermark();
    EXPECT_EQ(panel->Bitmap(1), WithUserText(picture, state));
    EXPECT_EQ(panel->Bitmap(0), picture);
}

TEST_F(QuickShotsTest, TheNextSavingDrawsTheTextOnceMore)
{
    AddWhiteWithText();
    Click("Cmds(5)");
    Click("Cmds(5)");
    const QImage once = SavedAs(QStringLiteral("AutoThumb1.bmp"));
    const QImage twice = SavedAs(QStringLiteral("AutoThumb2.bmp"));
    EXPECT_EQ(twice, WithUserText(once, state));
    EXPECT_NE(twice, once);
}

TEST_F(QuickShotsTest, ThePickedThumbnailOpensWithTheTextThatItWasSavedWith)
{
    AddWhiteWithText();
    Pick(0);
    Click("Cmds(5)");
    EXPECT_EQ(state.SelectedBitmap, panel->Bitmap(0));
    EXPECT_EQ(state.CurrentFile, state.Beside(QStringLiteral("AutoSave/AutoThumb1.bmp")));
}

TEST_F(QuickShotsTest, AThumbnailThatCouldNotBeSavedKeepsNoText)
{
    const QImage picture = AddWhiteWithText();
    QDir(state.Beside(QStringLiteral("AutoSave"))).removeRecursively();
    MakeFile(state.Beside(QStringLiteral("AutoSave")), "a file where the folder was");
    frame.errors.Expect(QStringLiteral("Error!"), QStringLiteral("Error saving captured video frame."));
    Click("Cmds(5)");
    EXPECT_EQ(panel->Bitmap(0), picture);
    EXPECT_NE(frame.status.value(StatusLabel::Operation), QStringLiteral("All Thumbs Saved"));
}

TEST_F(QuickShotsTest, AFolderThatGoesAfterTwoOfFiveLeavesTheirFilesAndTheirTextOnly)
{
    const QString folder = state.Beside(QStringLiteral("AutoSave"));
    SaveFiveButNoMoreThanTwo([&] { QDir().rename(folder, folder + QStringLiteral(".away")); });
    QDir().rename(folder + QStringLiteral(".away"), folder);
    ExpectTwoOfFiveSaved();
}

TEST_F(QuickShotsTest, ADiskThatGetsFullAfterTwoOfFiveLeavesTheirFilesAndTheirTextOnly)
{
    std::optional<FileSizeLimit> limit;
    SaveFiveButNoMoreThanTwo([&] { limit.emplace(1000); });
    limit.reset();
    ExpectTwoOfFiveSaved();
}

TEST_F(QuickShotsTest, AnEmptyStripSavesNothingAndSaysNoError)
{
    Click("Cmds(5)");
    EXPECT_EQ(Saved(), QStringList());
}

TEST_F(QuickShotsTest, AStripClosedWhileAllAreSavedEndsTheSaving)
{
    for (int i = 0; i < 5; ++i)
        Add(Qt::red);
    frame.whenPumped = [this] {
        frame.whenPumped = nullptr;
        strip->close();
    };
    Click("Cmds(5)");
    EXPECT_EQ(FilesIn(state.Beside(QStringLiteral("AutoSave"))).size(), 1);
    EXPECT_NE(frame.status.value(StatusLabel::Operation), QStringLiteral("All Thumbs Saved"));
}
