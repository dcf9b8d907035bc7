#include "edit/Visual.h"

#include "app/Hourglass.h"
#include "edit/ColorRes.h"
#include "edit/EffectRows.h"
#include "imaging/Animation.h"
#include "imaging/FormatTable.h"
#include "imaging/PictureFile.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/EditSamples.h"
#include "tests/testing/FakeCapture.h"
#include "tests/testing/Files.h"
#include "tests/testing/MovingGif.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/RunningDialog.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTimer>

#include <array>
#include <gtest/gtest.h>
#include <vector>

using EditSamples::Done;
using EditSamples::Filled;
using EditSamples::Ramp;

namespace {

class VisualTest : public testing::Test {
protected:
    FakeFrame frame;
    FakeCapture capture { Ramp() };
    QPointer<Visual> visual;

    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }
    void SetUp() override
    {
        frame.state.FadeOuts = false;
        capture.MakeActive(frame);
        frame.clipboard.picture = Filled(Qt::red);
    }
    void TearDown() override { delete visual; }
    void Open()
    {
        delete visual;
        visual = new Visual(frame);
        visual->setAttribute(Qt::WA_DeleteOnClose, false);
    }
    template <typename Widget = QWidget> Widget& Find(const QString& name)
    {
        Widget* const found = visual->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return *found;
    }
    void Click(const char* name) { QTest::mouseClick(&Find(QLatin1String(name)), Qt::LeftButton); }
    void Choose(const char* name) { Find<QRadioButton>(QLatin1String(name)).click(); }
    Lead& Control(const char* name) { return Find<Lead>(QLatin1String(name)); }
    QImage Effect() { return Control("Effect").Bitmap(); }
    QSlider& Slider(int index) { return Find<QSlider>(QStringLiteral("TScrolls(%1)").arg(index)); }
    QLineEdit& Answer(int index) { return Find<QLineEdit>(QStringLiteral("Answer(%1)").arg(index)); }
    QPushButton& ViewClip() { return Find<QPushButton>(QStringLiteral("ViewClip_Button")); }
    QTimer& ClipTimer() { return *visual->findChild<QTimer*>(QStringLiteral("ClipTimer")); }
    /// The four seconds are over.
    void EndClipTimer()
    {
        QTimer& timer = ClipTimer();
        ASSERT_TRUE(timer.isActive());
        ASSERT_EQ(timer.interval(), 4000);
        timer.setInterval(0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }));
    }
    QString SettingsFile() { return frame.state.Beside(QStringLiteral("Settings.Ini")); }
    QString SavedPicture(const QImage& picture)
    {
        const QString path = frame.folder.filePath(QStringLiteral("other.png"));
        Lead lead;
        lead.SetBitmap(picture);
        lead.Save(path, imaging::Png, 24, 0, false);
        return path;
    }
    /// Other settings of the sliders, line by line.
    void WriteSettings(const QByteArray& lines) { ASSERT_TRUE(MakeFile(SettingsFile(), lines)); }
    /// Accepts these options in the dialog of colours.
    void ChangeResolution(const std::vector<const char*>& options)
    {
        WhenOpen<ColorRes>([options](ColorRes& form) {
            for (const char* option : options)
                form.findChild<QRadioButton*>(QLatin1String(option))->click();
            form.accept();
        });
        Click("Command16");
    }
    QProgressBar& Gauge() { return Find<QProgressBar>(QStringLiteral("StatGauge")); }
    QString Folder() { return Find<QLabel>(QStringLiteral("LblFolder")).text(); }
};

} // namespace

TEST_F(VisualTest, OpensOnTheActiveCapturesClipPic)
{
    capture.lead.SetBitmap(Filled(Qt::blue)); // a preview of the tools
    Open();
    EXPECT_TRUE(frame.state.VisualReady);
    EXPECT_TRUE(visual->isVisible());
    for (const char* control : { "Effect", "Undos", "Original" })
        EXPECT_EQ(Control(control).Bitmap(), Ramp()) << control;
    EXPECT_EQ(visual->windowTitle(), QStringLiteral("Visual Editor"));
}

TEST_F(VisualTest, ThePictureIsFrozenAtTheOpening)
{
    Open();
    capture.ShowPicture(Filled(Qt::blue));
    Click("Command11");
    Click("Command9");
    EXPECT_EQ(Effect(), Ramp());
}

TEST_F(VisualTest, WithAVideoWindowOnTopItSaysSoAndDoesNotOpen)
{
    frame.activeWindow = nullptr;
    frame.errors.Expect(QStringLiteral("Error Opening Graphic"),
        QStringLiteral(
            " Is the video window on top?  If so, click on a capture so the visual editor can see it."));
    Open();
    EXPECT_FALSE(frame.state.VisualReady);
    EXPECT_FALSE(visual->isVisible());
}

