// The root window of a screen on which no desktop stands, read back.
#include "desktop/RootWallpaper.h"
#include "desktop/XRoot.h"

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
constexpr int Patience = 20'000; // milliseconds

/// Another program of the same screen.
class OtherProgram {
public:
    OtherProgram() = default;
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { xcb_disconnect(connection_); }

    xcb_pixmap_t MakePicture()
    {
        const xcb_pixmap_t pixmap = xcb_generate_id(connection_);
        xcb_create_pixmap(connection_, root_.Screen().root_depth, pixmap, root_.Window(), 8, 8);
        return pixmap;
    }
    /// Says of a picture that it stands on the root.
    void Announce(xcb_pixmap_t pixmap)
    {
        for (const char* mark : { "_XROOTPMAP_ID", "ESETROOT_PMAP_ID" })
            xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, root_.Window(), root_.Atom(mark),
                XCB_ATOM_PIXMAP, 32, 1, &pixmap);
        EXPECT_TRUE(root_.TookAll());
    }
    xcb_pixmap_t Announced() const
    {
        const auto words = root_.Property(root_.Window(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP);
        return words.size() == 1 ? words.front() : xcb_pixmap_t(XCB_NONE);
    }
    bool HasPicture(xcb_pixmap_t pixmap) const
    {
        return Taken(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, pixmap), nullptr))
            != nullptr;
    }
    /// What it made stays when it goes, until somebody clears away everything of that kind.
    void LeaveForAWhile() { xcb_set_close_down_mode(connection_, XCB_CLOSE_DOWN_RETAIN_TEMPORARY); }
    bool Runs() const { return root_.TookAll(); }

private:
    xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
    XRoot root_ { connection_ };
};

/// A screen of so many bits, which the session names while this object lives.
class OtherScreen {
public:
    explicit OtherScreen(int bits)
    {
        server_.start(QStringLiteral("Xvfb"),
            { "-displayfd", "1", "-screen", "0", QStringLiteral("320x200x%1").arg(bits), "-nolisten",
                "tcp" });
        server_.waitForReadyRead(Patience);
        const QByteArray number = server_.readLine().trimmed();
        isThere_ = !number.isEmpty();
        qputenv("DISPLAY", ':' + number);
    }
    OtherScreen(const OtherScreen&) = delete;
    OtherScreen& operator=(const OtherScreen&) = delete;
    ~OtherScreen()
    {
        qputenv("DISPLAY", before_);
        server_.terminate();
        server_.waitForFinished(Patience);
    }
    bool IsThere() const { return isThere_; }

private:
    const QByteArray before_ = qgetenv("DISPLAY");
    QProcess server_;
    bool isThere_ = false;
};

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

TEST_F(RootWallpaperTest, APictureMuchWiderThanTheScreenFillsItWithItsMiddle)
{
    EXPECT_EQ(Set(Picture({ 20'000, 2 }, Qt::green, Qt::yellow)).result, Result::Set);
    for (const double y : { 0.01, 0.99 }) {
        EXPECT_EQ(RootAt(0.01, y), QColor(Qt::green));
        EXPECT_EQ(RootAt(0.99, y), QColor(Qt::yellow));
    }
}

TEST_F(RootWallpaperTest, TheOneBeforeIsFreed)
{
    const OtherProgram looker;
    EXPECT_EQ(Set(Picture({ 40, 25 }, Qt::red, Qt::red)).result, Result::Set);
    const xcb_pixmap_t first = looker.Announced();
    ASSERT_TRUE(looker.HasPicture(first)) << "although its maker is gone";
    EXPECT_EQ(Set(Picture({ 40, 25 }, Qt::blue, Qt::blue)).result, Result::Set);
    EXPECT_FALSE(looker.HasPicture(first));
    EXPECT_TRUE(looker.HasPicture(looker.Announced()));
}

TEST_F(RootWallpaperTest, AProgramThatSetAnotherRunsOn)
{
    OtherProgram setter;
    const xcb_pixmap_t its = setter.MakePicture();
    setter.Announce(its);
    EXPECT_EQ(Set(Picture({ 40, 25 }, Qt::red, Qt::red)).result, Result::Set);
    EXPECT_TRUE(setter.Runs());
    EXPECT_NE(setter.Announced(), its);
}

TEST_F(RootWallpaperTest, ANumberThatNamesNoPictureEndsNobody)
{
    const OtherProgram looker;
    xcb_pixmap_t left = XCB_NONE;
    {
        OtherProgram leaver;
        left = leaver.MakePicture();
        leaver.LeaveForAWhile();
        leaver.Announce(XCB_NONE);
    }
    ASSERT_TRUE(looker.HasPicture(left));
    EXPECT_EQ(Set(Picture({ 40, 25 }, Qt::red, Qt::red)).result, Result::Set);
    EXPECT_TRUE(looker.HasPicture(left)) << "clearing nothing away clears all of these away";
}

TEST_F(RootWallpaperTest, AScreenOfOtherPixelsIsNoWay)
{
    const QString picture = Picture({ 40, 25 }, Qt::red, Qt::red);
    for (const int bits : { 16, 30 }) {
        const OtherScreen screen(bits);
        ASSERT_TRUE(screen.IsThere()) << bits;
        EXPECT_EQ(Set(picture).result, Result::NotHere) << bits;
    }
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
