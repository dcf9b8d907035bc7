// How videos come into the frame: by the dialog, the list, an address or a drop.
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "desktop/FileName.h"
#include "frame/CommandLine.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/Await.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/ChildForm.h"
#include "toolkit/TitleStrip.h"
#include "video/URLfrm.h"

#include <QAbstractButton>
#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <new>

namespace {

class MainVideosTest : public FrameFixture {
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
    void OpenThese(const QStringList& names)
    {
        dialogs.openNames.push(folder.path() + QChar(0) + names.join(QChar(0)) + QChar(0) + QChar(0));
        Click("Cmds(0)");
    }
    void OpenTwo() { OpenThese({ QStringLiteral("a.avi"), QStringLiteral("b.avi") }); }
    /// From now on the list shows itself when several videos are opened.
    void LetTheListOpen()
    {
        Store("OpenVidList", "False");
        state.Reload(Key::OpenVidList);
    }
    void ShowListByThePopup() { ChooseInPopup(0); }
    /// One that has a picture every thousand seconds, or of every frame.
    void BeginRun(bool isTimed)
    {
        Store("UsersCaptureTime", "1000");
        Store("AutoNumber", "1");
        state.AutoCapture = true;
        state.CaptureTime = isTimed;
        state.AutoFrame = !isTimed;
        OpenOne();
        const auto isGoing = [&] {
            return isTimed ? player->state == ltmmPlay::Running : player->stillsGiven > 0;
        };
        ASSERT_TRUE(Await(isGoing, std::chrono::seconds(20)));
        ASSERT_FALSE(IsEnabled(Command::Capture));
    }
    void ExpectTheRunIsLeft(bool isTimed)
    {
        EXPECT_EQ(player->state, ltmmPlay::Stopped) << isTimed;
        EXPECT_TRUE(IsEnabled(Command::Capture)) << isTimed;
        const int given = player->stillsGiven;
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
        EXPECT_EQ(player->stillsGiven, given) << isTimed;
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

TEST_F(MainVideosTest, AnOpenedVideoBringsTheTransportAndItsButtons)
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

TEST_F(MainVideosTest, ACancelledDialogOpensNothing)
{
    dialogs.openNames.push(QString());
    Click("Cmds(0)");
    EXPECT_FALSE(state.OpenCancelled);
    EXPECT_FALSE(state.VideoOpen);
    EXPECT_FALSE(Find("BottomPane")->isVisible());
}

TEST_F(MainVideosTest, OpensRevealsTheVideoWindowWithoutADialogWhenAsked)
{
    state.VidWinOnly = true;
    Click("Opens");
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
}

TEST_F(MainVideosTest, OpensLeavesCaptureToTheSettingThatClosesIt)
{
    state.VidWinOnly = true;
    state.NoCap = true;
    Click("Opens");
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Save));
    EXPECT_TRUE(IsEnabled(Command::Stretch));
}

TEST_F(MainVideosTest, OpensLetsEventsThroughAtItsEndAndTheOpenCommandDoesNot)
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

TEST_F(MainVideosTest, VideosGivenAtTheStartAreAListWhoseFirstIsOpen)
{
    LetTheListOpen();
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("films")));
    const QStringList videos { folder.filePath(QStringLiteral("films/a.avi")),
        folder.filePath(QStringLiteral("b.mpg")) };
    CommandLine given;
    given.videos = videos;
    main->OpenGiven(given);
    EXPECT_EQ(player->file, videos[0]);
    EXPECT_EQ(state.VideoPath, videos[0]);
    EXPECT_EQ(state.FileCount, 2);
    EXPECT_EQ(state.Videos, QStringList({ QString(), videos[0], videos[1] }));
    EXPECT_EQ(QDir::currentPath(), QDir(folder.filePath(QStringLiteral("films"))).canonicalPath())
        << "as after the dialog";
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_TRUE(Find("VideoList")->isVisible());
    EXPECT_EQ(Find<QListWidget>("VidList")->item(1)->text(), videos[1]);
}

TEST_F(MainVideosTest, AFileOfAnotherNameGivenAtTheStartIsLeftToThePlayer)
{
    CommandLine given;
    given.others << QStringLiteral("/films/a.mp4") << QStringLiteral("/films/b.mp4");
    main->OpenGiven(given);
    EXPECT_EQ(player->file, QStringLiteral("/films/a.mp4"));
    EXPECT_EQ(state.VideoPath, QStringLiteral("/films/a.mp4"));
    EXPECT_TRUE(Find("Cmd2(0)")->isEnabled());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_FALSE(Find("CmdList(1)")->isEnabled());
}