TEST_F(VisualTest, AnEmptyClipboardAtTheOpeningDisablesWhatNeedsIt)
{
    frame.clipboard.picture = {};
    Open();
    EXPECT_EQ(ViewClip().text(), QStringLiteral("Clipboard Empt&y"));
    for (const char* control : { "ViewClip_Button", "Command3", "Option3(0)", "Option3(1)" })
        EXPECT_FALSE(Find(QLatin1String(control)).isEnabled()) << control;
}

TEST_F(VisualTest, APictureOnTheClipboardAtTheOpeningIsTaken)
{
    Open();
    EXPECT_EQ(ViewClip().text(), QStringLiteral("A&dd Clipboard"));
    EXPECT_TRUE(ViewClip().isEnabled());
    EXPECT_EQ(Control("Lead1").Bitmap(), Filled(Qt::red));
}

TEST_F(VisualTest, ComingBackToThePictureRefreshesTheButtonsWithoutPasting)
{
    Open();
    frame.clipboard.picture = {};
    QTest::mouseClick(&Control("Effect"), Qt::LeftButton);
    EXPECT_FALSE(ViewClip().isEnabled());
    frame.clipboard.picture = Filled(Qt::green);
    QTest::mouseClick(&Control("Effect"), Qt::LeftButton);
    EXPECT_TRUE(ViewClip().isEnabled());
    EXPECT_EQ(Control("Lead1").Bitmap(), Filled(Qt::red));
}

TEST_F(VisualTest, EveryRowAppliesItsSliderAndGoesBackToItsStart)
{
    Open();
    for (int index = 0; index < EffectRowCount; ++index) {
        const EffectRow& row = EffectRows()[size_t(index)];
        const int value = row.start + (row.max - row.start) / 2;
        const QImage before = Effect();
        Slider(index).setValue(value);
        Click(qPrintable(index < 6 ? QStringLiteral("ImageBut(%1)").arg(index)
                                   : QStringLiteral("EffectBut(%1)").arg(index - 6)));
        EXPECT_EQ(Effect(), Done(before, [&](Lead& lead) { row.apply(lead, value, 0); })) << row.label;
        EXPECT_EQ(Slider(index).value(), row.start) << row.label;
        EXPECT_EQ(Answer(index).text(), QString::number(row.start)) << row.label;
        EXPECT_NE(Effect(), before) << row.label;
        Click("Command18");
        EXPECT_EQ(Effect(), before) << row.label;
    }
    EXPECT_FALSE(frame.state.VisualBusy);
}

TEST_F(VisualTest, ASecondClickAppliesTheStartValue)
{
    Open();
    const auto median = [](int size) { return [size](Lead& lead) { lead.Median(size); }; };
    Slider(10).setValue(9);
    Click("EffectBut(4)");
    const QImage once = Done(Ramp(), median(9));
    EXPECT_EQ(Effect(), once);
    EXPECT_EQ(Slider(10).value(), 3);
    Click("EffectBut(4)");
    EXPECT_EQ(Effect(), Done(once, median(3)));
}

TEST_F(VisualTest, EmbossTakesTheDirectionChosen)
{
    Open();
    Choose("Option2(3)");
    Click("EffectBut(1)");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Emboss(3, 2); }));
}

TEST_F(VisualTest, EdgeFiltersTakeTheDirectionChosen)
{
    struct Case {
        const char* button;
        const char* option;
        int code;
    };
    Open();
    for (const Case& one : { Case { "Command12", "Option1(0)", 22 }, Case { "Command12", "Option1(1)", 23 },
             Case { "Command13", "Option1(0)", 24 }, Case { "Command13", "Option1(1)", 25 },
             Case { "Command14", "Option1(0)", 27 }, Case { "Command15", "Option2(0)", 10 },
             Case { "Command15", "Option2(1)", 14 }, Case { "Command15", "Option2(2)", 8 },
             Case { "Command15", "Option2(3)", 12 } }) {
        Choose(one.option);
        Click(one.button);
        EXPECT_EQ(Effect(), Done(Ramp(), [&](Lead& lead) { lead.SpatialFilter(one.code); }))
            << one.button << one.option;
        Click("Command18");
    }
}

TEST_F(VisualTest, ShiftWithVerticalSetIsStillHorizontal)
{
    Open();
    Choose("Option1(1)");
    Click("Command14");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.SpatialFilter(27); }));
}

TEST_F(VisualTest, OperationsWithoutAmountApplyAtOnce)
{
    const std::pair<const char*, void (Lead::*)()> operations[] { { "Command1", &Lead::StretchIntensity },
        { "Command2", &Lead::Grayscale }, { "Command4", &Lead::Invert }, { "Command6", &Lead::Reverse },
        { "Image3", &Lead::Flip } };
    Open();
    for (const auto& [button, operation] : operations) {
        Click(button);
        EXPECT_EQ(Effect(), Done(Ramp(), [&](Lead& lead) { (lead.*operation)(); })) << button;
        EXPECT_NE(Effect(), Ramp()) << button;
        Click("Command18");
        EXPECT_EQ(Effect(), Ramp()) << button;
    }
}

