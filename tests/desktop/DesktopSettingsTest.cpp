// The desktops' own programs and services really asked.
#include "desktop/GnomeWallpaper.h"
#include "desktop/KdeWallpaper.h"
#include "desktop/XfceWallpaper.h"
#include "tests/desktop/PrivateSession.h"

#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

namespace {

using Result = Wallpaper::Result;

class GnomeTest : public PrivateSession {
protected:
    GnomeWallpaper wallpaper { *GnomeWallpaper::KeysOf(QStringLiteral("GNOME")) };

    void SetUp() override
    {
        PrivateSession::SetUp();
        Put(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("keyfile"));
        ASSERT_TRUE(wallpaper.CanSet());
    }
    static QString Get(const char* key)
    {
        return Output(QStringLiteral("gsettings"),
            { QStringLiteral("get"), QStringLiteral("org.gnome.desktop.background"), QLatin1String(key) });
    }
};

class XfceTest : public PrivateSession {
protected:
    XfceWallpaper wallpaper;

    static QString Query(const QStringList& arguments)
    {
        return Output(QStringLiteral("xfconf-query"), QStringList { "-c", "xfce4-desktop" } + arguments);
    }
    void TearDown() override
    {
        Query({ "-p", "/", "-r", "-R" }); // the service lives as long as the bus
        PrivateSession::TearDown();
    }
};

/// The pictures that XFCE's settings take, in turn.
class StoredPictures : public QObject {
    Q_OBJECT

public:
    QStringList values;

    StoredPictures()
    {
        QDBusConnection::sessionBus().connect(QString(), QStringLiteral("/org/xfce/Xfconf"),
            QStringLiteral("org.xfce.Xfconf"), QStringLiteral("PropertyChanged"), this,
            SLOT(Note(QString, QString, QDBusVariant)));
    }
    Q_SLOT void Note(const QString&, const QString& property, const QDBusVariant& value)
    {
        if (property.endsWith(QLatin1String("/last-image")))
            values << value.variant().toString();
    }
};

/// Stands in for the desktop's shell.
class Plasma : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.PlasmaShell")

public:
    QString script;
    QString answer = QStringLiteral("2\n");

    Plasma()
    {
        bus_.registerObject(QStringLiteral("/PlasmaShell"), this, QDBusConnection::ExportAllSlots);
        EXPECT_TRUE(bus_.registerService(QStringLiteral("org.kde.plasmashell")));
    }
    ~Plasma() override
    {
        bus_.unregisterService(QStringLiteral("org.kde.plasmashell"));
        QDBusConnection::disconnectFromBus(QStringLiteral("plasma"));
    }
    Q_SLOT QString evaluateScript(const QString& given)
    {
        script = given;
        return answer;
    }

private:
    QDBusConnection bus_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("plasma"));
};

using KdeTest = PrivateSession;

} // namespace

TEST_F(GnomeTest, TheLightAndTheDarkFaceGetThePicture)
{
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    for (const char* key : { "picture-uri", "picture-uri-dark" })
        EXPECT_EQ(QUrl(Get(key).mid(1).chopped(1)).toLocalFile(), picture) << key;
}

TEST_F(GnomeTest, APictureThatWasSwitchedOffIsSwitchedOnAndAnotherPlacementStays)
{
    const auto choose = [](const char* options) {
        Output(QStringLiteral("gsettings"),
            { "set", "org.gnome.desktop.background", "picture-options", QLatin1String(options) });
    };
    choose("none");
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_EQ(Get("picture-options"), QStringLiteral("'zoom'"));
    choose("centered");
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_EQ(Get("picture-options"), QStringLiteral("'centered'"));
}

TEST_F(GnomeTest, ASettingThatIsNotKeptIsToldAlthoughTheProgramSaysAllWentWell)
{
    Put(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory"));
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("The desktop did not keep the new wallpaper."));
}

TEST_F(GnomeTest, ADesktopWhoseSettingsAreNotInstalledIsTold)
{
    GnomeWallpaper mate(*GnomeWallpaper::KeysOf(QStringLiteral("MATE")));
    const Wallpaper::Outcome outcome = Set(mate);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason,
        QStringLiteral("The program \"gsettings\" failed. No such schema “org.mate.background”"));
}

TEST_F(GnomeTest, AProgramThatIsNotThereClosesTheWay)
{
    Put(QStringLiteral("PATH"), folder.path());
    EXPECT_FALSE(wallpaper.CanSet());
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.reason, QStringLiteral("The program \"gsettings\" is not installed."));
}

