#include "capture/CaptureCurrentFrame.h"
#include "capture/SavePicture.h"
#include "desktop/FileName.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/PaintCount.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/TAQbutton.h"
#include "video/URLfrm.h"
#include "viewers/QuickShots.h"
#include "viewers/Viewer.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace {

class MainTest : public FrameFixture {
protected:
    /// Drags it over the frame and lets go; whether the frame took the drag.
    bool Drop(const QMimeData& data)
    {
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(main.get(), &enter);
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(main.get(), &drop);
        return enter.isAccepted();
    }
    void OpenTwo()
    {
        dialogs.openNames.push(folder.path() + QStringLiteral("|a.avi|b.avi||").replace(u'|', QChar(0)));
        Click("Cmds(0)");
    }
    ChildForm& Form(const char* name) { return *Find<ChildForm>(name); }
    void ShowListByThePopup()
    {
        Click("Image3");
        Find<QMenu>("Menus")->actions().at(0)->trigger();
    }
    void DownloadHoliday()
    {
        WhenOpen<URLfrm>([](URLfrm& form) {
            form.findChild<QLineEdit*>(QStringLiteral("edtURL"))
                ->setText(QStringLiteral("http://example.org/holiday.mpg"));
            form.findChild<QAbstractButton*>(QStringLiteral("CmdOK"))->click();
        });
        Click("Cmds(4)");
    }
};

} // namespace

TEST_F(MainTest, TheButtonsBearTheirCaptionsAndTips)
{
    const std::pair<const char*, const char*> expected[] { { "Open videos", " Open videos for capture  " },
        { "Stretch", " Stretch video to window " },
        { "Fit to Window", " Fit to window, maintain aspect ratio " },
        { "Default Size", " View video at it's default (normal) size " },
        { "Download", " Download video from internet " }, { "Cancel", " Cancel downloading " },
        { "Print Frame", " Print top picture " }, { "Options", " Set TAQ Video Capture Pro options " },
        { "Capture", " Capture video frame  " }, { "Save Capture", " Save captured frame " } };
    for (int i = 0; i < 10; ++i) {
        const auto* button = Find<TAQbutton>(qPrintable(QStringLiteral("Cmds(%1)").arg(i)));
        EXPECT_EQ(button->Caption(), QLatin1String(expected[i].first));
        EXPECT_EQ(button->toolTip(), QLatin1String(expected[i].second));
    }
}

TEST_F(MainTest, StartsWithFoldersAHeightAndAPrompt)
{
    for (const char* name : { "AutoSave", "AutoFrame", "WallPaper", "Help" })
        EXPECT_TRUE(QDir(folder.filePath(QLatin1String(name))).exists()) << name;
    EXPECT_EQ(main->height(), 8000 / 15);
    EXPECT_TRUE(main->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return Label("LblMsg1(2)") == QStringLiteral(" Open video to begin capture"); }, 10000));
}

TEST_F(MainTest, AnOpenedVideoBringsTheTransportAndItsButtons)
{
    EXPECT_FALSE(IsEnabled(Command::Capture));
    OpenOne();
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Stretch));
    EXPECT_TRUE(state.VideoOpen);
    EXPECT_FALSE(state.OpeningNow);
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
}

TEST_F(MainTest, ACancelledDialogOpensNothing)
{
    dialogs.openNames.push(QString());
    Click("Cmds(0)");
    EXPECT_FALSE(state.OpenCancelled);
    EXPECT_FALSE(state.VideoOpen);
    EXPECT_FALSE(Find("BottomPane")->isVisible());
}

TEST_F(MainTest, OpensRevealsTheVideoWindowWithoutADialogWhenAsked)
{
    state.VidWinOnly = true;
    Click("Opens");
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
}

TEST_F(MainTest, OpensLeavesCaptureToTheSettingThatClosesIt)
{
    state.VidWinOnly = true;
    state.NoCap = true;
    Click("Opens");
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Save));
    EXPECT_TRUE(IsEnabled(Command::Stretch));
}

