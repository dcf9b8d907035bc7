#include "bench/LiveProgram.h"

#include "video/ltmmPlay.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <stdexcept>

namespace {

constexpr int Patience = 60'000; // milliseconds

void Require(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

} // namespace

LiveProgram::LiveProgram()
    : program_(Prepared())
    , main_(program_.MainWindow())
{
    ShowCapturesIn(Place::Both);
    main_.resize(1120, 760);
    main_.show();
    Require(QTest::qWaitForWindowExposed(&main_, Patience), "the frame does not appear");
    main_.activateWindow();
    Require(QTest::qWaitFor([this] { return main_.isActiveWindow(); }, Patience), "the frame is not active");
}

QString LiveProgram::Prepared() const
{
    qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
    return folder_.path();
}

void LiveProgram::ShowCapturesIn(Place place)
{
    program_.State().Settings.SaveSetting(
        QStringLiteral("Options"), QStringLiteral("OpThumb"), QString::number(int(place)));
    program_.State().Reload(Key::OpThumb);
}

void LiveProgram::Open(const QString& clip)
{
    const QString known = folder_.filePath(QStringLiteral("video.avi"));
    QFile::remove(known);
    Require(QFile::link(clip, known), "the video cannot be linked");
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &main_, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        answer.stop();
        auto* names = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        names->setText(known);
        QTest::keyClick(names, Qt::Key_Return);
    });
    answer.start(0);
    Click(QStringLiteral("Cmds(0)"));
    Require(Player().SourceKind() == ltmmPlay::FileSource, "the video does not open");
}

void LiveProgram::Click(const QString& name)
{
    auto* button = main_.findChild<QWidget*>(name);
    Require(button && button->isVisible() && button->isEnabled(), "a button cannot be clicked");
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void LiveProgram::Capture()
{
    Click(QStringLiteral("Cmds(8)"));
}

void LiveProgram::BringVideoToFront()
{
    auto* video = main_.findChild<QWidget*>(QStringLiteral("VideoWindow"));
    Require(video, "there is no video window");
    main_.AddChild(video);
    QCoreApplication::processEvents();
}