TEST_F(VisualTest, QuickTurnsAreSteppedOverByBack)
{
    Open();
    Click("Command4");
    for (const auto& [button, angle] :
        { std::pair("Rotate(0)", 9000), std::pair("Rotate(1)", 27000), std::pair("Rotate(2)", 18000) }) {
        const QImage before = Effect();
        Click(button);
        EXPECT_EQ(Effect(), Done(before, [a = angle](Lead& lead) { lead.Rotate(a, true, Qt::white); }))
            << button;
    }
    Click("Command18");
    EXPECT_EQ(Effect(), Ramp()) << "before the invert";
}

TEST_F(VisualTest, TheAngleWithoutResizingKeepsTheFrameAndFillsTheCornersWhite)
{
    Open();
    Find<QSlider>(QStringLiteral("Angle")).setValue(450);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("AnswerAngle")).text(), QStringLiteral("450"));
    Click("AngleBut");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Rotate(4500, false, Qt::white); }));
    EXPECT_EQ(Effect().size(), Ramp().size());
    EXPECT_EQ(Effect().pixelColor(0, 0), QColor(Qt::white));
    EXPECT_EQ(Find<QSlider>(QStringLiteral("Angle")).value(), 0);
}

TEST_F(VisualTest, TheAngleWithResizingGrowsThePicture)
{
    Open();
    Find<QCheckBox>(QStringLiteral("Check1")).setChecked(true);
    Find<QSlider>(QStringLiteral("Angle")).setValue(450);
    Click("AngleBut");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Rotate(4500, true, Qt::white); }));
}

TEST_F(VisualTest, TheLowestAngleIsAWholeTurn)
{
    Open();
    QSlider& angle = Find<QSlider>(QStringLiteral("Angle"));
    angle.setValue(-9999);
    EXPECT_EQ(angle.value(), -3600);
    Click("AngleBut");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Rotate(-36000, false, Qt::white); }));
    EXPECT_EQ(angle.value(), 0);
}

TEST_F(VisualTest, TheAngleIsSteppedOverByBack)
{
    Open();
    Click("Command4");
    Find<QSlider>(QStringLiteral("Angle")).setValue(300);
    Click("AngleBut");
    Click("Command18");
    EXPECT_EQ(Effect(), Ramp()) << "before the invert";
}

TEST_F(VisualTest, BackTwiceChangesNothingMore)
{
    Open();
    Click("Command4");
    Click("Command6");
    Click("Command18");
    const QImage inverted = Done(Ramp(), [](Lead& lead) { lead.Invert(); });
    EXPECT_EQ(Effect(), inverted);
    Click("Command18");
    EXPECT_EQ(Effect(), inverted);
}

TEST_F(VisualTest, SetAndUndoToBringBackTheBookmark)
{
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    Click("Command10");
    Click("Command6");
    Click("Command2");
    Click("Command9");
    EXPECT_EQ(Effect(), inverted);
}

TEST_F(VisualTest, OriginalMovesTheBookmarkOnly)
{
    Open();
    Click("Command4");
    Click("Command10");
    const QImage inverted = Effect();
    Click("Command11");
    EXPECT_EQ(Effect(), inverted);
    Click("Command9");
    EXPECT_EQ(Effect(), Ramp());
}

TEST_F(VisualTest, TheClipboardShowsForFourSecondsAndThePictureComesBack)
{
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    ViewClip().click();
    EXPECT_EQ(Effect(), Filled(Qt::red));
    EndClipTimer();
    EXPECT_EQ(Effect(), inverted);
}

TEST_F(VisualTest, BackDuringTheFourSecondsReturnsAtOnceAndAgainAtTheTimer)
{
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    ViewClip().click();
    Click("Command18");
    EXPECT_EQ(Effect(), inverted);
    EndClipTimer();
    EXPECT_EQ(Effect(), inverted);
}

TEST_F(VisualTest, WhatIsDoneDuringTheFourSecondsIsDoneToThePictureItself)
{
    Open();
    ViewClip().click();
    ViewClip().click();
    Click("Command4");
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Invert(); }));
    EXPECT_FALSE(ClipTimer().isActive());
}

TEST_F(VisualTest, CopyPutsThePictureOnTheClipboardAndIntoItsView)
{
    frame.clipboard.picture = {};
    Open();
    Click("Command5");
    EXPECT_EQ(frame.clipboard.picture, Ramp());
    EXPECT_EQ(Control("Lead1").Bitmap(), Ramp());
    EXPECT_TRUE(ViewClip().isEnabled());
}

TEST_F(VisualTest, PasteLaysTheClipboardUnderThePicture)
{
    QImage halves = Filled(Qt::red);
    for (int y = 0; y < halves.height(); ++y)
        halves.setPixelColor(0, y, Qt::blue);
    frame.clipboard.picture = halves;
    const auto underlaid = [&](int flag) {
        return Done(Ramp(), [&](Lead& lead) { lead.Underlay(halves, flag); });
    };
    ASSERT_NE(underlaid(Lead::UnderlayTile), underlaid(Lead::UnderlayStretch));
    Open();
    for (const auto& [option, flag] : { std::pair("Option3(0)", int(Lead::UnderlayTile)),
             std::pair("Option3(1)", int(Lead::UnderlayStretch)) }) {
        Choose(option);
        Click("Command3");
        EXPECT_EQ(Effect(), underlaid(flag)) << option;
        Click("Command18");
        EXPECT_EQ(Effect(), Ramp());
    }
}

