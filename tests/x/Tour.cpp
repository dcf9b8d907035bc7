#include "Tour.h"

#include "Witness.h"
#include "app/Lead.h"
#include "imaging/FormatTable.h"
#include "toolkit/LayeredWindow.h"
#include "toolkit/TitleStrip.h"
#include "video/ltmmPlay.h"
#include "viewers/Viewer.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Patience = 20'000; // milliseconds
const QStringList Chosen { QStringLiteral("Aurora.avi"), QStringLiteral("notes.txt"),
    QStringLiteral("Sunset.mpg") };

void Require(bool holds, const QString& what)
{
    if (!holds)
        throw TourStopped(what.toStdString());
}

template <typename Condition> void WaitFor(Condition condition, const QString& what)
{
    Require(QTest::qWaitFor(condition, Patience), what);
}

void WriteText(const QString& path, const QByteArray& text)
{
    QFile file(path);
    Require(
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size(), QStringLiteral("write ") + path);
}

QString Empty(const QString& folder)
{
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    return QDir(folder).absolutePath();
}

} // namespace

Tour::Tour(const QString& folder, const QString& samples)
    : folder_(Empty(folder))
    , program_(PrepareFolders(samples))
    , main_(program_.MainWindow())
{
}

QString Tour::PrepareFolders(const QString& samples)
{
    for (const char* part : { "program", "videos", "settings" })
        folder_.mkdir(QLatin1String(part));
    qputenv("XDG_CONFIG_HOME", folder_.filePath(QStringLiteral("settings")).toLocal8Bit());
    for (const QString& name : Chosen)
        QFile::copy(samples + u'/' + name, folder_.filePath(QStringLiteral("videos/") + name));
    WriteText(folder_.filePath(QStringLiteral("videos/notes.txt")), "not a video\n");
    QDir::setCurrent(folder_.filePath(QStringLiteral("videos")));
    return folder_.filePath(QStringLiteral("program"));
}

void Tour::Run()
{
    ShowFrame();
    OpenThreeFiles();
    PlayAndPause();
    StepFrames();
    CaptureTwice();
    SaveInEveryFormat();
}

void Tour::ShowFrame()
{
    CRegSettings& settings = program_.State().Settings;
    for (const auto& [key, value] :
        { std::pair("OpThumb", "2"), { "AutoSave", "True" }, { "AutoDir", "True" } })
        Require(settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(value)),
            QStringLiteral("store a setting"));
    for (const Key key : { Key::OpThumb, Key::AutoSave, Key::AutoDir })
        program_.State().Reload(key);
    main_.resize(QSize(1120, 760).boundedTo(main_.screen()->availableSize()));
    main_.show();
    Require(QTest::qWaitForWindowExposed(&main_, Patience), QStringLiteral("the frame stands on the screen"));
    main_.activateWindow();
    WaitFor([this] { return main_.isActiveWindow(); }, QStringLiteral("the frame is active"));
    Require(main_.windowTitle() == QStringLiteral("TAQ Pro v2.1"),
        QStringLiteral("the frame bears its window text"));
    Shoot(QStringLiteral("empty-frame"));
}

void Tour::OpenThreeFiles()
{
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &main_, [&answer] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible())
            return;
        // The first filter hides the text file, so that it could not be chosen.
        QTest::keyClick(dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo")), Qt::Key_End);
        const auto* list = dialog->findChild<QListView*>(QStringLiteral("listView"));
        if (list->model()->rowCount(list->rootIndex()) < Chosen.size())
            return;
        answer.stop();
        auto* names = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        names->setText(u'"' + Chosen.join(QStringLiteral("\" \"")) + u'"');
        QTest::keyClick(names, Qt::Key_Return);
    });
    answer.start(0);
    Click(QStringLiteral("Cmds(0)"));
    const ApplicationState& state = program_.State();
    Require(state.FileCount == 3, QStringLiteral("three files were chosen"));
    Require(state.VideoCount == 2, QStringLiteral("two of them are videos"));
    Require(
        state.VideoPath.endsWith(QStringLiteral("/videos/Aurora.avi")), QStringLiteral("the first is open"));
    Require(state.VideoOpen, QStringLiteral("a video is open"));
}