TEST_F(MainVideosTest, AnAddressGivenAtTheStartIsTriedAtOnce)
{
    CommandLine given;
    given.addresses << QStringLiteral("http://example.org/a.mpg");
    main->OpenGiven(given);
    EXPECT_EQ(player->file, QStringLiteral("http://example.org/a.mpg"));
    EXPECT_TRUE(Find("BottomPane")->isVisible());
}

TEST_F(MainVideosTest, PicturesGivenAtTheStartStandInWindowsOfTheirOwn)
{
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    CommandLine given;
    for (const char* name : { "a.png", "b.bmp" }) {
        given.pictures << folder.filePath(QLatin1String(name));
        ASSERT_TRUE(picture.save(given.pictures.last()));
    }
    const QString missing = folder.filePath(QStringLiteral("missing.png"));
    given.pictures << missing;
    errors.Expect(
        QStringLiteral("Error!"), QStringLiteral("%1 could not be opened: it is not there.").arg(missing));
    main->OpenGiven(given);
    EXPECT_EQ(state.KidCount, 2);
    ASSERT_NE(main->ActiveCapture(), nullptr);
    EXPECT_EQ(main->ActiveCapture()->Bitmap().size(), picture.size());
    EXPECT_EQ(main->ActiveCapture()->Bitmap().pixelColor(0, 0), QColor(Qt::red));
    EXPECT_TRUE(IsEnabled(Command::Save));
    EXPECT_TRUE(state.SelectedBitmap.isNull()) << "no thumbnail was picked";
    EXPECT_EQ(player, nullptr);
}

TEST_F(MainVideosTest, TheSizeButtonsSetTheDisplaySize)
{
    OpenOne();
    Click("Cmds(1)");
    EXPECT_EQ(player->displaySize, ltmmPlay::StretchToWindow);
    Click("Cmds(2)");
    EXPECT_EQ(player->displaySize, ltmmPlay::FitToWindow);
    Click("Cmds(3)");
    EXPECT_EQ(player->displaySize, ltmmPlay::Normal);
}

TEST_F(MainVideosTest, TheVideoWindowsOwnOpenButtonReadsTheAutomaticCaptureAnew)
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

TEST_F(MainVideosTest, ASecondSelectionShowsItsOwnList)
{
    LetTheListOpen();
    for (const QString& pair : { QStringLiteral("a.avi b.avi"), QStringLiteral("c.avi d.avi") }) {
        const QStringList names = pair.split(u' ');
        OpenThese(names);
        const auto lists = main->findChildren<QListWidget*>(QStringLiteral("VidList"));
        const auto shown =
            std::find_if(lists.begin(), lists.end(), [](QListWidget* list) { return list->isVisible(); });
        ASSERT_NE(shown, lists.end());
        EXPECT_EQ((*shown)->item(1)->text(), folder.filePath(names[1]));
    }
}

TEST_F(MainVideosTest, AFileDroppedOnTheFrameGoesToThePlayerAndChangesNothingElse)
{
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/caf%E9.avi")) });
    EXPECT_TRUE(Drop(data));
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(FileName::ToBytes(player->file), QByteArray("/films/caf\xE9.avi"));
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_EQ(state.VideoPath, QString());
}

