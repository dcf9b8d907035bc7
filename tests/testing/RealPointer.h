#pragma once

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

/// A real pointer on a real screen, moved by xdotool, and what a test must wait for there.
namespace RealPointer {

inline void Pointer(const QStringList& steps)
{
    EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), steps), 0);
}

inline void PointAt(QPoint screen)
{
    Pointer({ "mousemove", QString::number(screen.x()), QString::number(screen.y()) });
}

inline bool Eventually(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 10000);
}

/// Tells when a press has reached one of the program's widgets.
class PressWatch : public QObject {
public:
    PressWatch() { qApp->installEventFilter(this); }
    bool seen = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        seen = seen || (watched->isWidgetType() && event->type() == QEvent::MouseButtonPress);
        return false;
    }
};

/// Presses on a place and drags it until the form is where it should be. The hand trembles at its end,
/// because a window manager that takes the pointer over late learns of its place by the next movement.
inline bool DragUntil(QPoint from, QPoint by, const std::function<bool()>& arrived)
{
    const PressWatch press;
    PointAt(from);
    Pointer({ "mousedown", "1" });
    EXPECT_TRUE(Eventually([&] { return press.seen; }));
    const bool there = Eventually([&] {
        PointAt(from + by - QPoint(1, 1));
        PointAt(from + by);
        return arrived();
    });
    Pointer({ "mouseup", "1" });
    return there;
}

/// Where the screen has a window. The program itself learns of a move only when the window manager has ended
/// it.
inline QPoint PlaceOnScreen(const QWidget& window)
{
    QProcess xdotool;
    xdotool.start(
        QStringLiteral("xdotool"), { "getwindowgeometry", "--shell", QString::number(window.winId()) });
    xdotool.waitForFinished();
    static const QRegularExpression place(QStringLiteral("X=(\\d+)\\s+Y=(\\d+)"));
    const auto match = place.match(QString::fromLatin1(xdotool.readAllStandardOutput()));
    return { match.captured(1).toInt(), match.captured(2).toInt() };
}

inline bool ShowActive(QWidget& window)
{
    window.show();
    return QTest::qWaitForWindowExposed(&window) && Eventually([&] {
        window.activateWindow();
        return window.isActiveWindow();
    });
}

} // namespace RealPointer
