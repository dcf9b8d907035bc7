// The root window of a screen on which no desktop stands, read back.
#include "desktop/RootWallpaper.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>
#include <optional>

namespace {

using Result = Wallpaper::Result;

class RootWallpaperTest : public testing::Test {
protected:
    QTemporaryDir folder;
    RootWallpaper wallpaper;

    QString Picture(QSize size, QColor left, QColor right)
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(left);
        QPainter(&picture).fillRect(size.width() / 2, 0, size.width(), size.height(), right);
        const QString path = folder.filePath(QStringLiteral("a.bmp"));
        EXPECT_TRUE(picture.save(path, "BMP"));
        return path;
    }
    Wallpaper::Outcome Set(const QString& path)
    {
        std::optional<Wallpaper::Outcome> outcome;
        wallpaper.Set(path, [&](const Wallpaper::Outcome& told) { outcome = told; });
        return outcome.value_or(Wallpaper::Outcome { Result::NotSet, QStringLiteral("no answer") });
    }
    static QColor RootAt(double x, double y)
    {
        QScreen& screen = *QGuiApplication::primaryScreen();
        const QImage root = screen.grabWindow(0).toImage();
        return root.pixelColor(int(x * root.width()), int(y * root.height()));
    }
};

} // namespace

TEST_F(RootWallpaperTest, ThePictureFillsTheScreenAndStaysWhenItsMakerIsGone)
{
    ASSERT_TRUE(wallpaper.CanSet());
    EXPECT_EQ(Set(Picture({ 400, 250 }, Qt::red, Qt::blue)).result, Result::Set);
    for (const double y : { 0.01, 0.5, 0.99 }) {
        EXPECT_EQ(RootAt(0.01, y), QColor(Qt::red));
        EXPECT_EQ(RootAt(0.99, y), QColor(Qt::blue));
    }
}

TEST_F(RootWallpaperTest, APictureOfAnotherShapeFillsItWithItsMiddle)
{
    EXPECT_EQ(Set(Picture({ 100, 400 }, Qt::green, Qt::yellow)).result, Result::Set);
    for (const double y : { 0.01, 0.99 }) {
        EXPECT_EQ(RootAt(0.01, y), QColor(Qt::green));
        EXPECT_EQ(RootAt(0.99, y), QColor(Qt::yellow));
    }
}

TEST_F(RootWallpaperTest, TheNextOneTakesItsPlace)
{
    EXPECT_EQ(Set(Picture({ 400, 250 }, Qt::red, Qt::red)).result, Result::Set);
    EXPECT_EQ(Set(Picture({ 400, 250 }, Qt::cyan, Qt::cyan)).result, Result::Set);
    EXPECT_EQ(RootAt(0.5, 0.5), QColor(Qt::cyan));
}

TEST_F(RootWallpaperTest, APictureThatCannotBeReadIsToldAndTheOneBeforeStays)
{
    EXPECT_EQ(Set(Picture({ 400, 250 }, Qt::red, Qt::red)).result, Result::Set);
    const Wallpaper::Outcome outcome = Set(folder.filePath(QStringLiteral("missing.bmp")));
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("The picture could not be read."));
    EXPECT_EQ(RootAt(0.5, 0.5), QColor(Qt::red));
}

TEST_F(RootWallpaperTest, WhereADesktopLiesOverTheRootThisIsNoWay)
{
    QWidget desktop;
    desktop.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&desktop));
    EXPECT_TRUE(wallpaper.CanSet()) << "an ordinary window";
    QProcess::execute(QStringLiteral("xprop"),
        { "-id", QString::number(desktop.winId()), "-f", "_NET_WM_WINDOW_TYPE", "32a", "-set",
            "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP" });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !wallpaper.CanSet(); }));
    desktop.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return wallpaper.CanSet(); }));
}
