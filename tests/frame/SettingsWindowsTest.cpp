#include "app/Hourglass.h"
#include "capture/SavePicture.h"
#include "settingsui/Options.h"
#include "settingsui/Power.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QLabel>
#include <QListWidget>
#include <QTabWidget>

namespace {

class SettingsWindows : public FrameFixture {
protected:
    static constexpr int ControlPanel = 3; ///< its place in the popup

    /// Presses the frame's options button and does this with the dialog, which is then closed.
    void WithOptions(const std::function<void(Options&)>& act)
    {
        WhenOpen<Options>([act](Options& options) {
            act(options);
            if (options.isVisible())
                options.reject();
        });
        Click("Cmds(7)");
    }
    /// Clicks a control on whatever page it stands.
    static void ClickIn(Options& options, const char* name)
    {
        auto* control = options.findChild<QWidget*>(QLatin1String(name));
        auto* tabs = options.findChild<QTabWidget*>();
        for (int page = 0; page < tabs->count(); ++page)
            if (tabs->widget(page)->isAncestorOf(control))
                tabs->setCurrentIndex(page);
        QTest::mouseClick(control, Qt::LeftButton);
    }
    QPointer<Power> Panel() { return main->findChild<Power*>(); }
};

} // namespace

TEST_F(SettingsWindows, TheOptionsOpenModallyFromTheStartUnderTheNormalPointer)
{
    ASSERT_TRUE(IsEnabled(Command::Options));
    bool wasOpen = false;
    WithOptions([&](Options& options) {
        wasOpen = true;
        EXPECT_TRUE(options.isModal());
        EXPECT_EQ(options.parentWidget(), main.get());
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    });
    EXPECT_TRUE(wasOpen);
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
    EXPECT_EQ(main->findChild<Options*>(), nullptr);
}

TEST_F(SettingsWindows, ADoubleClickOpensTheOptionsOnce)
{
    QMetaObject::invokeMethod(Find<TAQbutton>("Cmds(7)"), "click", Qt::QueuedConnection);
    int opened = 0;
    WithOptions([&](Options&) { ++opened; });
    EXPECT_EQ(opened, 1);
}

TEST_F(SettingsWindows, TheFramesTipsFollowTheOptionsAtOnce)
{
    const auto switchTips = [](Options& options) {
        ClickIn(options, "check10");
        ClickIn(options, "Cmds(0)");
    };
    WithOptions(switchTips);
    EXPECT_EQ(Find("Cmds(0)")->toolTip(), QString());
    WithOptions(switchTips);
    EXPECT_EQ(Find("Cmds(0)")->toolTip(), QStringLiteral(" Open videos for capture  "));
}

TEST_F(SettingsWindows, SavingWithoutCaptureSwapsTheButtonsOfTheOpenVideo)
{
    OpenOne();
    ASSERT_TRUE(IsEnabled(Command::Capture));
    const auto switchIt = [](Options& options) {
        if (options.findChild<xpcheckbox*>(QStringLiteral("Check1"))->Value() != xpcheckbox::Set)
            ClickIn(options, "Check1");
        ClickIn(options, "check3");
        ClickIn(options, "Cmds(0)");
    };
    WithOptions(switchIt);
    EXPECT_FALSE(IsEnabled(Command::Capture));
    EXPECT_TRUE(IsEnabled(Command::Save));
    WithOptions(switchIt);
    EXPECT_TRUE(IsEnabled(Command::Capture));
    EXPECT_FALSE(IsEnabled(Command::Save));
}

TEST_F(SettingsWindows, ThePrinterChosenHoldsUntilTheFrameEnds)
{
    errors.Expect(
        QStringLiteral("Success!"), QStringLiteral("Beta has successfully been set as the default printer."));
    WithOptions([](Options& options) {
        options.findChild<QListWidget*>(QStringLiteral("List1"))->setCurrentRow(1);
        ClickIn(options, "Cmds(2)");
    });
    EXPECT_EQ(printers.list.defaultName, QStringLiteral("Beta"));
    WithOptions([](Options& options) {
        EXPECT_EQ(options.findChild<QListWidget*>(QStringLiteral("List1"))->currentRow(), 1);
    });
    main.reset();
    EXPECT_EQ(printers.list.defaultName, QStringLiteral("Alpha"));
}

TEST_F(SettingsWindows, ThePreviewOfThePageShowsThePictureBehindTheWindows)
{
    QImage picture(100, 100, QImage::Format_BGR888);
    picture.fill(Qt::red);
    const QString file = folder.filePath(QStringLiteral("back.bmp"));
    SavePicture(picture, file);
    Store("PicFolder", qPrintable(file));
    Store("PPosition", "0");
    main->resize(main->width() + 1, main->height());
    WithOptions([](Options& options) {
        const QPixmap page = options.findChild<QLabel*>(QStringLiteral("picPreview"))->pixmap();
        EXPECT_EQ(page.toImage().pixelColor(2, 2), QColor(Qt::red));
    });
}

TEST_F(SettingsWindows, TheFrameMayCloseWhileTheOptionsStand)
{
    WhenOpen<Options>([this](Options&) { main->close(); });
    Click("Cmds(7)");
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(CurrentPointer(), Pointer::Normal);
}

TEST_F(SettingsWindows, ThePopupOpensTheControlPanelOverTheFrame)
{
    ChooseInPopup(ControlPanel);
    ASSERT_TRUE(Panel());
    EXPECT_TRUE(Panel()->isVisible());
    EXPECT_FALSE(Panel()->isModal());
    EXPECT_TRUE(main->screen()->availableGeometry().contains(Panel()->frameGeometry()));
}

TEST_F(SettingsWindows, ThereIsOneControlPanel)
{
    ChooseInPopup(ControlPanel);
    const QPointer<Power> first = Panel();
    ChooseInPopup(ControlPanel);
    EXPECT_EQ(main->findChildren<Power*>().size(), 1);
    EXPECT_EQ(Panel(), first);
    first->close();
    DeleteClosed();
    EXPECT_TRUE(first.isNull());
    ChooseInPopup(ControlPanel);
    EXPECT_TRUE(Panel()->isVisible());
}

TEST_F(SettingsWindows, TheControlPanelGoesWithTheFrame)
{
    ChooseInPopup(ControlPanel);
    const QPointer<Power> panel = Panel();
    Click("ToolBarPic(0)");
    EXPECT_FALSE(panel && panel->isVisible());
}
