// The main function of every test program: one QApplication, and a Qt warning during a test fails it.
#include <QApplication>
#include <QFont>
#include <QStandardPaths>

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
    QStandardPaths::setTestModeEnabled(true);
    qputenv("PULSE_SERVER", "unix:/nonexistent"); // nobody wants to hear the tests of the machine he works on
    QApplication application(argc, argv);
    application.setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
    qInstallMessageHandler(FailOnWarning);
    return RUN_ALL_TESTS();
}
