#include "Program.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setApplicationName(QStringLiteral("TAQ Video Capture Pro"));
    Program program(QCoreApplication::applicationDirPath());
    program.MainWindow().show();
    return application.exec();
}
