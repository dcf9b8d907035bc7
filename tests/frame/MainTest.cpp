#include "app/Main.h"
#include "app/ApplicationState.h"
#include "desktop/FileName.h"
#include "tests/testing/FakeClipboard.h"
#include "tests/testing/FakePlayer.h"
#include "tests/testing/ScriptedTalk.h"
#include "toolkit/TAQbutton.h"
#include "viewers/QuickShots.h"
#include "viewers/Viewer.h"

#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

class MainTest : public testing::Test {
protected:
    QTemporaryDir folder;
    ApplicationState state { folder.path(), folder.filePath(QStringLiteral("settings")) };
    FakeClipboard clipboard;
    ScriptedDialogs dialogs;
    ScriptedErrors errors;
    FakePlayer* player = nullptr;
    std::unique_ptr<Main> main = std::make_unique<Main>(FrameParts { state, clipboard, dialogs, errors,
        [this](QWidget* parent) { return player = new FakePlayer(parent); } });

    void SetUp() override
    {
        main->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(main.get()));
        QDir::setCurrent(folder.path());
    }
    void TearDown() override { QDir::setCurrent(QDir::rootPath()); }

    template <typename Widget = QWidget> Widget* Find(const char* name)
    {
        return main->findChild<Widget*>(QLatin1String(name));
    }
    void Click(const char* name) { QTest::mouseClick(Find(name), Qt::LeftButton); }
    QString Label(const char* name) { return Find<QLabel>(name)->text(); }
    bool IsEnabled(Command command) { return main->IsCommandEnabled(command); }

    void OpenOne()
    {
        dialogs.openNames.push(folder.filePath(QStringLiteral("a.avi")));
        Click("Cmds(0)");
    }
    void Store(const char* key, const char* value)
    {
        ASSERT_TRUE(
            state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(value)));
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
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    const QPointer<QWidget> video = Find("VideoWindow");
    const QPointer<QuickShots> strip = main->findChild<QuickShots*>();
    Click("ToolBarPic(0)");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(main->isVisible());
    EXPECT_FALSE(video);
    EXPECT_FALSE(strip);
    EXPECT_EQ(main->findChildren<Viewer*>().size(), 0);
    EXPECT_EQ(state.KidCount, 0);
}

TEST_F(MainTest, CloseAllWindowsClosesTheCapturesAndNotTheVideo)
{
    Store("OpThumb", "2");
    OpenOne();
    Click("Cmds(8)");
    Click("Cmds(8)");
    Click("Image3");
    auto* menus = Find<QMenu>("Menus");
    ASSERT_NE(menus, nullptr);
    menus->actions().at(2)->trigger();
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
}

TEST_F(MainTest, AFileDroppedOnTheFrameGoesToThePlayerAndChangesNothingElse)
{
    QMimeData data;
    data.setUrls({ QUrl(QStringLiteral("file:///films/caf%E9.avi")) });
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(main.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(main.get(), &drop);
    ASSERT_NE(player, nullptr);
    EXPECT_EQ(FileName::ToBytes(player->file), QByteArray("/films/caf\xE9.avi"));
    EXPECT_TRUE(Find("VideoWindow")->isVisible());
    EXPECT_EQ(state.VideoPath, QString());
}

TEST_F(MainTest, AMissingGuideIsTold)
{
    errors.Expect(QStringLiteral("Error!"), QStringLiteral("Help file \"TAQ.hlp\" missing,"));
    Click("xphelp1");
}
