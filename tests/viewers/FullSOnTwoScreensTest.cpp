// A desk with two screens of different sizes (two_screens.json).
#include "viewers/FullS.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

TEST(FullSOnTwoScreensTest, TheScreenThatTheFrameStandsOnIsFilled)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    ASSERT_EQ(screens.size(), 2);
    FakeFrame frame;
    QImage picture(40, 30, QImage::Format_BGR888);
    picture.fill(Qt::blue);
    for (QScreen* screen : screens) {
        frame.window.move(screen->geometry().center());
        frame.window.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return frame.window.screen() == screen; }));
        FullS form(frame, picture);
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        EXPECT_EQ(form.screen(), screen);
        EXPECT_EQ(form.geometry(), screen->geometry());
        frame.window.hide();
    }
}
