// The desktops' own programs and services really asked.
#include "desktop/GnomeWallpaper.h"
#include "desktop/KdeWallpaper.h"
#include "desktop/XfceWallpaper.h"
#include "tests/desktop/PrivateSession.h"
#include "tests/testing/Files.h"

#include <QDBusContext>
#include <QDBusVariant>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>

#include <tuple>

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
    static QString Get(const char* key, const char* schema = "org.gnome.desktop.background")
    {
        return Output(QStringLiteral("gsettings"),
            { QStringLiteral("get"), QLatin1String(schema), QLatin1String(key) });
    }
    /// Settings of this name with a text for each of these keys, in place of those that are installed.
    void Install(const QByteArray& schema, const QByteArrayList& keys)
    {
        QByteArray text = "<schemalist><schema id=\"" + schema + "\" path=\"/taq/test/\">";
        for (const QByteArray& key : keys)
            text += "<key name=\"" + key + "\" type=\"s\"><default>'zoom'</default></key>";
        text += "</schema></schemalist>";
        ASSERT_TRUE(MakeFile(folder.filePath(QStringLiteral("test.gschema.xml")), text));
        ASSERT_EQ(QProcess::execute(QStringLiteral("glib-compile-schemas"), { folder.path() }), 0);
        Put(QStringLiteral("GSETTINGS_SCHEMA_DIR"), folder.path());
    }
    /// Puts a script in the place of the program; $REAL is the program itself.
    void Replace(const QByteArray& script)
    {
        const QString path = folder.filePath(QStringLiteral("gsettings"));
        const QByteArray real = QStandardPaths::findExecutable(QStringLiteral("gsettings")).toLocal8Bit();
        ASSERT_TRUE(MakeFile(path, "#!/bin/sh\nREAL=" + real + "\n" + script));
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner));
        Put(QStringLiteral("PATH"), folder.path() + u':' + qEnvironmentVariable("PATH"));
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
class Plasma : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.PlasmaShell")

public:
    QString script;
    QString answer = QStringLiteral("2 of 2\n");
    QDBusError::ErrorType error = QDBusError::NoError;

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
        if (error != QDBusError::NoError)
            sendErrorReply(error, QStringLiteral("The widgets are locked."));
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

TEST_F(GnomeTest, TheSamePictureAgainIsTakenAgain)
{
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(Set(wallpaper).result, Result::Set) << time;
    for (const char* key : { "picture-uri", "picture-uri-dark" })
        EXPECT_EQ(QUrl(Get(key).mid(1).chopped(1)).toLocalFile(), picture) << key;
}

TEST_F(GnomeTest, ADarkFaceThatDoesNotGetThePictureIsTold)
{
    Replace(
        "[ \"$1 $3\" = 'set picture-uri-dark' ] && { echo It is locked. >&2; exit 1; }\nexec $REAL \"$@\"\n");
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The program \"gsettings\" failed. It is locked."));
}

TEST_F(GnomeTest, ADarkFaceThatDoesNotKeepThePictureIsTold)
{
    Replace("[ \"$1 $3\" = 'set picture-uri-dark' ] || exec $REAL \"$@\"\n");
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The desktop did not keep the new wallpaper."));
}

TEST_F(GnomeTest, AnOlderDesktopWithoutADarkFaceGetsThePicture)
{
    Install("org.gnome.desktop.background", { "picture-uri", "picture-options" });
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::Set) << qPrintable(outcome.reason);
    EXPECT_EQ(QUrl(Get("picture-uri").mid(1).chopped(1)).toLocalFile(), picture);
    EXPECT_EQ(Get("picture-uri-dark"), QString());
}