TEST_F(MainTest, OpensLetsEventsThroughAtItsEndAndTheOpenCommandDoesNot)
{
    for (const auto& [button, lets] : { std::pair("Opens", true), { "Cmds(0)", false } }) {
        bool isHandled = false;
        dialogs.openNames.push(QString());
        dialogs.whileShown = [&] {
            QMetaObject::invokeMethod(
                main.get(), [&] { isHandled = true; }, Qt::QueuedConnection);
        };
        Click(button);
        EXPECT_EQ(isHandled, lets) << button;
        QCoreApplication::processEvents();
    }
}

TEST_F(MainTest, AStatusTextCanBePutOnTheScreenAtOnce)
{
    PaintCount label(*Find("LblMsg1(1)"));
    main->SetStatus(StatusLabel::Position, QStringLiteral("now"));
    EXPECT_EQ(label.count, 0);
    main->RepaintStatus(StatusLabel::Position);
    EXPECT_GT(label.count, 0);
}

TEST_F(MainTest, TheSizeButtonsSetTheDisplaySize)
{
    OpenOne();
    Click("Cmds(1)");
    EXPECT_EQ(player->displaySize, ltmmPlay::StretchToWindow);
    Click("Cmds(2)");
    EXPECT_EQ(player->displaySize, ltmmPlay::FitToWindow);
    Click("Cmds(3)");
    EXPECT_EQ(player->displaySize, ltmmPlay::Normal);
}

TEST_F(MainTest, TwoCapturesOpenTwoWindowsAndTheLastIsActive)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 2);
    EXPECT_EQ(state.KidCount, 2);
    EXPECT_TRUE(IsEnabled(Command::Save));
    ASSERT_NE(main->ActiveCapture(), nullptr);
    EXPECT_EQ(main->ActiveCapture(), &main->findChildren<Viewer*>().last()->Picture());
}

TEST_F(MainTest, ACaptureWithThumbnailsKeepsItsWindowInFront)
{
    OpenOne();
    Click("Cmds(8)");
    ASSERT_EQ(main->findChildren<QuickShots*>().size(), 1);
    EXPECT_EQ(main->findChild<QuickShots*>()->Count(), 1);
    EXPECT_NE(main->ActiveCapture(), nullptr);
    EXPECT_TRUE(Find("front1")->isVisible());
}

TEST_F(MainTest, ThumbnailsAloneOpenNoCaptureWindow)
{
    Store("OpThumb", "0");
    state.Reload(Key::OpThumb);
    OpenOne();
    Click("Cmds(8)");
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 0);
    EXPECT_EQ(main->findChild<QuickShots*>()->Count(), 1);
}

TEST_F(MainTest, MakeKidActiveBringsAWindowUp)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    QWidget* const first = main->ActiveForm();
    Click("Cmds(8)");
    main->MakeKidActive(0);
    EXPECT_EQ(main->ActiveForm(), first);
}

TEST_F(MainTest, ClosingTheFrameClosesEveryWindowWhateverTheirOrder)
{
    for (const char* last : { "VideoWindow", "QuickShots", "Viewer" }) {
        OpenOne();
        Click("Cmds(8)");
        Click("Cmds(8)");
        main->AddChild(Find(last));
        main->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(main->isVisible());
        for (const char* form : { "VideoWindow", "QuickShots", "Viewer" })
            EXPECT_EQ(Find(form), nullptr) << form << " after " << last;
        EXPECT_EQ(state.KidCount, 0);
        EXPECT_TRUE(state.ExitRequested);
        main->show();
    }
}

TEST_F(MainTest, TheCloseButtonClosesTheFrame)
{
    Click("ToolBarPic(0)");
    EXPECT_FALSE(main->isVisible());
}

