#include "toolkit/PopupMenu.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Opened {
    Opened()
    {
        menu.SetItems({ QStringLiteral("  Video List"), QStringLiteral("  Search && find"),
            QStringLiteral("  About") });
        menu.Open(QPoint(100, 120));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
    }
    QPoint Middle(int item) const { return menu.actionGeometry(menu.actions().at(item)).center(); }

    PopupMenu menu;
    QSignalSpy chosen { &menu, &PopupMenu::Chosen };
};

} // namespace

TEST(PopupMenu, OpensAtTheGivenPlace)
{
    const Opened opened;
    EXPECT_TRUE(opened.menu.isVisible());
    EXPECT_EQ(opened.menu.pos(), QPoint(100, 120));
}

TEST(PopupMenu, AClickOnAnItemChoosesItAndCloses)
{
    Opened opened;
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, opened.Middle(2));
    ASSERT_EQ(opened.chosen.size(), 1);
    EXPECT_EQ(opened.chosen.first().first().toInt(), 2);
    EXPECT_FALSE(opened.menu.isVisible());
}

TEST(PopupMenu, TheItemUnderThePointerIsHighlighted)
{
    Opened opened;
    QTest::mouseMove(&opened.menu, opened.Middle(0));
    QTest::mouseMove(&opened.menu, opened.Middle(1));
    EXPECT_EQ(opened.menu.activeAction(), opened.menu.actions().at(1));
}

TEST(PopupMenu, ArrowsAndReturnChooseByKeyboard)
{
    Opened opened;
    QTest::keyClick(&opened.menu, Qt::Key_Down);
    QTest::keyClick(&opened.menu, Qt::Key_Down);
    QTest::keyClick(&opened.menu, Qt::Key_Return);
    ASSERT_EQ(opened.chosen.size(), 1);
    EXPECT_EQ(opened.chosen.first().first().toInt(), 1);
}

TEST(PopupMenu, EscapeClosesWithoutAChoice)
{
    Opened opened;
    QTest::keyClick(&opened.menu, Qt::Key_Escape);
    EXPECT_FALSE(opened.menu.isVisible());
    EXPECT_EQ(opened.chosen.size(), 0);
}

TEST(PopupMenu, APressOutsideClosesWithoutAChoice)
{
    Opened opened;
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, QPoint(-30, -30));
    EXPECT_FALSE(opened.menu.isVisible());
    EXPECT_EQ(opened.chosen.size(), 0);
}

TEST(PopupMenu, AMoveOutsideIsTold)
{
    Opened opened;
    QSignalSpy outside(&opened.menu, &PopupMenu::MovedOutside);
    QTest::mouseMove(&opened.menu, opened.Middle(0));
    EXPECT_EQ(outside.size(), 0);
    QMouseEvent move(
        QEvent::MouseMove, QPointF(-30, 10), QPointF(70, 130), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&opened.menu, &move);
    EXPECT_EQ(outside.size(), 1);
}

TEST(PopupMenu, TextsAreShownAsTheyStand)
{
    const Opened opened;
    EXPECT_EQ(opened.menu.actions().at(0)->text(), QStringLiteral("  Video List"));
    EXPECT_EQ(opened.menu.actions().at(1)->text(), QStringLiteral("  Search &&&& find"));
}

TEST(PopupMenu, ACheckIsAStateThatAChoiceDoesNotTurnOver)
{
    Opened opened;
    opened.menu.SetChecked(0, true);
    opened.menu.SetChecked(1, false);
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, opened.Middle(0));
    EXPECT_TRUE(opened.menu.actions().at(0)->isChecked());
    EXPECT_FALSE(opened.menu.actions().at(1)->isChecked());
}

TEST(PopupMenu, ADisabledItemCannotBeChosen)
{
    Opened opened;
    opened.menu.SetItemEnabled(1, false);
    QTest::mouseClick(&opened.menu, Qt::LeftButton, {}, opened.Middle(1));
    EXPECT_EQ(opened.chosen.size(), 0);
}

TEST(PopupMenu, NewItemsReplaceTheOld)
{
    Opened opened;
    opened.menu.SetItems({ QStringLiteral("  Save") });
    EXPECT_EQ(opened.menu.actions().size(), 1);
}

TEST(PopupMenu, AssistiveTechnologyReadsItsItems)
{
    Opened opened;
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&opened.menu);
    ASSERT_EQ(seen->childCount(), 3);
    const char* const names[] { "Video List", "Search && find", "About" };
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(seen->child(i)->role(), QAccessible::MenuItem);
        EXPECT_EQ(seen->child(i)->text(QAccessible::Name).trimmed(), QLatin1String(names[i]));
    }
}