TEST_F(GnomeTest, AProgramThatHangsIsEndedAndTold)
{
    const QString hanging = folder.filePath(QStringLiteral("gsettings"));
    QFile script(hanging);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nexec sleep 1000\n");
    script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    script.close();
    Put(QStringLiteral("PATH"), folder.path() + u':' + qEnvironmentVariable("PATH"));
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The program \"gsettings\" did not answer."));
}

TEST_F(GnomeTest, TheProgramMayGoWhileTheDesktopIsAsked)
{
    bool isTold = false;
    {
        GnomeWallpaper shortLived(*GnomeWallpaper::KeysOf(QStringLiteral("GNOME")));
        shortLived.Set(picture, [&](const Wallpaper::Outcome&) { isTold = true; });
    }
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_FALSE(isTold);
}

TEST_F(XfceTest, AFreshDesktopGetsThePictureOnEveryScreenFillingIt)
{
    ASSERT_TRUE(wallpaper.CanSet());
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    const QString place = QStringLiteral("/backdrop/screen0/monitor%1/workspace0")
                              .arg(QGuiApplication::primaryScreen()->name());
    EXPECT_EQ(Query({ "-p", place + "/last-image" }), picture);
    EXPECT_EQ(Query({ "-p", place + "/image-style" }), QStringLiteral("5"));
}

TEST_F(XfceTest, AStyleWithoutAPictureIsNoPlaceToPutItIn)
{
    Query({ "-n", "-t", "int", "-p", "/backdrop/screen0/monitorHDMI-1/workspace0/image-style", "-s", "0" });
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    const QString place = QStringLiteral("/backdrop/screen0/monitor%1/workspace0")
                              .arg(QGuiApplication::primaryScreen()->name());
    EXPECT_EQ(Query({ "-p", place + "/last-image" }), picture);
}

TEST_F(XfceTest, EveryScreenAndWorkspaceThatIsKnownGetsThePicture)
{
    const QStringList places { "/backdrop/screen0/monitorHDMI-1/workspace0",
        "/backdrop/screen0/monitorHDMI-1/workspace1", "/backdrop/screen0/monitoreDP-1/workspace0" };
    for (const QString& place : places)
        Query({ "-n", "-t", "string", "-p", place + "/last-image", "-s", "/an old one.png" });
    Query({ "-n", "-t", "int", "-p", places[0] + "/image-style", "-s", "0" });
    Query({ "-n", "-t", "int", "-p", places[1] + "/image-style", "-s", "1" });
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    for (const QString& place : places)
        EXPECT_EQ(Query({ "-p", place + "/last-image" }), picture) << qPrintable(place);
    EXPECT_EQ(Query({ "-p", places[0] + "/image-style" }), QStringLiteral("5")) << "it showed no picture";
    EXPECT_EQ(Query({ "-p", places[1] + "/image-style" }), QStringLiteral("1"));
}

TEST_F(XfceTest, AtEveryMomentTheDesktopHasAPictureToShow)
{
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    StoredPictures stored;
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stored.values.value(1) == picture; }, Patience));
    for (const QString& value : stored.values)
        EXPECT_EQ(QFileInfo(value).canonicalFilePath(), picture) << qPrintable(value);
}

TEST_F(XfceTest, TheSameFileAgainIsAChangeThatTheDesktopSees)
{
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    QProcess monitor;
    monitor.start(QStringLiteral("xfconf-query"), { "-c", "xfce4-desktop", "-m" });
    ASSERT_TRUE(QTest::qWaitFor([&] { return monitor.bytesAvailable() > 0; }, Patience)) << "it has begun";
    monitor.readAll();
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_TRUE(QTest::qWaitFor([&] { return monitor.bytesAvailable() > 0; }, Patience));
    monitor.kill();
    monitor.waitForFinished();
}

TEST_F(KdeTest, TheDesktopRunsAScriptThatNamesThePicture)
{
    Plasma plasma;
    KdeWallpaper wallpaper;
    EXPECT_TRUE(wallpaper.CanSet());
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    EXPECT_TRUE(plasma.script.contains(QUrl::fromLocalFile(picture).toString(QUrl::FullyEncoded)));
    EXPECT_TRUE(plasma.script.contains(QStringLiteral("writeConfig(\"Image\", address)")));
}

TEST_F(KdeTest, ADesktopWithoutScreensOrWithAnErrorForAnAnswerIsTold)
{
    Plasma plasma;
    KdeWallpaper wallpaper;
    for (const char* answer : { "0\n", "", "Error: no such thing" }) {
        plasma.answer = QLatin1String(answer);
        EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The desktop did not take the wallpaper.")) << answer;
    }
}

TEST_F(KdeTest, ADesktopThatIsNotThereIsTold)
{
    KdeWallpaper wallpaper;
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The desktop did not answer."));
}

#include "DesktopSettingsTest.moc"