TEST_F(VisualTest, AnotherGraphicReplacesEverything)
{
    Open();
    const QString path = SavedPicture(Filled(Qt::green));
    frame.dialogs.openNames.push(path);
    Click("VideoSoftElastic6");
    EXPECT_EQ(frame.dialogs.title, QStringLiteral("Select Graphic To Edit"));
    EXPECT_EQ(frame.dialogs.extension, QStringLiteral("jpg"));
    EXPECT_EQ(frame.dialogs.owner, visual);
    for (const char* control : { "Effect", "Undos", "Original" })
        EXPECT_EQ(Control(control).Bitmap().convertToFormat(QImage::Format_RGB32),
            Filled(Qt::green).convertToFormat(QImage::Format_RGB32))
            << control;
    EXPECT_EQ(Find<QLabel>(QStringLiteral("LblFolder")).text(), path);
    frame.state.Reload(Key::OldFolder2, Reader::Visual);
    EXPECT_EQ(frame.state.OldFolder2, path);
}

TEST_F(VisualTest, TheNextChoiceBeginsInTheFolderOfTheLast)
{
    Open();
    frame.dialogs.openNames.push(SavedPicture(Filled(Qt::green)));
    frame.dialogs.openNames.push(QString());
    Click("VideoSoftElastic6");
    Click("VideoSoftElastic6");
    EXPECT_EQ(frame.dialogs.folder, frame.folder.path());
}

TEST_F(VisualTest, CancellingTheChoiceDropsTheEditsAndLoadsTheStoredNameAgain)
{
    Open();
    Click("Command4");
    frame.dialogs.openNames.push(QString());
    Click("VideoSoftElastic6");
    EXPECT_EQ(Effect(), Ramp()) << "no name is stored yet";
    const QString path = SavedPicture(Filled(Qt::green));
    frame.dialogs.openNames.push(path);
    Click("VideoSoftElastic6");
    SavedPicture(Filled(Qt::blue)); // the file has changed meanwhile
    frame.dialogs.openNames.push(QString());
    Click("VideoSoftElastic6");
    EXPECT_EQ(Effect().pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(VisualTest, AFileThatIsNoPictureLeavesTheOriginal)
{
    Open();
    Click("Command4");
    const QString path = frame.folder.filePath(QStringLiteral("broken.jpg"));
    ASSERT_TRUE(MakeFile(path, "no picture"));
    frame.dialogs.openNames.push(path);
    Click("VideoSoftElastic6");
    EXPECT_EQ(Effect(), Ramp());
    EXPECT_EQ(frame.status.value(StatusLabel::Operation),
        QStringLiteral("The file is not a picture of a known kind."));
    EXPECT_TRUE(frame.alerts.contains(StatusLabel::Operation));
}

TEST_F(VisualTest, TheSlidersPlacesAtOpeningAnotherGraphicAreTheirNewStarts)
{
    Open();
    Slider(0).setValue(300);
    frame.dialogs.openNames.push(QString());
    Click("VideoSoftElastic6");
    Slider(0).setValue(-20);
    Click("ImageBut(0)");
    EXPECT_EQ(Slider(0).value(), 300);
}

TEST_F(VisualTest, ResolutionChangesTheDepth)
{
    Open();
    ChangeResolution({ "Bits(4)", "Palettes(2)", "Dithering(1)" });
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.SetColorResolution(4, 2, 1, 16); }));
    Click("Command18");
    EXPECT_EQ(Effect(), Ramp());
}

TEST_F(VisualTest, AnotherResolutionShowsALargePictureInTheSamePlaceAtTheSameSize)
{
    QImage halves = Filled(Qt::red, { 3000, 2000 });
    QPainter(&halves).fillRect(0, 0, 3000, 1000, Qt::blue);
    capture.ShowPicture(halves);
    Open();
    Lead& effect = Control("Effect");
    const QRect place = effect.geometry();
    const QImage seen = effect.grab().toImage();
    ASSERT_TRUE(place.width() < halves.width() && place.height() < halves.height());
    ChangeResolution({ "Bits(8)" });
    EXPECT_EQ(effect.BitmapBits(), 8);
    EXPECT_EQ(effect.geometry(), place);
    EXPECT_EQ(QSizeF(effect.DstWidth(), effect.DstHeight()), QSizeF(place.size()));
    EXPECT_EQ(effect.grab().toImage(), seen);
}

