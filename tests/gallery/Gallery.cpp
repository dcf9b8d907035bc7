// Writes a picture of every control in every state and of every window, for the eye.
#include "ControlsPage.h"
#include "EditPages.h"
#include "OptionPages.h"
#include "TextPages.h"
#include "WindowPages.h"
#include "toolkit/Style.h"

#include <QApplication>
#include <QDir>
#include <QTest>

int main(int argc, char** argv)
{
    if (argc < 3) {
        qWarning("usage: toolkit_gallery <folder> <scale> [points added to the font]");
        return 1;
    }
    qputenv("QT_SCALE_FACTOR", argv[2]);
    QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setPointSize(font.pointSize() + (argc > 3 ? QByteArray(argv[3]).toInt() : 0));
    QApplication::setFont(font);
    ApplyStyle(application);

    const QDir folder(QString::fromLocal8Bit(argv[1]));
    bool areWritten = folder.mkpath(QStringLiteral("."));
    const auto take = [&](const QString& name, QWidget& window) {
        window.show();
        areWritten = QTest::qWaitForWindowExposed(&window) && areWritten;
        areWritten = window.grab().save(folder.filePath(name + QStringLiteral(".png"))) && areWritten;
    };
    take(QStringLiteral("controls"), *ControlsPage());
    ShowTexts(take);
    ShowWindows(take);
    ShowEditing(take);
    ShowOptions(take);
    return areWritten ? 0 : 1;
}
