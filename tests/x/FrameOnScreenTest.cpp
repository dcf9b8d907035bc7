// The whole program's frame under a real pointer and a window manager.
#include "Program.h"
#include "tests/testing/RealPointer.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/TitleStrip.h"
#include "video/VideoWindow.h"
#include "video/ltmmPlay.h"
#include "viewers/FullS.h"
#include "viewers/QuickShots.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QDir>
#include <QMenu>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QWindow>

#include <clocale>
#include <cstdlib>

using namespace RealPointer;

namespace {

class FrameOnScreen : public testing::Test {
protected:
    QTemporaryDir folder;
    const QByteArray settings = qgetenv("XDG_CONFIG_HOME");
    std::unique_ptr<Program> program = Begin();
    Main& main = program->MainWindow();

    std::unique_ptr<Program> Begin()
    {
        qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
        return std::make_unique<Program>(folder.path());
    }
    void SetUp() override
    {
        main.setGeometry(200, 150, 1000, 640);
        ASSERT_TRUE(ShowActive(main));
    }
    void TearDown() override { qputenv("XDG_CONFIG_HOME", settings); }

    QWidget& Find(const char* name) { return *main.findChild<QWidget*>(QLatin1String(name)); }
    void Click(const char* name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }
    void OpenSample()
    {
        ApplicationState& state = program->State();
        state.VideoPath = QStringLiteral(SAMPLES_DIR "/Aurora.avi");
        state.FromList = true;
        state.VidWinOnly = true;
        Click("Opens");
        main.findChild<VideoWindow*>()->OpenVideo();
    }
    bool MovesFrom(QPoint press)
    {
        const QPoint target = PlaceOnScreen(main) + QPoint(120, 80);
        return DragUntil(press, QPoint(120, 80), [&] { return PlaceOnScreen(main) == target; });
    }
};

} // namespace

TEST(ProgramStart, TheLibrariesReadNumbersByThePointWhateverTheUsersLocale)
{
    const QTemporaryDir folder;
    QProcess::execute(QStringLiteral("localedef"),
        { "-c", "-i", "de_DE", "-f", "ISO-8859-1", folder.filePath(QStringLiteral("comma")) });
    const auto ownLocales = qScopeGuard([] {
        qunsetenv("LOCPATH");
        std::setlocale(LC_NUMERIC, "C");
    });
    qputenv("LOCPATH", folder.path().toLocal8Bit());
    if (!std::setlocale(LC_NUMERIC, "comma"))
        GTEST_SKIP() << "no locale can be made here";
    ASSERT_EQ(std::strtod("9.5", nullptr), 9);
    const Program program(folder.path());
    EXPECT_EQ(std::strtod("9.5", nullptr), 9.5);
}

TEST_F(FrameOnScreen, IsMovedByItsTitleStrip)
{
    EXPECT_TRUE(MovesFrom(Find("TopBack").mapToGlobal(QPoint(300, 14))));
    EXPECT_EQ(main.size(), QSize(1000, 640));
}

TEST_F(FrameOnScreen, IsMovedByTheBareGroundOfItsStrips)
{
    QWidget& commands = Find("VideoSoftElastic1");
    EXPECT_TRUE(MovesFrom(commands.mapToGlobal(QPoint(commands.width() - 3, commands.height() / 2))));
    QWidget& foot = Find("VideoSoftElastic3");
    EXPECT_TRUE(MovesFrom(foot.mapToGlobal(QPoint(foot.width() / 2, foot.height() / 2))));
}

TEST_F(FrameOnScreen, IsMovedByItsStatusLabels)
{
    main.ShowStatus(StatusLabel::AutoCapture, true);
    main.SetStatus(StatusLabel::AutoCapture, QStringLiteral("Captured first frame."));
    QWidget& label = Find("Label2");
    ASSERT_TRUE(Eventually([&] { return label.width() > 20; }));
    EXPECT_TRUE(MovesFrom(label.mapToGlobal(label.rect().center())));
}

TEST_F(FrameOnScreen, IsSizedByItsGrip)
{
    const auto* grip = main.findChild<SizeGrip*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_TRUE(DragUntil(
        grip->mapToGlobal(QPoint(8, 8)), QPoint(90, 60), [&] { return main.size() == QSize(1090, 700); }));
}

TEST_F(FrameOnScreen, FillsTheScreenAndComesBackByItsButtonAndByADoubleClick)
{
    const auto fills = [&] {
        return main.isMaximized() && main.width() == main.screen()->availableSize().width();
    };
    Click("ToolBarPic(1)");
    EXPECT_TRUE(Eventually(fills));
    Click("ToolBarPic(1)");
    EXPECT_TRUE(Eventually([&] { return main.size() == QSize(1000, 640); }));
    QTest::mouseDClick(&Find("TopBack"), Qt::LeftButton, {}, QPoint(300, 14));
    EXPECT_TRUE(Eventually(fills));
}

