// The real portal, with the test in the place of the desktop behind it.
#include "desktop/PortalWallpaper.h"
#include "desktop/SystemWallpaper.h"
#include "tests/desktop/PrivateSession.h"
#include "tests/testing/FakeWallpaper.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnectionInterface>
#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QUrl>

#include <chrono>
#include <memory>
#include <utility>

namespace {

using Result = Wallpaper::Result;
constexpr auto BackendName = "org.freedesktop.impl.portal.desktop.taqtest";
constexpr auto AllInterfaces = "org.freedesktop.impl.portal.Access;org.freedesktop.impl.portal.Wallpaper";

/// A question that stands on the desktop.
class Question : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.impl.portal.Request")

public:
    bool isClosed = false;

    Q_SLOT void Close() { isClosed = true; }
};

/// What the portal asks of the desktop: whether the user lets it, and the wallpaper itself.
class Backend : public QObject, public QDBusContext {
    Q_OBJECT

public:
    uint permission = 0; ///< 0 yes, 1 no
    uint response = 0;
    bool isSilent = false; ///< the user leaves the question standing
    Question question;
    QImage given;
    QVariantMap options;
};

class AccessOfBackend : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.impl.portal.Access")

public:
    explicit AccessOfBackend(Backend* backend)
        : QDBusAbstractAdaptor(backend)
        , backend_(*backend)
    {
    }
    Q_SLOT uint AccessDialog(const QDBusObjectPath&, const QString&, const QString&, const QString&,
        const QString&, const QString&, const QVariantMap&, QVariantMap& results)
    {
        results.clear();
        return backend_.permission;
    }

private:
    Backend& backend_;
};

class WallpaperOfBackend : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.impl.portal.Wallpaper")

public:
    explicit WallpaperOfBackend(Backend* backend)
        : QDBusAbstractAdaptor(backend)
        , backend_(*backend)
    {
    }
    Q_SLOT uint SetWallpaperURI(const QDBusObjectPath& handle, const QString&, const QString&,
        const QString& uri, const QVariantMap& options)
    {
        if (backend_.isSilent) {
            backend_.setDelayedReply(true);
            backend_.connection().registerObject(
                handle.path(), &backend_.question, QDBusConnection::ExportAllSlots);
        }
        backend_.given = QImage(QUrl(uri).toLocalFile());
        backend_.options = options;
        return backend_.response;
    }

private:
    Backend& backend_;
};

/// Files of sandboxed programs, which would mount a file system of its own.
class Documents : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Documents")

public:
    Q_SLOT QByteArray GetMountPoint() { return QByteArray("/nonexistent", sizeof "/nonexistent"); }
};

class PortalWallpaperTest : public PrivateSession {
protected:
    Backend backend;
    Documents documents;
    PortalWallpaper wallpaper;
    QProcess portal;

    PortalWallpaperTest()
    {
        new AccessOfBackend(&backend);
        new WallpaperOfBackend(&backend);
    }
    /// The desktop behind it is made for sessions of the name "taqtest".
    void StartPortal(const QByteArray& interfaces = AllInterfaces, const char* session = "taqtest")
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        ASSERT_TRUE(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &backend));
        ASSERT_TRUE(bus.registerService(QLatin1String(BackendName)));
        ASSERT_TRUE(bus.registerObject(QStringLiteral("/org/freedesktop/portal/documents"), &documents,
            QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Documents")));
        const QString description = folder.filePath(QStringLiteral("taqtest.portal"));
        QFile file(description);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[portal]\nDBusName=") + BackendName + "\nInterfaces=" + interfaces
            + "\nUseIn=taqtest\n");
        file.close();
        Put(QStringLiteral("XDG_DESKTOP_PORTAL_DIR"), folder.path());
        Put(QStringLiteral("XDG_CURRENT_DESKTOP"), QLatin1String(session));
        portal.start(QStringLiteral("/usr/libexec/xdg-desktop-portal"), { "--replace" });
        const auto stands = [] {
            return QDBusConnection::sessionBus().interface()->isServiceRegistered(
                QStringLiteral("org.freedesktop.portal.Desktop"));
        };
        ASSERT_TRUE(QTest::qWaitFor(stands, Patience));
    }
    void TearDown() override
    {
        if (portal.state() != QProcess::NotRunning) {
            portal.terminate();
            portal.waitForFinished(Patience);
        }
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterService(QLatin1String(BackendName));
        bus.unregisterService(QStringLiteral("org.freedesktop.portal.Documents"));
        bus.unregisterObject(QStringLiteral("/org/freedesktop/portal/documents"));
        bus.unregisterObject(QStringLiteral("/org/freedesktop/portal/desktop"));
        PrivateSession::TearDown();
    }
};

} // namespace