TEST_F(MainVideosTest, ThePointerIsBusyWhileADroppedFileOpens)
{
    OpenOne();
    Pointer whileOpening = Pointer::Normal;
    player->whenAsked = [&](const char* call) {
        if (qstrcmp(call, "SetSourceFile") == 0)
            whileOpening = CurrentPointer();
    };
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/b.avi")) });
    Drop(data);
    EXPECT_EQ(whileOpening, Pointer::Busy);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(MainVideosTest, WhateverIsDroppedStopsTheVideoAndOnlyAFileOfThisMachineThatComesFirstIsTaken)
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

TEST_F(MainVideosTest, AnOpenThatBreaksOffIsInProgressNoMore)
{
    const auto breakOff = [] { throw std::bad_alloc(); };
    dialogs.openNames.push(QString());
    dialogs.whileShown = breakOff;
    EXPECT_THROW(main->OpenVideoNow_Click(), std::bad_alloc);
    EXPECT_FALSE(state.OpeningNow);
    dialogs.whileShown = nullptr;
    dialogs.openNames = {};
    OpenOne();
    dialogs.openNames.push(folder.filePath(QStringLiteral("b.avi")));
    player->whenAsked = [&](const char*) { breakOff(); };
    EXPECT_THROW(main->OpenVideoNow_Click(), std::bad_alloc);
    EXPECT_FALSE(state.OpeningNow);
    player->whenAsked = [](const char*) {};
}

TEST_F(MainVideosTest, TheVideoWindowMayGoWhileADroppedFileIsToldToBeNone)
{
    for (const char* file : { "a.avi", "refused.avi" }) {
        QMimeData data;
        data.setUrls({ QUrl::fromLocalFile(folder.filePath(QLatin1String(file))) });
        ASSERT_NE(&main->CurrentPlayer(), nullptr);
        player->refused = folder.filePath(QStringLiteral("refused.avi"));
        player->whenLoaded = [&] {
            player->whenLoaded = [] {};
            delete state.CurrentVideo;
        };
        EXPECT_TRUE(Drop(data)) << file;
        EXPECT_TRUE(player.isNull()) << file;
        EXPECT_FALSE(Find("BottomPane")->isVisible()) << file;
        EXPECT_FALSE(IsEnabled(Command::Capture)) << file;
    }
}

TEST_F(MainVideosTest, AFileDroppedIntoTheEmptyFrameCanBePlayedAndCaptured)
{
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/a.avi")) });
    Drop(data);
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(Find("Cmd2(0)")->isEnabled());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_FALSE(Find("CmdList(0)")->isEnabled());
}

TEST_F(MainVideosTest, ADownloadWithoutAVideoBeforeShowsTheVideoAndItsTransport)
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

TEST_F(MainVideosTest, ADownloadThatIsClosedUnusedChangesNothing)
{
    WhenOpen<URLfrm>([](URLfrm& form) { form.reject(); });
    Click("Cmds(4)");
    EXPECT_FALSE(Find("BottomPane")->isVisible());
    EXPECT_FALSE(IsEnabled(Command::Capture));
}

TEST_F(MainVideosTest, CancelDropsTheSourceAndClearsTheMessage)
{
    OpenOne();
    main->SetStatus(StatusLabel::Operation, QStringLiteral("Downloading Video"));
    main->EnableCommand(Command::Cancel, true);
    Click("Cmds(5)");
    EXPECT_EQ(player->file, QString());
    EXPECT_EQ(Label("LblMsg1(0)"), QString());
}

TEST_F(MainVideosTest, AMinimizedVideoWindowComesBackWhenAVideoIsOpened)
{
    OpenOne();
    Form("VideoWindow").ToggleMinimize();
    OpenOne();
    EXPECT_EQ(Form("VideoWindow").CurrentShape(), ChildForm::Shape::Normal);
}

TEST_F(MainVideosTest, TheVideoListComesBackFromItsStripWhereItWas)
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

TEST_F(MainVideosTest, WalkingTheListLeavesItInFrontAndInItsPlace)
{
    LetTheListOpen();
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

TEST_F(MainVideosTest, AListThatWasClosedComesBackWithTheNextVideo)
{
    LetTheListOpen();
    OpenTwo();
    ClickOn("VideoList", "Cmds(0)");
    DeleteClosed();
    ASSERT_EQ(Find("VideoList"), nullptr);
    Click("CmdList(1)");
    ASSERT_NE(Find("VideoList"), nullptr);
    EXPECT_TRUE(Find("VideoList")->isVisible());
}

TEST_F(MainVideosTest, ThePopupShowsNoListWithoutAVideo)
{
    ShowListByThePopup();
    EXPECT_EQ(Find("VideoList"), nullptr);
}

TEST_F(MainVideosTest, ADownloadLeavesCaptureToTheSettingThatClosesIt)
{
    state.NoCap = true;
    DownloadHoliday();
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Save));
}

TEST_F(MainVideosTest, ADownloadLeavesTheSavingOfAnOpenCaptureAlone)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    ASSERT_TRUE(IsEnabled(Command::Save));
    DownloadHoliday();
    EXPECT_TRUE(IsEnabled(Command::Save));
    EXPECT_TRUE(IsEnabled(Command::Capture));
}

TEST_F(MainVideosTest, CancelRestsOnceADownloadIsCancelledOrAFileIsOpened)
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