TEST_F(GnomeTest, MateTakesThePathOfThePictureAndCinnamonItsAddress)
{
    const QString path = u'"' + picture + u'"';
    const QString address = u'"' + QUrl::fromLocalFile(picture).toString(QUrl::FullyEncoded) + u'"';
    const std::tuple<const char*, const char*, const char*, QString> desktops[] {
        { "MATE", "org.mate.background", "picture-filename", path },
        { "X-Cinnamon", "org.cinnamon.desktop.background", "picture-uri", address },
    };
    for (const auto& [desktop, schema, key, expected] : desktops) {
        Install(schema, { key, "picture-options" });
        GnomeWallpaper other(*GnomeWallpaper::KeysOf(QLatin1String(desktop)));
        const Wallpaper::Outcome outcome = Set(other);
        EXPECT_EQ(outcome.result, Result::Set) << desktop << qPrintable(outcome.reason);
        EXPECT_EQ(Get(key, schema), expected) << desktop;
    }
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
    Replace("exec sleep 1000\n");
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

TEST_F(XfceTest, ASettingThatIsNotKeptIsToldAlthoughTheProgramSaysAllWentWell)
{
    const QString deaf = folder.filePath(QStringLiteral("xfconf-query"));
    ASSERT_TRUE(MakeFile(deaf, "#!/bin/sh\nexit 0\n"));
    ASSERT_TRUE(QFile::setPermissions(deaf, QFile::ReadOwner | QFile::ExeOwner));
    const QString path = qEnvironmentVariable("PATH");
    Put(QStringLiteral("PATH"), folder.path() + u':' + path);
    const Wallpaper::Outcome outcome = Set(wallpaper);
    Put(QStringLiteral("PATH"), path);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("The desktop did not keep the new wallpaper."));
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

TEST_F(KdeTest, TheSamePictureAgainIsAChangeThatTheDesktopSees)
{
    Plasma plasma;
    KdeWallpaper wallpaper;
    EXPECT_EQ(Set(wallpaper).result, Result::Set);
    const qsizetype emptied = plasma.script.indexOf(QStringLiteral("writeConfig(\"Image\", \"\")"));
    const qsizetype written = plasma.script.indexOf(QStringLiteral("writeConfig(\"Image\", address)"));
    EXPECT_GE(emptied, 0);
    EXPECT_GT(written, emptied);
}

TEST_F(KdeTest, OnlyScreensThatKeptThePictureCount)
{
    Plasma plasma;
    KdeWallpaper wallpaper;
    plasma.answer = QStringLiteral("1 of 2\n");
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("1 of 2 screens kept it."));
    const qsizetype written = plasma.script.indexOf(QStringLiteral("writeConfig(\"Image\", address)"));
    EXPECT_GT(plasma.script.indexOf(QStringLiteral("readConfig(\"Image\", \"\")")), written);
}

TEST_F(KdeTest, ADesktopThatNamesNoScreenIsTold)
{
    Plasma plasma;
    KdeWallpaper wallpaper;
    for (const char* answer : { "0 of 0\n", "", "Error: no such thing" }) {
        plasma.answer = QLatin1String(answer);
        const Wallpaper::Outcome outcome = Set(wallpaper);
        EXPECT_EQ(outcome.result, Result::NotSet) << answer;
        EXPECT_EQ(outcome.reason, QStringLiteral("The desktop named no screen.")) << answer;
    }
}

TEST_F(KdeTest, WhatTheDesktopSaysAgainstIsTold)
{
    Plasma plasma;
    plasma.error = QDBusError::AccessDenied;
    KdeWallpaper wallpaper;
    const Wallpaper::Outcome outcome = Set(wallpaper);
    EXPECT_EQ(outcome.result, Result::NotSet);
    EXPECT_EQ(outcome.reason, QStringLiteral("The desktop answered: The widgets are locked."));
}

TEST_F(KdeTest, ADesktopThatIsNotThereOrSilentIsTold)
{
    KdeWallpaper wallpaper;
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The desktop did not answer."));
    Plasma plasma;
    plasma.error = QDBusError::NoReply;
    EXPECT_EQ(Set(wallpaper).reason, QStringLiteral("The desktop did not answer."));
}

#include "DesktopSettingsTest.moc"
