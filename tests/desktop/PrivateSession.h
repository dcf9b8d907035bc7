#pragma once

#include "desktop/Wallpaper.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMetaType>
#include <QDBusReply>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <optional>

using Environment = QMap<QString, QString>;
Q_DECLARE_METATYPE(Environment)

/// The session that tools/with_display.sh makes, with the settings of all its programs in a folder that goes
/// with the test. Programs that the bus starts get the same surroundings.
class PrivateSession : public testing::Test {
protected:
    static constexpr int Patience = 20'000; // milliseconds
    QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("A 'quoted' picture.bmp"));

    static void SetUpTestSuite()
    {
        qDBusRegisterMetaType<Environment>();
        ASSERT_TRUE(QDBusConnection::sessionBus().isConnected()) << "run by tools/with_display.sh";
    }
    void SetUp() override
    {
        for (const char* kind : { "CONFIG", "DATA", "CACHE" })
            Put(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(kind)), folder.filePath(QLatin1String(kind)));
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(QColor(10, 120, 230));
        ASSERT_TRUE(image.save(picture, "BMP"));
    }
    void TearDown() override
    {
        for (const auto& [name, value] : before_.asKeyValueRange())
            value.isNull() ? qunsetenv(qPrintable(name)) : qputenv(qPrintable(name), value);
    }

    /// Sets a variable for this program and all that the bus starts from now on.
    void Put(const QString& name, const QString& value)
    {
        const QByteArray key = name.toLocal8Bit();
        if (!before_.contains(name))
            before_.insert(name, qgetenv(key.constData()));
        qputenv(key.constData(), value.toLocal8Bit());
        QDBusInterface bus(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"));
        const QDBusReply<void> reply = bus.call(QStringLiteral("UpdateActivationEnvironment"),
            QVariant::fromValue(Environment { { name, value } }));
        ASSERT_TRUE(reply.isValid()) << qPrintable(reply.error().message());
    }
    static QString Output(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished(Patience);
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    /// Sets the wallpaper and waits for what becomes of it.
    Wallpaper::Outcome Set(Wallpaper& wallpaper)
    {
        std::optional<Wallpaper::Outcome> outcome;
        wallpaper.Set(picture, [&](const Wallpaper::Outcome& told) { outcome = told; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return outcome.has_value(); }, Patience));
        return outcome.value_or(
            Wallpaper::Outcome { Wallpaper::Result::NotSet, QStringLiteral("no answer") });
    }

private:
    QMap<QString, QByteArray> before_;
};

/// An outcome as a test's message shows it.
inline void PrintTo(const Wallpaper::Outcome& outcome, std::ostream* out)
{
    *out << int(outcome.result) << ' ' << outcome.reason.toStdString();
}