TEST_F(MainTest, ACaptureWithoutAnyVideoIsToldAndMakesAVideoWindowOnDemand)
{
    playersFailStills = true;
    errors.Expect(QStringLiteral("Error!"),
        QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
    CaptureCurrentFrame(*main);
    EXPECT_NE(state.CurrentVideo, nullptr);
    EXPECT_EQ(state.KidCount, 0);
}

TEST_F(MainTest, TheFirstRunWritesNoKeyAndTheSecondIsSilent)
{
    EXPECT_FALSE(QFileInfo::exists(state.Settings.FilePath()));
    EXPECT_EQ(Find("VideoWindow"), nullptr);
    const Main second(PartsOf(*this, {}));
    EXPECT_FALSE(QFileInfo::exists(state.Settings.FilePath()));
}

TEST_F(MainTest, FullScreenWithoutAVideoMakesNoVideoWindow)
{
    main->mnuFullScreen_Click();
    EXPECT_EQ(state.CurrentVideo, nullptr);
    OpenOne();
    main->mnuFullScreen_Click();
    EXPECT_TRUE(player->fullScreen);
}

TEST_F(MainTest, TheVideoWindowsOwnOpenButtonReadsTheAutomaticCaptureAnew)
{
    OpenOne();
    for (const auto& [key, value] : { std::pair("AutoFrame", "True"), { "CaptureTime", "True" },
             { "AutoCapture", "True" }, { "AutoNumber", "77" }, { "Ext", ".png" } })
        Store(key, value);
    dialogs.openNames.push(QString());
    QTest::mouseClick(Find("VideoWindow")->findChild<QWidget*>(QStringLiteral("Cmds(3)")), Qt::LeftButton);
    EXPECT_TRUE(state.AutoFrame && state.CaptureTime && state.AutoCapture);
    EXPECT_EQ(state.AutoNumber, 77);
    EXPECT_EQ(state.CurrentExt, QStringLiteral(".png"));
    EXPECT_FALSE(state.OpenCancelled);
}

TEST_F(MainTest, ThePictureBehindTheWindowsFollowsItsSettings)
{
    QImage picture(8, 8, QImage::Format_BGR888);
    picture.fill(Qt::red);
    SavePicture(picture, folder.filePath(QStringLiteral("back.bmp")));
    Store("PicFolder", qPrintable(folder.filePath(QStringLiteral("back.bmp"))));
    const auto* area = main->findChild<QMdiArea*>();
    const auto shown = [&](const char* placement) {
        Store("OpPic", placement);
        main->resize(main->width() + 1, main->height());
        const QImage image = area->viewport()->grab().toImage();
        return std::pair(image.pixelColor(2, 2), image.pixelColor(image.width() - 2, image.height() - 2));
    };
    const QColor red(Qt::red);
    EXPECT_EQ(shown("0"), std::pair(red, red)) << "tiled";
    EXPECT_NE(shown("1").first, red) << "lower right";
    EXPECT_EQ(shown("1").second, red) << "lower right";
    EXPECT_NE(shown("2").second, red) << "none";
}

TEST_F(MainTest, CloseAllWindowsClosesWhateverStandsInFrontUntilNoCaptureIsLeft)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    const auto chooseCloseAll = [this] {
        Click("Image3");
        Find<QMenu>("Menus")->actions().at(2)->trigger();
    };
    chooseCloseAll();
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_TRUE(state.VideoOpen) << "it stood behind";
    Click("Cmds(8)");
    main->AddChild(Find("VideoWindow"));
    chooseCloseAll();
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_FALSE(state.VideoOpen) << "it stood in front";
}

TEST_F(MainTest, CloseAllWindowsLeavesTheThumbnailsAlone)
{
    Store("OpThumb", "1");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    for (const bool isInFront : { false, true }) {
        if (isInFront)
            main->AddChild(Find("QuickShots"));
        Click("Image3");
        Find<QMenu>("Menus")->actions().at(2)->trigger();
        EXPECT_EQ(state.KidCount, 0);
        EXPECT_TRUE(state.QuickShotsOpen) << isInFront;
        Click("Cmds(8)");
        Click("Cmds(8)");
    }
}

TEST_F(MainTest, WhenACaptureClosesTheOneBeforeComesUpAndNotTheThumbnails)
{
    Store("OpThumb", "1");
    OpenOne();
    Click("Cmds(8)");
    QWidget* const first = main->ActiveForm();
    Click("Cmds(8)");
    main->ActiveForm()->close();
    EXPECT_EQ(main->ActiveForm(), first);
}