TEST_F(MainVideosTest, AVideoWindowThatIsClosedLeavesNoDownloadToCancel)
{
    DownloadHoliday();
    ASSERT_TRUE(IsEnabled(Command::Cancel));
    Find("VideoWindow")->close();
    DeleteClosed();
    Click("Cmds(5)");
    EXPECT_FALSE(IsEnabled(Command::Cancel));
    EXPECT_EQ(Find("VideoWindow"), nullptr) << "nor a window for it that nobody sees";
}

TEST_F(MainVideosTest, ACancelledDialogLeavesNoListToWalkAndTheOpenInProgress)
{
    OpenTwo();
    ASSERT_TRUE(Find("CmdList(1)")->isEnabled());
    dialogs.openNames.push(QString());
    Click("Cmds(0)");
    EXPECT_FALSE(Find("CmdList(0)")->isEnabled());
    EXPECT_FALSE(Find("CmdList(1)")->isEnabled());
    EXPECT_TRUE(state.OpeningNow);
}

TEST_F(MainVideosTest, ADownloadThatIsClosedUnusedLeavesTheVideoStopped)
{
    OpenOne();
    player->state = ltmmPlay::Running;
    WhenOpen<URLfrm>([](URLfrm& form) { form.reject(); });
    Click("Cmds(4)");
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
}

TEST_F(MainVideosTest, TheVideoListGoesWhenAVideoWindowIsMade)
{
    OpenTwo();
    Find("VideoWindow")->close();
    DeleteClosed();
    ShowListByThePopup();
    const QPointer<QWidget> list = Find("VideoList");
    ASSERT_TRUE(list && list->isVisible());
    main->ShowFront(true);
    Click("front1");
    DeleteClosed();
    EXPECT_TRUE(list.isNull());
}

TEST_F(MainVideosTest, TheVideoListGoesWithANewDialogAndWithTheVideoWindow)
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
        DeleteClosed();
        EXPECT_TRUE(list.isNull()) << byDialog;
    }
}

TEST_F(MainVideosTest, TheVideoListFirstStandsAtTheLeftAsHighAsTheWindowsArea)
{
    OpenTwo();
    ShowListByThePopup();
    const QWidget* const area = main->findChild<QMdiArea*>()->viewport();
    EXPECT_EQ(Form("VideoList").pos(), QPoint(0, 0));
    EXPECT_EQ(Form("VideoList").height(), area->height());
    EXPECT_LT(Form("VideoList").width(), area->width() / 2) << "the video beside it stays in sight";
}

TEST_F(MainVideosTest, TheListsButtonsMinimizeCloseAndOpenOtherVideos)
{
    OpenTwo();
    ShowListByThePopup();
    ClickOn("VideoList", "Cmds(1)");
    EXPECT_EQ(Form("VideoList").CurrentShape(), ChildForm::Shape::Minimized);
    ShowListByThePopup();
    ClickOn("VideoList", "Cmds(0)");
    DeleteClosed();
    EXPECT_EQ(Find("VideoList"), nullptr);
    ShowListByThePopup();
    dialogs.openNames.push(folder.filePath(QStringLiteral("c.avi")));
    ClickOn("VideoList", "Cmds(2)");
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("c.avi")));
    DeleteClosed();
    EXPECT_EQ(Find("VideoList"), nullptr) << "it was of the selection before";
}

TEST_F(MainVideosTest, TheListGoesWithTheVideoWindowsOwnOpenButtonAlsoWhenNothingIsChosen)
{
    OpenTwo();
    ShowListByThePopup();
    dialogs.openNames.push(QString());
    ClickOn("VideoWindow", "Cmds(3)");
    DeleteClosed();
    EXPECT_EQ(Find("VideoList"), nullptr);
}

TEST_F(MainVideosTest, OneFileIsOneEntryOfTheListAndCannotBeWalked)
{
    OpenOne();
    ShowListByThePopup();
    EXPECT_EQ(Find<QListWidget>("VidList")->count(), 1);
    EXPECT_FALSE(Find("CmdList(0)")->isEnabled());
    EXPECT_FALSE(Find("CmdList(1)")->isEnabled());
}

TEST_F(MainVideosTest, TheFirstNextPlaysTheFirstVideoAndTheSecondTheThird)
{
    OpenThese({ QStringLiteral("a.avi"), QStringLiteral("b.avi"), QStringLiteral("c.avi") });
    for (const char* name : { "a.avi", "c.avi", "a.avi", "b.avi" }) {
        Click("CmdList(1)");
        EXPECT_EQ(player->file, folder.filePath(QLatin1String(name)));
    }
}

