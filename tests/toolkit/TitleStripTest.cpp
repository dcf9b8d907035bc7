#include "toolkit/TitleStrip.h"

#include "toolkit/ElidedLabel.h"
#include "toolkit/StripButton.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Shown {
    Shown()
    {
        strip.SetTitle(QStringLiteral("Capture Window 1"));
        strip.AddButton(first = new smallXPbuttons);
        strip.AddButton(last = new smallXPbuttons);
        strip.resize(300, TitleStrip::Height);
        strip.show();
    }
    TitleStrip strip;
    smallXPbuttons* first;
    smallXPbuttons* last;
};

} // namespace

TEST(TitleStrip, TheTitleStandsAtTheLeftAndTheButtonsAtTheRightEdge)
{
    const Shown shown;
    EXPECT_EQ(shown.strip.height(), 28);
    EXPECT_LT(shown.strip.Label()->geometry().left(), shown.first->x());
    EXPECT_LT(shown.first->x(), shown.last->x());
    EXPECT_EQ(shown.last->geometry().right(), shown.strip.width() - 1);
}

TEST(TitleStrip, APressOnItsTitleAsksForAMoveWithItsPlace)
{
    Shown shown;
    QSignalSpy moves(&shown.strip, &TitleStrip::MoveRequested);
    QTest::mousePress(shown.strip.Label(), Qt::LeftButton, {}, QPoint(20, 10));
    ASSERT_EQ(moves.size(), 1);
    EXPECT_EQ(moves.first().first().toPoint(), shown.strip.Label()->mapToGlobal(QPoint(20, 10)));
}

TEST(TitleStrip, OtherButtonsOfTheMouseMoveNothing)
{
    Shown shown;
    QSignalSpy moves(&shown.strip, &TitleStrip::MoveRequested);
    QTest::mousePress(&shown.strip, Qt::RightButton, {}, QPoint(100, 10));
    EXPECT_EQ(moves.size(), 0);
}

TEST(TitleStrip, APressOnAButtonMovesNothing)
{
    Shown shown;
    QSignalSpy moves(&shown.strip, &TitleStrip::MoveRequested);
    QTest::mouseClick(shown.last, Qt::LeftButton);
    EXPECT_EQ(moves.size(), 0);
}

TEST(TitleStrip, ADoubleClickTogglesMaximize)
{
    Shown shown;
    QSignalSpy toggles(&shown.strip, &TitleStrip::MaximizeToggled);
    QTest::mouseDClick(&shown.strip, Qt::LeftButton, {}, QPoint(100, 10));
    EXPECT_EQ(toggles.size(), 1);
}

TEST(TitleStrip, TheTitleOfTheActiveWindowIsBrighter)
{
    Shown shown;
    const auto brightness = [&] {
        return shown.strip.Label()->palette().color(QPalette::WindowText).lightness();
    };
    const int inactive = brightness();
    shown.strip.SetActive(true);
    EXPECT_GT(brightness(), inactive);
}

TEST(TitleStrip, ALongTitleGivesWayToTheButtons)
{
    Shown shown;
    shown.strip.SetTitle(QString(200, QLatin1Char('x')));
    shown.strip.resize(120, TitleStrip::Height);
    QCoreApplication::processEvents();
    EXPECT_LE(shown.strip.minimumSizeHint().width(), 120);
    EXPECT_EQ(shown.last->geometry().right(), 119);
}