TEST_F(MainTest, ASecondSelectionShowsItsOwnList)
{
    Store("OpenVidList", "False");
    state.Reload(Key::OpenVidList);
    for (const QString& pair : { QStringLiteral("a.avi b.avi"), QStringLiteral("c.avi d.avi") }) {
        const QStringList names = pair.split(u' ');
        dialogs.openNames.push(folder.path() + QChar(0) + names.join(QChar(0)) + QChar(0) + QChar(0));
        Click("Cmds(0)");
        const auto lists = main->findChildren<QListWidget*>(QStringLiteral("VidList"));
        const auto shown =
            std::find_if(lists.begin(), lists.end(), [](QListWidget* list) { return list->isVisible(); });
        ASSERT_NE(shown, lists.end());
        EXPECT_EQ((*shown)->item(1)->text(), folder.filePath(names[1]));
    }
}

TEST_F(MainTest, AnAlertCatchesTheEyeUntilTheLabelsNextText)
{
    const auto colour = [this] { return Find<QLabel>("LblMsg1(0)")->palette().color(QPalette::WindowText); };
    const QColor plain = colour();
    main->SetStatusAlert(StatusLabel::Operation, QStringLiteral("Cancelled"));
    EXPECT_EQ(Label("LblMsg1(0)"), QStringLiteral("Cancelled"));
    EXPECT_NE(colour(), plain);
    main->SetStatus(StatusLabel::Operation, QStringLiteral("Capture Saved"));
    EXPECT_EQ(colour(), plain);
}

TEST_F(MainTest, TheMaximizeButtonFollowsTheWindow)
{
    auto* button = Find<StripButton>("ToolBarPic(1)");
    Click("ToolBarPic(1)");
    EXPECT_TRUE(main->isMaximized());
    EXPECT_EQ(button->Value(), 3);
    EXPECT_FALSE(main->findChild<SizeGrip*>(QString(), Qt::FindDirectChildrenOnly)->isVisible());
    main->showNormal();
    EXPECT_EQ(button->Value(), 1);
    EXPECT_EQ(main->windowTitle(), QStringLiteral("TAQ Pro v2.1"));
}

TEST_F(MainTest, AFileDroppedOnTheFrameGoesToThePlayerAndChangesNothingElse)
{
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/caf%E9.avi")) });
    EXPECT_TRUE(Drop(data));
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(FileName::ToBytes(player->file), QByteArray("/films/caf\xE9.avi"));
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_EQ(state.VideoPath, QString());
}

TEST_F(MainTest, WhateverIsDroppedStopsTheVideoAndOnlyAFileOfThisMachineThatComesFirstIsTaken)
{
    OpenOne();
    for (const char* first : { "http://example.org/a.avi", "file://elsewhere/films/a.avi" }) {
        player->state = ltmmPlay::Running;
        QMimeData data;
        data.setUrls({ QUrl(QLatin1String(first)), QUrl(QStringLiteral("file:///films/b.avi")) });
        EXPECT_TRUE(Drop(data)) << first;
        EXPECT_EQ(player->state, ltmmPlay::Stopped) << first;
        EXPECT_EQ(player->file, folder.filePath(QStringLiteral("a.avi"))) << first;
    }
    QMimeData here;
    here.setUrls({ QUrl(QStringLiteral("file://localhost/films/b.avi")) });
    Drop(here);
    EXPECT_EQ(player->file, QStringLiteral("/films/b.avi"));
}

TEST_F(MainTest, AFileDroppedIntoTheEmptyFrameCanBePlayedAndCaptured)
{
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/a.avi")) });
    Drop(data);
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(Find("Cmd2(0)")->isEnabled());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_FALSE(Find("CmdList(0)")->isEnabled());
}

