#include "Program.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setApplicationName(QStringLiteral("TAQ Video Capture Pro"));
    application.setDesktopFileName(QStringLiteral("com.marlowfern.taq"));
    Program program(QCoreApplication::applicationDirPath());
    application.setWindowIcon(QIcon(QStringLiteral(":/art/program.svg")));
    program.MainWindow().show();
    return application.exec();
}