TEST_F(FrameOnScreen, IsMinimisedByItsButtonAndFetchedBackByTheDesktop)
{
    Click("ToolBarPic(2)");
    ASSERT_TRUE(Eventually([&] { return main.isMinimized() && !main.windowHandle()->isExposed(); }));
    Pointer({ "windowactivate", QString::number(main.winId()) });
    EXPECT_TRUE(Eventually([&] { return !main.isMinimized() && main.isActiveWindow(); }));
    EXPECT_EQ(main.size(), QSize(1000, 640));
    EXPECT_EQ(main.windowTitle(), QStringLiteral("TAQ Pro v2.1"));
}

TEST_F(FrameOnScreen, MinimisedItTakesTheOpenToolsAlong)
{
    QWidget tools(nullptr, Qt::Tool);
    program->State().Tools = &tools;
    program->State().ToolsOpen = true;
    tools.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tools));
    Click("ToolBarPic(2)");
    EXPECT_TRUE(Eventually([&] { return main.isMinimized() && tools.isHidden(); }));
    EXPECT_EQ(main.windowTitle(), QStringLiteral("TAQ Pro v2.1"));
    main.showNormal();
    EXPECT_TRUE(Eventually([&] { return !main.isMinimized() && tools.isVisible(); }));
    program->State().ToolsOpen = false;
}

TEST_F(FrameOnScreen, APopupGoesWhenThePointerMovesOverTheFrameThePictureAndItsTitle)
{
    OpenSample();
    auto* window = main.findChild<VideoWindow*>();
    window->move(400, 60); // beside the popup
    const std::pair<const char*, QPoint> places[] {
        { "the frame", Find("TopBack").mapToGlobal(QPoint(600, 14)) },
        { "the picture", window->Player().mapToGlobal(QPoint(60, 60)) },
        { "its title", window->Head().mapToGlobal(QPoint(60, 8)) },
    };
    for (const auto& [name, place] : places) {
        Click("Image3");
        const QPointer<QMenu> menu = main.findChild<QMenu*>(QStringLiteral("Menus"));
        ASSERT_TRUE(menu && QTest::qWaitForWindowExposed(menu)) << name;
        ASSERT_FALSE(menu->geometry().contains(place)) << name;
        PointAt(menu->mapToGlobal(QPoint(20, 20)));
        PointAt(place);
        EXPECT_TRUE(Eventually([&] { return !menu || !menu->isVisible(); })) << name;
    }
}

TEST_F(FrameOnScreen, TheVideoWindowIsMovedByItsPicture)
{
    OpenSample();
    auto* window = main.findChild<VideoWindow*>();
    window->move(20, 20);
    const QPoint press = window->Player().mapToGlobal(QPoint(40, 40));
    EXPECT_TRUE(DragUntil(press, QPoint(60, 30), [&] { return window->pos() == QPoint(80, 50); }));
}

TEST_F(FrameOnScreen, TwoCapturesAVideoAndAStripCloseWithItWhateverTheirOrder)
{
    const char* const kinds[] { "Viewer", "VideoWindow", "QuickShots" };
    for (const char* front : kinds) {
        OpenSample();
        Click("Cmds(8)");
        Click("Cmds(8)");
        ASSERT_EQ(main.findChildren<Viewer*>().size(), 2) << "before " << front << " was in front";
        ASSERT_EQ(main.findChildren<QuickShots*>().size(), 1);
        main.AddChild(&Find(front));
        main.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const char* kind : kinds)
            EXPECT_EQ(main.findChild<QWidget*>(QLatin1String(kind)), nullptr) << kind << " behind " << front;
        EXPECT_EQ(program->State().KidCount, 0);
        ASSERT_TRUE(ShowActive(main));
    }
}

TEST_F(FrameOnScreen, AThumbnailClickedTwiceFillsTheScreenAndAClickBringsTheFrameBack)
{
    program->State().Settings.SaveSetting(
        QStringLiteral("Options"), QStringLiteral("OpThumb"), QStringLiteral("0"));
    OpenSample();
    Click("Cmds(8)");
    main.ShowThumbnails();
    auto& panel = *main.findChild<ThumbPanel*>();
    const QPoint cell = panel.mapToGlobal(panel.CellRect(0).center());
    bool filled = false;
    WhenOpen<FullS>([&](FullS& form) {
        filled = Eventually([&] { return form.isActiveWindow() && form.size() == form.screen()->size(); });
        // The release of the click that opened it has come by now.
        EXPECT_TRUE(form.isVisible());
        PointAt(QPoint(30, 30));
        Pointer({ "click", "1" });
    });
    PointAt(cell);
    Pointer({ "click", "--repeat", "2", "--delay", "30", "1" });
    EXPECT_TRUE(Eventually([&] { return filled && !main.findChild<FullS*>(); }));
    EXPECT_TRUE(Eventually([&] { return main.isActiveWindow(); }));
}