TEST_F(MainTest, OpenToolsHideWithAMinimisedFrameAndComeBackWithIt)
{
    QWidget tools;
    state.Tools = &tools;
    state.ToolsOpen = true;
    tools.show();
    const auto* grip = main->findChild<SizeGrip*>(QString(), Qt::FindDirectChildrenOnly);
    main->showMinimized();
    EXPECT_TRUE(tools.isHidden());
    EXPECT_TRUE(tools.isMinimized());
    EXPECT_TRUE(grip->isHidden());
    main->showMaximized();
    EXPECT_TRUE(tools.isHidden()) << "only a frame of normal size brings them back";
    main->showNormal();
    EXPECT_TRUE(tools.isVisible());
    EXPECT_FALSE(tools.isMinimized());
    EXPECT_FALSE(grip->isHidden());
    state.ToolsOpen = false;
    main->showMinimized();
    EXPECT_TRUE(tools.isVisible()) << "closed ones are left alone";
}

TEST_F(MainTest, ThePictureBehindTheWindowsIsReadAgainWhenItsFileChanges)
{
    const QString file = folder.filePath(QStringLiteral("back.bmp"));
    const auto write = [&](Qt::GlobalColor colour, const QDateTime& when) {
        QImage picture(8, 8, QImage::Format_BGR888);
        picture.fill(colour);
        SavePicture(picture, file);
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::ReadWrite));
        ASSERT_TRUE(written.setFileTime(when, QFileDevice::FileModificationTime));
    };
    const QDateTime noon(QDate(2026, 1, 1), QTime(12, 0));
    write(Qt::red, noon);
    Store("PicFolder", qPrintable(file));
    const auto shown = [&] {
        main->resize(main->width() + 1, main->height());
        return main->findChild<QMdiArea*>()->viewport()->grab().toImage().pixelColor(2, 2);
    };
    EXPECT_EQ(shown(), QColor(Qt::red));
    write(Qt::blue, noon.addSecs(1));
    EXPECT_EQ(shown(), QColor(Qt::blue));
}

TEST_F(MainTest, ADownloadWithoutAVideoBeforeShowsTheVideoAndItsTransport)
{
    WhenOpen<URLfrm>([&](URLfrm& form) {
        EXPECT_TRUE(main->geometry().contains(form.pos()));
        form.findChild<QLineEdit*>(QStringLiteral("edtURL"))
            ->setText(QStringLiteral("http://example.org/a.mpg"));
        form.findChild<QAbstractButton*>(QStringLiteral("CmdOK"))->click();
    });
    Click("Cmds(4)");
    EXPECT_EQ(player->file, QStringLiteral("http://example.org/a.mpg"));
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Cancel));
}

TEST_F(MainTest, ADownloadThatIsClosedUnusedChangesNothing)
{
    WhenOpen<URLfrm>([](URLfrm& form) { form.reject(); });
    Click("Cmds(4)");
    EXPECT_FALSE(Find("BottomPane")->isVisible());
    EXPECT_FALSE(IsEnabled(Command::Capture));
}

TEST_F(MainTest, CancelDropsTheSourceAndClearsTheMessage)
{
    OpenOne();
    main->SetStatus(StatusLabel::Operation, QStringLiteral("Downloading Video"));
    main->EnableCommand(Command::Cancel, true);
    Click("Cmds(5)");
    EXPECT_EQ(player->file, QString());
    EXPECT_EQ(Label("LblMsg1(0)"), QString());
}

TEST_F(MainTest, EveryControlHasANameAndIsReachedByKeys)
{
    EXPECT_EQ(AccessFaults(*main), "");
    OpenOne();
    EXPECT_EQ(AccessFaults(*main), "");
    Click("Cmds(8)");
    EXPECT_EQ(AccessFaults(*main), "");
}

TEST_F(MainTest, FSixGivesTheKeyboardToTheNextPaneAndBack)
{
    const auto paneOf = [](const QWidget* at) {
        while (at && at->objectName() != QStringLiteral("BottomPane")
            && at->objectName() != QStringLiteral("VideoWindow"))
            at = at->parentWidget();
        return at ? at->objectName() : QString();
    };
    OpenOne();
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    ASSERT_EQ(paneOf(QApplication::focusWidget()), QStringLiteral("VideoWindow"));
    const QWidget* const inVideo = QApplication::focusWidget();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
    EXPECT_EQ(paneOf(QApplication::focusWidget()), QStringLiteral("BottomPane"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), inVideo);
}