TEST_F(VisualTest, TheOrderThatIsChosenIsThatOfTheBytesOfAPixel)
{
    const QImage deep = Filled(QColor(10, 20, 30));
    const QImage flat = Done(deep, [](Lead& lead) { lead.SetColorResolution(8, 2, 0, 256); });
    for (const QImage& before : { flat, deep })
        for (const auto& [order, bytes] :
            { std::pair("Palettes(0)", std::array { 10, 20, 30 }), { "Palettes(4)", { 30, 20, 10 } } }) {
            capture.ShowPicture(before);
            Open();
            ChangeResolution({ "Bits(24)", order });
            const QImage effect = Effect();
            ASSERT_EQ(effect.depth(), 24);
            for (int place = 0; place < 3; ++place)
                EXPECT_EQ(effect.constScanLine(0)[place], bytes[size_t(place)]) << order << before.depth();
        }
}

TEST_F(VisualTest, AnOrderOfBytesIsNotAskedOfAPictureWithAPalette)
{
    Open();
    ChangeResolution({ "Palettes(0)", "Bits(8)" });
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.SetColorResolution(8, 1, 0, 256); }));
}

TEST_F(VisualTest, ACancelledResolutionLeavesThePictureYetBackStandsOnIt)
{
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    WhenOpen<ColorRes>([](ColorRes& form) { form.reject(); });
    Click("Command16");
    EXPECT_EQ(Effect(), inverted);
    Click("Command18");
    EXPECT_EQ(Effect(), inverted);
}

TEST_F(VisualTest, SavedSlidersAreLoadedAgain)
{
    constexpr int values[EffectRowCount] { -300, 20, -30, 40, 50, 60, 7, 80, 90, 10, 11, 200 };
    Open();
    frame.errors.Expect(QStringLiteral(" SAVED! "), QStringLiteral("  The settings have been saved.  "));
    for (int index = 0; index < EffectRowCount; ++index)
        Slider(index).setValue(values[index]);
    Click("Command20");
    for (int index = 0; index < EffectRowCount; ++index)
        Slider(index).setValue(5);
    Click("Command19");
    for (int index = 0; index < EffectRowCount; ++index) {
        EXPECT_EQ(Slider(index).value(), values[index]) << index;
        EXPECT_EQ(Answer(index).text(), QString::number(values[index])) << index;
    }
    EXPECT_EQ(Effect(), Ramp()) << "loading applies nothing";
}

TEST_F(VisualTest, SavedIsSaidOfAProtectedFileToo)
{
    WriteSettings("old");
    ASSERT_TRUE(QFile::setPermissions(frame.state.Beside(QString()), QFile::Permissions(0x7777)));
    ASSERT_TRUE(QFile::setPermissions(SettingsFile(), QFile::ReadOwner));
    Open();
    frame.errors.Expect(QStringLiteral(" SAVED! "), QStringLiteral("  The settings have been saved.  "));
    {
        const OrdinaryUser user;
        Click("Command20");
    }
    EXPECT_EQ(FileBytes(SettingsFile()), "old");
}

TEST_F(VisualTest, SavedIsSaidEvenWhereNothingCouldBeWritten)
{
    Open();
    ASSERT_TRUE(QDir().mkpath(SettingsFile())); // a folder of that name
    frame.errors.Expect(QStringLiteral(" SAVED! "), QStringLiteral("  The settings have been saved.  "));
    Click("Command20");
}

TEST_F(VisualTest, LoadingWithoutAFileDoesNothing)
{
    Open();
    Slider(0).setValue(44);
    Click("Command19");
    EXPECT_EQ(Slider(0).value(), 44);
}

TEST_F(VisualTest, AShortFileGivesTheLowestValuesOfTheRowsItLeavesOut)
{
    WriteSettings("9999\r\n\r\n12 or so\r\n");
    Open();
    Click("Command19");
    EXPECT_EQ(Answer(0).text(), QStringLiteral("1000"));
    EXPECT_EQ(Slider(1).value(), 12);
    EXPECT_EQ(Answer(1).text(), QStringLiteral("12 or so"));
    EXPECT_EQ(Slider(2).value(), 0);
    EXPECT_EQ(Answer(2).text(), QString());
    EXPECT_EQ(Answer(4).text(), QStringLiteral("1"));
    EXPECT_EQ(Answer(6).text(), QStringLiteral("2"));
}

TEST_F(VisualTest, LoadedValuesStandUntilTheFirstApplyWhichGoesBackToTheSessionsStart)
{
    WriteSettings(QByteArray("50\r\n").repeated(12));
    Open();
    Click("Command19");
    EXPECT_EQ(Slider(4).value(), 50);
    Click("ImageBut(4)");
    EXPECT_EQ(Slider(4).value(), 100);
}

TEST_F(VisualTest, AFileWithAThirteenthNumberIsToldAndChangesNothing)
{
    WriteSettings(QByteArray("50\r\n").repeated(13));
    Open();
    frame.errors.Expect(
        QStringLiteral("Error!"), QStringLiteral("The settings file has more than 12 numbers."));
    Click("Command19");
    EXPECT_EQ(Slider(4).value(), 100);
}