TEST_F(MainVideosTest, InAWindowThatStandsTheFirstNextOfAnotherSelectionPlaysItsSecond)
{
    OpenThese({ QStringLiteral("a.avi"), QStringLiteral("b.avi"), QStringLiteral("c.avi") });
    Click("CmdList(1)");
    ASSERT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
    OpenThese({ QStringLiteral("d.avi"), QStringLiteral("e.avi"), QStringLiteral("f.avi") });
    Click("CmdList(1)");
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("e.avi")));
}

TEST_F(MainVideosTest, AWalkPastTheVideosOfASelectionLeadsToNoVideoAndCannotGoOn)
{
    OpenThese({ QStringLiteral("a.avi"), QStringLiteral("b.avi"), QStringLiteral("n.txt") });
    Click("CmdList(1)");
    ASSERT_EQ(player->file, folder.filePath(QStringLiteral("a.avi")));
    Click("CmdList(1)");
    EXPECT_EQ(player->file, QString());
    EXPECT_EQ(Form("VideoWindow").Head().Title(), QString());
    for (const char* button : { "CmdList(0)", "CmdList(1)", "Cmd2(0)" })
        EXPECT_FALSE(Find(button)->isEnabled()) << button;
}

TEST_F(MainVideosTest, AFileChosenByTheVideoWindowsOwnOpenButtonIsOpened)
{
    OpenOne();
    main->SetEnabled(false);
    Find("BottomPane")->hide();
    dialogs.openNames.push(folder.filePath(QStringLiteral("b.avi")));
    ClickOn("VideoWindow", "Cmds(3)");
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("b.avi")));
    EXPECT_TRUE(Find("BottomPane")->isVisible());
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_TRUE(Form("VideoWindow").isVisible());
}

TEST_F(MainVideosTest, AVideoOfTheListHasItsCommandsThoughARunEndedWithABrokenOne)
{
    OpenTwo();
    main->SetEnabled(false);
    Click("CmdList(1)");
    EXPECT_TRUE(IsEnabled(Command::Stretch));
    EXPECT_TRUE(IsEnabled(Command::Capture));
}

TEST_F(MainVideosTest, ADownloadEndsAnAutomaticCaptureEvenUnused)
{
    for (const bool isTimed : { false, true }) {
        BeginRun(isTimed);
        WhenOpen<URLfrm>([](URLfrm& form) { form.reject(); });
        Click("Cmds(4)");
        ExpectTheRunIsLeft(isTimed);
    }
}

TEST_F(MainVideosTest, ADropEndsAnAutomaticCaptureAndItsFileStandsInThePlayer)
{
    for (const bool isTimed : { false, true }) {
        BeginRun(isTimed);
        QMimeData data;
        data.setUrls({ QUrl(QStringLiteral("file:///films/c.avi")) });
        Drop(data);
        ExpectTheRunIsLeft(isTimed);
        EXPECT_EQ(player->file, QStringLiteral("/films/c.avi")) << isTimed;
    }
}

TEST_F(MainVideosTest, TheVideoWindowsOwnOpenButtonTurnsARunByFramesIntoOneByTime)
{
    Store("AutoCapture", "True");
    Store("AutoFrame", "True");
    BeginRun(false);
    Store("AutoFrame", "False");
    Store("CaptureTime", "True");
    Store("UsersCaptureTime", "10"); // the first picture comes after as many milliseconds
    Store("Ext", ".png");
    dialogs.openNames.push(folder.filePath(QStringLiteral("c.avi")));
    ClickOn("VideoWindow", "Cmds(3)");
    const QString first = state.Beside(QStringLiteral("AutoFrame/auto1.png"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(first); }, 10'000));
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("c.avi")));
    EXPECT_EQ(player->state, ltmmPlay::Running);
    EXPECT_FALSE(IsEnabled(Command::Capture));
}

TEST_F(MainVideosTest, ADropOfNoFileOnTheEmptyFrameShowsNothing)
{
    QMimeData text;
    text.setText(QStringLiteral("no file"));
    EXPECT_TRUE(Drop(text));
    EXPECT_TRUE(Find("Opens")->isVisible());
    EXPECT_FALSE(Find("BottomPane")->isVisible());
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_FALSE(state.VideoOpen);
    OpenOne();
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_EQ(main->findChildren<VideoWindow*>().size(), 1);
}