TEST_F(MainTest, ThePromptGivesWayToTheFirstWindowAndComesBackAfterTheLast)
{
    EXPECT_TRUE(Find("Opens")->isVisible());
    OpenOne();
    EXPECT_FALSE(Find("Opens")->isVisible());
    static_cast<QMdiSubWindow*>(main->ActiveForm())->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Find("Opens")->isVisible(); }));
}

TEST_F(MainTest, CtrlTabGoesToTheNextChildWindow)
{
    OpenOne();
    state.OpThumb = 2;
    Click("Cmds(8)");
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    const QWidget* const capture = main->ActiveForm();
    QWidget* const at = main->ActiveForm()->findChild<QWidget*>(QStringLiteral("Cmds(1)"));
    at->setFocus();
    QTest::keyPress(at, Qt::Key_Control);
    QTest::keyClick(at, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(at, Qt::Key_Control);
    EXPECT_NE(main->ActiveForm(), capture);
    EXPECT_TRUE(main->ActiveForm()->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(MainTest, AMinimizedVideoWindowComesBackWhenAVideoIsOpened)
{
    OpenOne();
    Form("VideoWindow").ToggleMinimize();
    OpenOne();
    EXPECT_EQ(Form("VideoWindow").CurrentShape(), ChildForm::Shape::Normal);
}

TEST_F(MainTest, AThumbnailStripPutAwayStaysSoWhenAPictureIsAdded)
{
    OpenOne();
    Click("Cmds(8)");
    Form("QuickShots").ToggleMinimize();
    Click("Cmds(8)");
    EXPECT_EQ(Form("QuickShots").CurrentShape(), ChildForm::Shape::Minimized);
}

TEST_F(MainTest, TheMouseBringsACaptureToTheTopOnlyWithSetFocusYES)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    ChildForm& lower = *main->findChildren<Viewer*>().first();
    ASSERT_FALSE(lower.IsActive());
    const auto comeOver = [&] {
        QEnterEvent enter(QPointF(9, 9), QPointF(9, 9), lower.mapToGlobal(QPointF(9, 9)));
        QCoreApplication::sendEvent(&lower, &enter);
    };
    comeOver();
    EXPECT_FALSE(lower.IsActive());
    state.SetFocusYES = true;
    comeOver();
    EXPECT_TRUE(lower.IsActive());
}

TEST_F(MainTest, TheOpenCommandAsksAlsoWithVidWinOnly)
{
    OpenOne();
    state.VidWinOnly = true;
    int asked = 0;
    dialogs.openNames.push(QString());
    dialogs.whileShown = [&] { ++asked; };
    Click("Cmds(0)");
    EXPECT_EQ(asked, 1);
}

TEST_F(MainTest, AThumbnailStripInFrontGoesBehindWhenAPictureIsAdded)
{
    OpenOne();
    for (const int opThumb : { 0, 1 }) {
        Store("OpThumb", opThumb ? "1" : "0");
        Click("Cmds(8)");
        Form("QuickShots").BringToFront();
        Click("Cmds(8)");
        EXPECT_FALSE(Form("QuickShots").IsActive()) << opThumb;
    }
}

TEST_F(MainTest, TheVideoListComesBackFromItsStripWhereItWas)
{
    OpenTwo();
    ShowListByThePopup();
    const QRect place(40, 30, 280, 200);
    Form("VideoList").setGeometry(place);
    Form("VideoList").ToggleMinimize();
    ShowListByThePopup();
    EXPECT_EQ(Form("VideoList").CurrentShape(), ChildForm::Shape::Normal);
    EXPECT_EQ(Form("VideoList").geometry(), place);
}

TEST_F(MainTest, WalkingTheListLeavesItInFrontAndInItsPlace)
{
    Store("OpenVidList", "False");
    state.Reload(Key::OpenVidList);
    OpenTwo();
    const QRect place(40, 30, 280, 200);
    Form("VideoList").setGeometry(place);
    auto* entries = Find<QListWidget>("VidList");
    QTest::mouseClick(
        entries->viewport(), Qt::LeftButton, {}, entries->visualItemRect(entries->item(1)).center());
    ASSERT_EQ(player->file, folder.filePath(QStringLiteral("b.avi")));
    EXPECT_EQ(main->ActiveForm(), &Form("VideoList"));
    main->AddChild(&Form("VideoWindow"));
    Click("CmdList(1)");
    ASSERT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
    EXPECT_EQ(main->ActiveForm(), &Form("VideoWindow"));
    EXPECT_EQ(Form("VideoList").geometry(), place);
}

TEST_F(MainTest, ThePopupShowsNoListWithoutAVideo)
{
    ShowListByThePopup();
    EXPECT_EQ(Find("VideoList"), nullptr);
}

TEST_F(MainTest, ADownloadLeavesCaptureToTheSettingThatClosesIt)
{
    state.NoCap = true;
    DownloadHoliday();
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Save));
}