void Tour::PlayAndPause()
{
    Click(QStringLiteral("Cmd2(0)"));
    WaitFor([this] { return ShownFrame() >= 5; }, QStringLiteral("the label counts frames"));
    const QWidget& player = Find(QStringLiteral("ltmmPlay1"));
    const QImage early = Screen(player);
    const int before = ShownFrame();
    WaitFor([&] { return ShownFrame() >= before + 25; }, QStringLiteral("the video goes on playing"));
    Require(Screen(player) != early, QStringLiteral("the picture on the screen has changed"));
    Click(QStringLiteral("Cmd2(1)"));
    WaitFor([this] { return main_.CurrentPlayer().State() == ltmmPlay::Paused; },
        QStringLiteral("the player pauses"));
    Shoot(QStringLiteral("playing"));
}

void Tour::StepFrames()
{
    const int start = main_.CurrentPlayer().CurrentFrame();
    for (int i = 0; i < 3; ++i)
        Click(QStringLiteral("Cmd2(3)"));
    for (int i = 0; i < 2; ++i)
        Click(QStringLiteral("Cmd2(2)"));
    frame_ = start + 1;
    WaitFor([this] { return ShownFrame() == frame_; },
        QStringLiteral("three steps forward and two back are one frame"));
    const double likeness = Witness::Likeness(
        main_.CurrentPlayer().GetStillPicture(5000), Witness::FrameOf(program_.State().VideoPath, frame_));
    Require(likeness > 38, QStringLiteral("the label names the frame shown (%1 dB)").arg(likeness));
}

void Tour::CaptureTwice()
{
    Click(QStringLiteral("Cmds(8)"));
    Click(QStringLiteral("Cmds(8)"));
    QStringList titles;
    for (Viewer* viewer : main_.findChildren<Viewer*>())
        titles += viewer->Head().Title();
    titles.sort();
    Require(titles == QStringList { QStringLiteral("Capture Window 1"), QStringLiteral("Capture Window 2") },
        QStringLiteral("two capture windows, numbered one apart"));
    Require(main_.ActiveCapture() != nullptr, QStringLiteral("a capture is active"));
    Shoot(QStringLiteral("captures"));
}

void Tour::SaveInEveryFormat()
{
    for (const imaging::FormatRow& row : imaging::FormatTable)
        SaveAs(QLatin1String(row.extension));
    Shoot(QStringLiteral("saved"));
}

void Tour::SaveAs(const QString& extension)
{
    const QDir target(folder_.filePath(QStringLiteral("program/AutoSave")));
    for (const char* taken : { "auto1", "auto3" })
        WriteText(target.filePath(QLatin1String(taken) + extension), "taken");
    program_.State().Settings.SaveSetting(QStringLiteral("Options"), QStringLiteral("Ext"), extension);
    Click(QStringLiteral("Cmds(9)"));
    const QString file = target.filePath(QStringLiteral("auto2") + extension);
    Require(QFile::exists(file), QStringLiteral("the gap is filled by ") + file);
    QString kind;
    const QImage picture = Witness::PictureOf(file, &kind);
    const bool isLossy = extension == QStringLiteral(".jpg") || extension == QStringLiteral(".gif");
    const double likeness = Witness::Likeness(picture, main_.ActiveCapture()->Bitmap());
    Require(isLossy ? likeness > 27 : std::isinf(likeness),
        QStringLiteral("%1 holds the capture (%2, %3 dB)").arg(file, kind).arg(likeness));
    written_ += file;
}

QWidget& Tour::Find(const QString& name)
{
    auto* widget = main_.findChild<QWidget*>(name);
    Require(widget != nullptr, name + QStringLiteral(" is in the frame"));
    return *widget;
}

void Tour::Click(const QString& name)
{
    QWidget& button = Find(name);
    Require(button.isVisible() && button.isEnabled(), name + QStringLiteral(" can be clicked"));
    QTest::mouseClick(&button, Qt::LeftButton);
    QCoreApplication::processEvents();
}

int Tour::ShownFrame()
{
    return main_.findChild<QLabel*>(QStringLiteral("LblMsg1(2)"))->text().section(u' ', -1).toInt();
}

QImage Tour::Screen(const QWidget& part)
{
    main_.repaint();
    const QRect place(part.mapToGlobal(QPoint()), part.size());
    return part.screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage();
}

bool Tour::IsFading()
{
    const auto windows = main_.findChildren<LayeredWindow*>();
    return std::any_of(windows.begin(), windows.end(), [](const LayeredWindow* window) {
        return window->isVisible() && window->objectName().endsWith(QLatin1String("FadeCls"));
    });
}

void Tour::Shoot(const QString& name)
{
    WaitFor([this] { return !IsFading(); }, QStringLiteral("every new window has faded in"));
    QCoreApplication::processEvents();
    const QString file = folder_.filePath(name + QStringLiteral(".png"));
    Require(Screen(main_).save(file), QStringLiteral("write ") + file);
    written_ += file;
}