TEST_F(VisualTest, AcceptMakesANewCaptureAndCloses)
{
    ASSERT_TRUE(frame.Store("OpThumb", "2"));
    FakeCapture opened { QImage() };
    frame.whenViewerOpens = [&] { opened.MakeActive(frame); };
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    Click("Command7");
    EXPECT_EQ(frame.clipboard.picture, inverted);
    EXPECT_EQ(opened.lead.Bitmap(), inverted);
    EXPECT_EQ(capture.lead.Bitmap(), Ramp());
    EXPECT_FALSE(visual->isVisible());
}

TEST_F(VisualTest, AcceptingThumbnailsOnlyTakesTheClipboard)
{
    ASSERT_TRUE(frame.Store("OpThumb", "0"));
    Open();
    Click("Command7");
    EXPECT_EQ(frame.hold.Bitmap(), Ramp());
    EXPECT_TRUE(frame.log.contains(QStringLiteral("AddThumbnail")));
    EXPECT_TRUE(frame.log.contains(QStringLiteral("ShowThumbnails")));
}

TEST_F(VisualTest, AcceptingThumbnailsOnlyWithAClipboardClearedMeanwhileTakesWhatWasHeld)
{
    ASSERT_TRUE(frame.Store("OpThumb", "0"));
    frame.hold.SetBitmap(Filled(Qt::yellow));
    frame.enabled[Command::Save] = true;
    Open();
    frame.clipboard.losesWhatItGets = true;
    Click("Command7");
    EXPECT_FALSE(frame.enabled.value(Command::Save));
    EXPECT_EQ(frame.hold.Bitmap(), Filled(Qt::yellow));
    EXPECT_TRUE(frame.log.contains(QStringLiteral("AddThumbnail")));
    EXPECT_FALSE(visual->isVisible());
}

TEST_F(VisualTest, AnAcceptedPictureThatCameNowhereStaysInTheEditorAndTheUserIsTold)
{
    ASSERT_TRUE(frame.Store("OpThumb", "0"));
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    frame.clipboard.givesNone = true;
    Click("Command7");
    EXPECT_TRUE(visual->isVisible());
    EXPECT_EQ(Effect(), inverted);
    EXPECT_TRUE(frame.alerts.contains(StatusLabel::Operation));
    EXPECT_TRUE(frame.log.contains(QStringLiteral("AddThumbnail")));
}

TEST_F(VisualTest, CancelMakesNothing)
{
    Open();
    Click("Command4");
    Click("Command8");
    EXPECT_FALSE(visual->isVisible());
    EXPECT_FALSE(frame.log.contains(QStringLiteral("OpenViewer")));
    EXPECT_FALSE(frame.log.contains(QStringLiteral("AddThumbnail")));
}

TEST_F(VisualTest, TheGaugeRunsWhileAnOperationDoesAndEventsAreLetThrough)
{
    capture.ShowPicture(Ramp({ 600, 400 }));
    Open();
    int most = 0;
    bool wasBusy = false;
    frame.whenPumped = [&] {
        most = std::max(most, Gauge().value());
        wasBusy = wasBusy || frame.state.VisualBusy;
    };
    Click("EffectBut(4)");
    EXPECT_GT(most, 0);
    EXPECT_EQ(Gauge().maximum(), 1000);
    EXPECT_LE(most, 1000);
    EXPECT_TRUE(wasBusy);
    EXPECT_EQ(Gauge().value(), 0);
}

TEST_F(VisualTest, ClosingInTheMiddleOfAnOperationIsSafe)
{
    capture.ShowPicture(Ramp({ 600, 400 }));
    Open();
    frame.whenPumped = [this] { delete visual; };
    Click("EffectBut(4)");
    EXPECT_FALSE(visual);
}

TEST_F(VisualTest, ViewFullScreenShowsTheEffectUnderTheBusyPointerAndGivesItTheFocus)
{
    Open();
    Click("Command4");
    Find(QStringLiteral("Command4")).setFocus();
    Pointer meanwhile = Pointer::Normal;
    frame.whileFullScreen = [&] { meanwhile = CurrentPointer(); };
    Click("Command17");
    EXPECT_EQ(frame.fullScreen, Effect());
    EXPECT_EQ(meanwhile, Pointer::Busy) << "the frame's own view puts it right";
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    EXPECT_EQ(visual->focusWidget(), &Control("Effect"));
}

TEST_F(VisualTest, AMovingPictureIsRememberedForTheWholeScreenUntilItIsEdited)
{
    const QString path = frame.folder.filePath(QStringLiteral("moving.gif"));
    const QRect whole(0, 0, 20, 10);
    ASSERT_TRUE(MakeFile(path, MovingGif(whole.size()).Page(whole, 1, 2).Page(whole, 3, 2).File()));
    Open();
    const QString before = frame.state.CurrentFile;
    frame.dialogs.openNames.push(SavedPicture(Ramp()));
    Click("VideoSoftElastic6");
    EXPECT_EQ(frame.state.CurrentFile, before) << "a still picture";
    frame.dialogs.openNames.push(path);
    Click("VideoSoftElastic6");
    EXPECT_EQ(frame.state.CurrentFile, path);
    EXPECT_TRUE(imaging::IsAnimated(Effect()));
    Click("Command4");
    EXPECT_FALSE(imaging::IsAnimated(Effect()));
}