TEST_F(MainTest, ADownloadLeavesTheSavingOfAnOpenCaptureAlone)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    ASSERT_TRUE(IsEnabled(Command::Save));
    DownloadHoliday();
    EXPECT_TRUE(IsEnabled(Command::Save));
    EXPECT_TRUE(IsEnabled(Command::Capture));
}

TEST_F(MainTest, CancelRestsOnceADownloadIsCancelledOrAFileIsOpened)
{
    DownloadHoliday();
    ASSERT_TRUE(IsEnabled(Command::Cancel));
    Click("Cmds(5)");
    EXPECT_FALSE(IsEnabled(Command::Cancel));
    DownloadHoliday();
    ASSERT_TRUE(IsEnabled(Command::Cancel));
    OpenOne();
    EXPECT_FALSE(IsEnabled(Command::Cancel));
}

TEST_F(MainTest, ACancelledDialogLeavesNoListToWalkAndTheOpenInProgress)
{
    OpenTwo();
    ASSERT_TRUE(Find("CmdList(1)")->isEnabled());
    dialogs.openNames.push(QString());
    Click("Cmds(0)");
    EXPECT_FALSE(Find("CmdList(0)")->isEnabled());
    EXPECT_FALSE(Find("CmdList(1)")->isEnabled());
    EXPECT_TRUE(state.OpeningNow);
}

TEST_F(MainTest, ADownloadThatIsClosedUnusedLeavesTheVideoStopped)
{
    OpenOne();
    player->state = ltmmPlay::Running;
    WhenOpen<URLfrm>([](URLfrm& form) { form.reject(); });
    Click("Cmds(4)");
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
}

TEST_F(MainTest, TheKeyboardStartsAtTheOpenButton)
{
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    EXPECT_EQ(QApplication::focusWidget(), Find("Opens"));
}

TEST_F(MainTest, KeysBeforeAnyVideoMakeNoVideoWindow)
{
    for (const Qt::Key key : { Qt::Key_Space, Qt::Key_Comma, Qt::Key_Period, Qt::Key_Home, Qt::Key_End })
        QTest::keyClick(main.get(), key);
    EXPECT_EQ(state.CurrentVideo, nullptr);
    OpenOne();
    Find("VideoWindow")->close();
    ASSERT_EQ(state.CurrentVideo, nullptr);
    for (const Qt::Key key : { Qt::Key_Space, Qt::Key_Home, Qt::Key_End })
        QTest::keyClick(main.get(), key);
    EXPECT_EQ(state.CurrentVideo, nullptr);
}

TEST_F(MainTest, TheVideoIsBroughtToTheFrontByItsButton)
{
    OpenOne();
    Click("Cmds(8)");
    ASSERT_NE(main->ActiveForm(), Find("VideoWindow"));
    Click("front1");
    EXPECT_EQ(main->ActiveForm(), Find("VideoWindow"));
}

