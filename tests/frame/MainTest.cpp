#include "capture/SavePicture.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/PaintCount.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/TAQbutton.h"

#include <QFileInfo>
#include <QMdiArea>
#include <QMenu>

namespace {

using MainTest = FrameFixture;

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

TEST_F(MainTest, AStatusTextCanBePutOnTheScreenAtOnce)
{
    PaintCount label(*Find("LblMsg1(1)"));
    main->SetStatus(StatusLabel::Position, QStringLiteral("now"));
    EXPECT_EQ(label.count, 0);
    main->RepaintStatus(StatusLabel::Position);
    EXPECT_GT(label.count, 0);
}

TEST_F(MainTest, TheCloseButtonClosesTheFrame)
{
    Click("ToolBarPic(0)");
    EXPECT_FALSE(main->isVisible());
}

TEST_F(MainTest, TheFirstRunWritesNoKeyAndTheSecondIsSilent)
{
    EXPECT_FALSE(QFileInfo::exists(state.Settings.FilePath()));
    EXPECT_EQ(Find("VideoWindow"), nullptr);
    const Main second(PartsOf(*this, {}));
    EXPECT_FALSE(QFileInfo::exists(state.Settings.FilePath()));
}

TEST_F(MainTest, WhereNothingMayStandBesideTheProgramTheFirstStartTellsWhereCapturesAre)
{
    QTemporaryDir prefix;
    for (const char* name : { "bin", "share/taq-video-capture-pro" })
        QDir(prefix.path()).mkpath(QLatin1String(name));
    const auto start = [&] {
        ApplicationState installed(prefix.filePath(QStringLiteral("bin")),
            prefix.filePath(QStringLiteral("settings")), prefix.filePath(QStringLiteral("data")));
        Main second({ installed, clipboard, dialogs, errors, documents, printers, wallpaper, {} });
        second.show();
        QCoreApplication::processEvents();
        return installed.IsHomeNew;
    };
    errors.Expect(QStringLiteral("Captures"),
        QStringLiteral("Nothing can be kept beside the program. Captures are kept in ")
            + prefix.filePath(QStringLiteral("data/TAQ Video Capture Pro")));
    EXPECT_TRUE(start());
    EXPECT_FALSE(start()) << "the second start is silent";
}

TEST_F(MainTest, FullScreenWithoutAVideoMakesNoVideoWindow)
{
    main->mnuFullScreen_Click();
    EXPECT_EQ(state.CurrentVideo, nullptr);
    OpenOne();
    main->mnuFullScreen_Click();
    EXPECT_TRUE(player->fullScreen);
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

TEST_F(MainTest, ThePopupsFullScreenNeedsAVideo)
{
    ChooseInPopup(1);
    EXPECT_EQ(state.CurrentVideo, nullptr);
    OpenOne();
    ChooseInPopup(1);
    EXPECT_TRUE(player->fullScreen);
    EXPECT_EQ(state.PopupKind, 0);
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
    EXPECT_EQ(texts,
        QStringList(
            { "  Video List", "  View Full Screen", "  Close All Windows", "  Control Panel", "  About" }));
    errors.Expect(QStringLiteral("About"),
        QStringLiteral(
            "TAQ Video Capture Pro takes the best frames out of your videos and turns them into pictures."));
    Find<QMenu>("Menus")->actions().at(4)->trigger();
}

TEST_F(MainTest, TheFrameBearsItsWindowTextWheneverItBecomesActive)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    main->setWindowTitle(QString());
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    EXPECT_EQ(main->windowTitle(), QStringLiteral("TAQ Pro v2.1"));
}

TEST_F(MainTest, APressOnALabelOrOnBareGroundMovesTheFrame)
{
    main->ShowStatus(StatusLabel::AutoCapture, true);
    main->SetStatus(StatusLabel::AutoCapture, QStringLiteral("Captured first frame."));
    QCoreApplication::processEvents();
    for (const char* name : { "Label2", "LblMsg1(2)", "TopBack", "VideoSoftElastic1", "VideoSoftElastic3" }) {
        QWidget* const part = Find(name);
        const QPoint press(part->width() / 2, 2);
        const QPoint start = part->mapToGlobal(press);
        const QPoint before = main->pos();
        QTest::mousePress(part, Qt::LeftButton, {}, press);
        QMouseEvent move(
            QEvent::MouseMove, press, start + QPoint(12, 9), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(part, &move);
        QTest::mouseRelease(part, Qt::LeftButton, {}, press);
        EXPECT_EQ(main->pos(), before + QPoint(12, 9)) << name;
    }
}