TEST_F(PortalWallpaperTest, ThePictureGoesToTheDesktopAsAnOpenFile)
{
    StartPortal();
    EXPECT_TRUE(wallpaper.CanSet());
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::Set) << qPrintable(outcome.reason);
    EXPECT_EQ(backend.given.pixelColor(5, 5), QColor(10, 120, 230));
    EXPECT_EQ(backend.options.value(QStringLiteral("set-on")).toString(), QStringLiteral("background"));
    EXPECT_EQ(backend.options.value(QStringLiteral("show-preview")), QVariant(false));
}

TEST_F(PortalWallpaperTest, AUserWhoSaysNoHasDeclined)
{
    backend.response = 1;
    StartPortal();
    EXPECT_EQ(Set(wallpaper).result, Result::Declined);
}

TEST_F(PortalWallpaperTest, ADesktopThatFailsWithoutTheUsersNoIsNoWay)
{
    backend.response = 2;
    StartPortal();
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::NotHere);
    EXPECT_EQ(outcome.reason, QStringLiteral("It was refused without a reason."));
}

TEST_F(PortalWallpaperTest, OnlyTheUsersNoKeepsTheNextWayFromBeingTried)
{
    StartPortal();
    for (const auto& [response, expected] : { std::pair(1U, Result::Declined), { 2U, Result::Set } }) {
        backend.response = response;
        auto next = std::make_unique<FakeWallpaper>();
        const FakeWallpaper& tried = *next;
        SystemWallpaper::Ways ways;
        ways.push_back(std::make_unique<PortalWallpaper>());
        ways.push_back(std::move(next));
        SystemWallpaper system(std::move(ways));
        EXPECT_EQ(Set(system).result, expected) << response;
        EXPECT_EQ(tried.given, response == 1 ? QStringList() : QStringList { picture }) << response;
    }
}

TEST_F(PortalWallpaperTest, AQuestionThatNobodyAnswersIsTakenBackAndTold)
{
    backend.isSilent = true;
    StartPortal();
    PortalWallpaper impatient(std::chrono::seconds(3));
    const Wallpaper::Outcome outcome = Set(impatient);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("The desktop did not answer."));
    EXPECT_TRUE(QTest::qWaitFor([&] { return backend.question.isClosed; }, Patience));
}

/// Why desktops that have no portal of their own are not asked by one.
TEST_F(PortalWallpaperTest, ThePortalOfAnotherDesktopTakesThePictureAsIfItWereShown)
{
    StartPortal(AllInterfaces, "XFCE");
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_FALSE(backend.given.isNull());
}

TEST_F(PortalWallpaperTest, APictureThatCannotBeReadIsTold)
{
    QFile::remove(picture);
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The picture could not be read."));
}

TEST_F(PortalWallpaperTest, ThePortalOfADesktopWithoutWallpapersIsNoWay)
{
    StartPortal("org.freedesktop.impl.portal.Access");
    EXPECT_EQ(Set(wallpaper).result, Result::NotHere);
}

#include "PortalWallpaperTest.moc"
