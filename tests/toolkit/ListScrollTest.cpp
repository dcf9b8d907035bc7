#include "toolkit/CLBHScroll.h"

#include <QListWidget>
#include <QScrollBar>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Shown {
    Shown()
    {
        list.addItem(QStringLiteral("from before"));
        list.resize(160, 90);
        scroll.Init(&list);
        list.show();
    }
    QListWidget list;
    CLBHScroll scroll;
};

const QString Long = QStringLiteral("/home/user/videos/a very long name that runs far out of the list.avi");

} // namespace

TEST(CLBHScroll, InitEmptiesTheListAndForgetsTheWidest)
{
    Shown shown;
    EXPECT_EQ(shown.list.count(), 0);
    shown.scroll.AddItem(Long);
    EXPECT_GT(shown.scroll.Widest(), 0);
    shown.scroll.Init(&shown.list);
    EXPECT_EQ(shown.list.count(), 0);
    EXPECT_EQ(shown.scroll.Widest(), 0);
}

TEST(CLBHScroll, TheExtentIsTheWidestRowAScrollBarAndTwoPixels)
{
    Shown shown;
    shown.scroll.AddItem(Long);
    shown.scroll.AddItem(QStringLiteral("short"));
    const int bar = shown.list.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &shown.list);
    EXPECT_EQ(shown.scroll.Widest(), shown.list.fontMetrics().horizontalAdvance(Long));
    EXPECT_EQ(shown.scroll.Extent(), shown.scroll.Widest() + bar + 2);
}

TEST(CLBHScroll, TheListScrollsOverItsExtent)
{
    Shown shown;
    shown.scroll.AddItem(Long);
    shown.scroll.AddItem(QStringLiteral("short"));
    const QScrollBar* bar = shown.list.horizontalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return bar->maximum() + shown.list.viewport()->width() == shown.scroll.Extent(); }));
}

TEST(CLBHScroll, AWiderRowThatComesLaterMakesTheExtentGrow)
{
    Shown shown;
    shown.scroll.AddItem(Long);
    const int before = shown.scroll.Extent();
    shown.scroll.AddItem(Long + Long);
    EXPECT_EQ(shown.scroll.Widest(), shown.list.fontMetrics().horizontalAdvance(Long + Long));
    EXPECT_GT(shown.scroll.Extent(), before);
    const QScrollBar* bar = shown.list.horizontalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return bar->maximum() + shown.list.viewport()->width() == shown.scroll.Extent(); }));
}

TEST(CLBHScroll, AfterEveryAddItemTheListShowsItsLastRow)
{
    Shown shown;
    for (int i = 0; i < 20; ++i) {
        shown.scroll.AddItem(i % 7 == 0 ? Long : QStringLiteral("row %1").arg(i));
        const QRect last = shown.list.visualItemRect(shown.list.item(i));
        EXPECT_TRUE(shown.list.viewport()->rect().intersects(last)) << i;
    }
}

TEST(CLBHScroll, AListThatIsGoneIsNotTouched)
{
    CLBHScroll scroll;
    {
        QListWidget list;
        scroll.Init(&list);
    }
    scroll.AddItem(Long);
    EXPECT_EQ(scroll.Extent(), 0);
}
