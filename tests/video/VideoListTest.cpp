#include "video/VideoList.h"

#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

TEST(VideoList, AClickOpensTheEntryAsChosenFromTheList)
{
    FakeFrame frame;
    frame.state.Videos = { QString(), QStringLiteral("/f/1.avi"), QStringLiteral("/f/2.avi"), QString() };
    frame.state.VideoCount = 2;
    auto* list = new VideoList(frame);
    list->show();
    auto* entries = list->findChild<QListWidget*>(QStringLiteral("VidList"));
    ASSERT_EQ(entries->count(), 2);
    EXPECT_EQ(entries->item(1)->text(), QStringLiteral("/f/2.avi"));
    QSignalSpy chosen(list, &VideoList::VideoChosen);
    QTest::mouseClick(
        entries->viewport(), Qt::LeftButton, {}, entries->visualItemRect(entries->item(1)).center());
    EXPECT_EQ(chosen.size(), 1);
    EXPECT_EQ(frame.state.VideoPath, QStringLiteral("/f/2.avi"));
    EXPECT_EQ(frame.state.CaptureName, frame.state.VideoPath);
    EXPECT_TRUE(frame.state.FromList);
    QTest::keyClick(entries, Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 2);
    delete list;
}

TEST(VideoList, EveryControlHasANameAndIsReachedByKeys)
{
    FakeFrame frame;
    frame.state.Videos = { QString(), QStringLiteral("/f/1.avi"), QString() };
    frame.state.VideoCount = 1;
    VideoList list(frame);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    EXPECT_EQ(AccessFaults(list), "");
}

TEST(VideoList, TheKeyboardIsInTheListAtTheVideoThatIsOpen)
{
    FakeFrame frame;
    frame.state.Videos = { QString(), QStringLiteral("/f/1.avi"), QStringLiteral("/f/2.avi"), QString() };
    frame.state.VideoCount = 2;
    frame.state.VideoPath = QStringLiteral("/f/2.avi");
    VideoList list(frame);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    const auto* entries = list.findChild<QListWidget*>(QStringLiteral("VidList"));
    EXPECT_TRUE(entries->hasFocus());
    EXPECT_EQ(entries->currentRow(), 1);
}

TEST(VideoList, ADoubleClickOpensTheEntryOnce)
{
    FakeFrame frame;
    frame.state.Videos = { QString(), QStringLiteral("/f/1.avi"), QString() };
    frame.state.VideoCount = 1;
    VideoList list(frame);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    list.show();
    auto* entries = list.findChild<QListWidget*>(QStringLiteral("VidList"));
    const QPoint place = entries->visualItemRect(entries->item(0)).center();
    QSignalSpy chosen(&list, &VideoList::VideoChosen);
    QTest::mouseClick(entries->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(entries->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(chosen.size(), 1);
}

TEST(VideoList, TheButtonsBearTheirTips)
{
    FakeFrame frame;
    VideoList list(frame);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    for (const auto& [name, tip] : { std::pair("Cmds(2)", " Open Videos "), { "Cmds(1)", "Minimize Window" },
             { "Cmds(0)", "Close Video Window" } })
        EXPECT_EQ(list.findChild<QWidget*>(QLatin1String(name))->toolTip(), QLatin1String(tip));
}