TEST_F(MainTest, TheVideoListGoesWhenAVideoWindowIsMade)
{
    OpenTwo();
    Find("VideoWindow")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ShowListByThePopup();
    const QPointer<QWidget> list = Find("VideoList");
    ASSERT_TRUE(list && list->isVisible());
    main->ShowFront(true);
    Click("front1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(list.isNull());
}

TEST_F(MainTest, ThePopupsFullScreenNeedsAVideo)
{
    const auto choose = [this] {
        Click("Image3");
        Find<QMenu>("Menus")->actions().at(1)->trigger();
    };
    choose();
    EXPECT_EQ(state.CurrentVideo, nullptr);
    OpenOne();
    choose();
    EXPECT_TRUE(player->fullScreen);
    EXPECT_EQ(state.PopupKind, 0);
}

TEST_F(MainTest, BringingTheVideoToTheFrontWithoutOneMakesAFreshWindow)
{
    OpenOne();
    Click("Cmds(8)");
    Find("VideoWindow")->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    main->ShowFront(true);
    Click("front1");
    ASSERT_NE(Find("VideoWindow"), nullptr);
    EXPECT_EQ(main->ActiveForm(), Find("VideoWindow"));
}

TEST_F(MainTest, ThePictureBehindTheWindowsFollowsTheirAreaWhenTheTransportComesAndGoes)
{
    QImage picture(8, 8, QImage::Format_BGR888);
    picture.fill(Qt::red);
    SavePicture(picture, folder.filePath(QStringLiteral("back.bmp")));
    Store("PicFolder", qPrintable(folder.filePath(QStringLiteral("back.bmp"))));
    Store("OpPic", "1");
    const auto cornerIsRed = [this] {
        const QImage image = main->findChild<QMdiArea*>()->viewport()->grab().toImage();
        return image.pixelColor(image.width() - 2, image.height() - 2) == QColor(Qt::red);
    };
    for (const bool shown : { true, false }) {
        Find("BottomPane")->setVisible(shown);
        EXPECT_TRUE(QTest::qWaitFor(cornerIsRed)) << shown;
    }
}

TEST_F(MainTest, AnUnknownPlacementLeavesTheTilingAsItWas)
{
    for (const char* known : { "0", "1" }) {
        Store("OpPic", known);
        main->resize(main->width() + 1, main->height());
        const bool before = state.TileBackground;
        EXPECT_EQ(before, QLatin1String(known) == QLatin1String("0"));
        Store("OpPic", "7");
        main->resize(main->width() + 1, main->height());
        EXPECT_EQ(state.TileBackground, before);
    }
}

TEST_F(MainTest, TheFramesPopupOffersItsWindowsAndAbout)
{
    Click("Image3");
    QStringList texts;
    for (const QAction* action : Find<QMenu>("Menus")->actions())
        texts << action->text();
    EXPECT_EQ(texts, QStringList({ "  Video List", "  View Full Screen", "  Close All Windows", "  About" }));
    errors.Expect(QStringLiteral("About"),
        QStringLiteral(
            "TAQ Video Capture Pro takes the best frames out of your videos and turns them into pictures."));
    Find<QMenu>("Menus")->actions().at(3)->trigger();
}

TEST_F(MainTest, TheVideoListGoesWithANewDialogAndWithTheVideoWindow)
{
    for (const bool byDialog : { true, false }) {
        OpenTwo();
        ShowListByThePopup();
        const QPointer<QWidget> list = Find("VideoList");
        ASSERT_TRUE(list && list->isVisible());
        if (byDialog) {
            dialogs.openNames.push(QString());
            Click("Cmds(0)");
        } else {
            Find("VideoWindow")->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(list.isNull()) << byDialog;
    }
}

TEST_F(MainTest, MakeKidActiveTakesASlotThatTheTableDoesNotHaveForAHole)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    for (const int index : { 7, -1 }) {
        const QWidget* const before = main->ActiveForm();
        main->MakeKidActive(index);
        EXPECT_NE(main->ActiveForm(), before) << index << ": two of the three windows were sent back";
    }
}