TEST_F(VisualTest, ClosingBehindTheFullScreenIsSafe)
{
    Open();
    frame.whileFullScreen = [this] { delete visual; };
    Click("Command17");
    EXPECT_FALSE(visual);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(VisualTest, EnterInABoxAppliesItsRow)
{
    Open();
    Answer(0).setText(QStringLiteral("300"));
    QTest::keyClick(&Answer(0), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Slider(0).value() == 0; }));
    EXPECT_EQ(Effect(), Done(Ramp(), [](Lead& lead) { lead.Contrast(300); }));
}

TEST_F(VisualTest, ClosingInTheMiddleOfAnOperationBegunByEnterIsSafe)
{
    capture.ShowPicture(Ramp({ 600, 400 }));
    Open();
    frame.whenPumped = [this] { delete visual; };
    QTest::keyClick(&Answer(10), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !visual; }));
}

TEST_F(VisualTest, AnEditorClosedByItsButtonInTheMiddleOfAnOperationStaysEmpty)
{
    capture.ShowPicture(Ramp({ 600, 400 }));
    Open();
    frame.whenPumped = [this] { visual->close(); };
    Click("EffectBut(4)");
    EXPECT_FALSE(visual->isVisible());
    EXPECT_TRUE(Effect().isNull());
    EXPECT_FALSE(frame.state.VisualBusy);
}

TEST_F(VisualTest, AnOperationWithinAnotherIsNotBegun)
{
    const QImage large = Ramp({ 600, 400 });
    capture.ShowPicture(large);
    Open();
    frame.whenPumped = [this] {
        Click("Command4");
        Click("ImageBut(5)");
    };
    Click("EffectBut(4)");
    EXPECT_EQ(Effect(), Done(large, [](Lead& lead) { lead.Median(3); }));
    frame.whenPumped = {};
    Click("Command18");
    EXPECT_EQ(Effect(), large);
}

TEST_F(VisualTest, BackInTheMiddleOfAnOperationDropsWhatItMakes)
{
    const QImage large = Ramp({ 600, 400 });
    capture.ShowPicture(large);
    Open();
    frame.whenPumped = [this] { Click("Command18"); };
    Click("EffectBut(4)");
    EXPECT_EQ(Effect(), large);
}

TEST_F(VisualTest, ClosingLetsGoOfThePicturesAndEndsTheClipboardsTimer)
{
    Open();
    ViewClip().click();
    visual->close();
    for (const char* control : { "Effect", "Undos", "Original" })
        EXPECT_TRUE(Control(control).Bitmap().isNull()) << control;
    EXPECT_FALSE(ClipTimer().isActive());
}

TEST_F(VisualTest, EveryCommandEndsWithTheKeyboardOnThePicture)
{
    Open();
    WriteSettings("1\r\n");
    frame.errors.Expect(QStringLiteral(" SAVED! "), QStringLiteral("  The settings have been saved.  "));
    WhenOpen<ColorRes>([](ColorRes& form) { form.reject(); });
    frame.dialogs.openNames.push(QString());
    for (const char* command : { "Command18", "Command9", "Command10", "Command11", "Command5", "Command3",
             "Command12", "Command13", "Command14", "Command15", "Command1", "Command2", "Command4",
             "Command6", "Image3", "Rotate(0)", "Rotate(1)", "Rotate(2)", "AngleBut", "ImageBut(0)",
             "EffectBut(5)", "Command16", "Command19", "Command20", "VideoSoftElastic6" }) {
        Answer(3).setFocus();
        Click(command);
        EXPECT_EQ(visual->focusWidget(), &Control("Effect")) << command;
    }
}

