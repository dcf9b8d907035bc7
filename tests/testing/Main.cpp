// The main function of every test program: one QApplication, and a Qt warning during a test fails it.
#include <QApplication>
#include <QFont>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // The offscreen platform says so of everything it cannot do, and a picture that got no memory is null:
    // both are no fault of the program.
    if (type == QtDebugMsg || type == QtInfoMsg
        || message.startsWith(QLatin1String("This plugin does not support"))
        || message.startsWith(QLatin1String("QImage: out of memory")))
        return;
    ADD_FAILURE() << "Qt said: " << message.toStdString();
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir home; // nothing of the user's is read, and no run sees what another one stored
    for (const char* place : { "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME" })
        qputenv(place, home.filePath(QLatin1String(place)).toLocal8Bit());
    qputenv("PULSE_SERVER", "unix:/nonexistent"); // nobody wants to hear the tests of the machine he works on
    QApplication application(argc, argv);
    application.setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