TEST_F(VisualTest, TheControlsBearTheirTexts)
{
    struct Text {
        const char* name;
        const char* caption; ///< empty for a picture
        const char* tip;
    };
    constexpr auto direction = "Click to Apply - Pick direction first.", apply = "Click to Apply";
    constexpr Text texts[] {
        { "Command18", "Back", "Go back to the last change." },
        { "Command9", "Undo To", "Go back to this after undesired effect." },
        { "Command10", "Set", "Set this change as the  'Undo To'. " },
        { "Command11", "Original", "You can always go back to this original as the 'Undo To'." },
        { "VideoSoftElastic6", "Open Different &Graphic File To Edit", "Load new graphic to edit." },
        { "ViewClip_Button", "A&dd Clipboard", "Add clipboard graphic to effect." },
        { "Command5", "C&opy", nullptr },
        { "Command3", "&Paste", nullptr },
        { "Command16", "R&esolution", "Change resolution" },
        { "Command17", "View &Full Screen", nullptr },
        { "Command7", "&Accept", "Accept effect and create it. You must still save it once it's loaded." },
        { "Command8", "&Cancel", "Cancel effect." },
        { "Command1", "Stre&tch", "Stretch" },
        { "Command2", "", "Black and white - grayscale" },
        { "Command4", "&Invert", "Invert" },
        { "Command6", "&Reverse", "Reverse" },
        { "Command12", "Sobel", direction },
        { "Command13", "Prewitt", direction },
        { "Command14", "Shift", direction },
        { "Command15", "Edge", direction },
        { "ImageBut(0)", "Contrast", apply },
        { "EffectBut(5)", "Solarize", apply },
        { "AngleBut", "Angle", apply },
        { "Check1", "Resize to fit?", nullptr },
        { "Option1(0)", "Horizontal", nullptr },
        { "Option1(1)", "Vertical", nullptr },
        { "Option2(0)", "East", nullptr },
        { "Option2(1)", "West", nullptr },
        { "Option2(2)", "North", nullptr },
        { "Option2(3)", "South", nullptr },
        { "Option3(0)", "Tile", nullptr },
        { "Option3(1)", "Stretch", nullptr },
        { "Command19", "", "Load Filters, Effects settings." },
        { "Command20", "", "Save Image, Filters, Effects settings." },
    };
    for (const bool hasTips : { true, false }) {
        frame.state.ToolTip = hasTips;
        Open();
        for (const Text& text : texts) {
            auto& button = Find<QAbstractButton>(QLatin1String(text.name));
            EXPECT_EQ(button.text(), QLatin1String(text.caption)) << text.name;
            const QString tip = hasTips ? QLatin1String(text.tip) : QLatin1String();
            EXPECT_TRUE(button.toolTip() == tip || (hasTips && !text.tip)) << text.name;
        }
    }
}

TEST_F(VisualTest, TheBoxesAreSelectedAtTheOpening)
{
    Open();
    for (int index = 0; index < EffectRowCount; ++index)
        EXPECT_EQ(Answer(index).selectedText(), QString::number(EffectRows()[size_t(index)].start)) << index;
}

TEST_F(VisualTest, WithoutAFolderStoredTheLabelNamesTheProgramsOwn)
{
    ASSERT_TRUE(frame.Store("OldFolder2", "   "));
    Open();
    EXPECT_EQ(Folder(), frame.state.Beside(QStringLiteral("AutoSave")) + QLatin1Char('/'));
}

TEST_F(VisualTest, AStoredFolderStandsInTheLabelWithoutItsBlanks)
{
    ASSERT_TRUE(frame.Store("OldFolder2", "  /somewhere/else "));
    Open();
    EXPECT_EQ(Folder(), QStringLiteral("/somewhere/else"));
}

TEST_F(VisualTest, ComingBackToTheWindowRefreshesTheClipboardButtons)
{
    Open();
    frame.clipboard.picture = {};
    Q_EMIT visual->Activated();
    EXPECT_FALSE(ViewClip().isEnabled());
    frame.clipboard.picture = Filled(Qt::green);
    Q_EMIT visual->Activated();
    EXPECT_TRUE(ViewClip().isEnabled());
}

TEST_F(VisualTest, AClipboardThatGivesNothingAtTheOpeningIsOffered)
{
    frame.clipboard.givesNone = true;
    Open();
    EXPECT_TRUE(frame.state.VisualReady);
    EXPECT_TRUE(ViewClip().isEnabled());
    EXPECT_TRUE(Control("Lead1").Bitmap().isNull());
}

TEST_F(VisualTest, ACopyThatIsRefusedStillPastesWhatIsThere)
{
    Open();
    frame.clipboard.picture = Filled(Qt::green);
    frame.clipboard.isHeldElsewhere = true;
    Click("Command5");
    EXPECT_EQ(Control("Lead1").Bitmap(), Filled(Qt::green));
}

TEST_F(VisualTest, AcceptDuringTheFourSecondsGivesThePictureItself)
{
    ASSERT_TRUE(frame.Store("OpThumb", "2"));
    FakeCapture opened { QImage() };
    frame.whenViewerOpens = [&] { opened.MakeActive(frame); };
    Open();
    ViewClip().click();
    Click("Command7");
    EXPECT_EQ(opened.lead.Bitmap(), Ramp());
}

TEST_F(VisualTest, SetDuringTheFourSecondsBookmarksThePictureItself)
{
    Open();
    Click("Command4");
    const QImage inverted = Effect();
    ViewClip().click();
    Click("Command10");
    EXPECT_EQ(Control("Undos").Bitmap(), inverted);
    EXPECT_EQ(Effect(), inverted);
    EXPECT_FALSE(ClipTimer().isActive());
}

TEST_F(VisualTest, CopyDuringTheFourSecondsCopiesThePictureItself)
{
    Open();
    ViewClip().click();
    Click("Command5");
    EXPECT_EQ(frame.clipboard.picture, Ramp());
    EXPECT_EQ(Effect(), Ramp());
}

TEST_F(VisualTest, EveryControlHasANameAndIsReachedByKeys)
{
    Open();
    EXPECT_EQ(AccessFaults(*visual), "");
}
