// The keys beside the buttons, pressed as a user would press them.
#include "app/Lead.h"
#include "frame/KeyTable.h"
#include "tests/frame/FrameFixture.h"
#include "tests/testing/RunningDialog.h"
#include "video/URLfrm.h"
#include "viewers/Viewer.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSet>

namespace {

class KeysTest : public FrameFixture {
protected:
    void SetUp() override
    {
        FrameFixture::SetUp();
        OpenOne();
        player->setFocusPolicy(Qt::StrongFocus);
        player->setFocus();
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
};

} // namespace

TEST_F(KeysTest, SpacePlaysAndPauses)
{
    Press(Qt::Key_Space);
    EXPECT_EQ(player->state, ltmmPlay::Running);
    Press(Qt::Key_Space);
    EXPECT_EQ(player->state, ltmmPlay::Paused);
}

TEST_F(KeysTest, CommaAndPeriodStepOneFrameAndGoOnWhileHeld)
{
    Press(Qt::Key_Period);
    Press(Qt::Key_Period);
    EXPECT_EQ(player->frame, 2);
    Press(Qt::Key_Comma);
    EXPECT_EQ(player->frame, 1);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Period, Qt::NoModifier, QStringLiteral("."), true);
    QCoreApplication::sendEvent(player, &held);
    EXPECT_EQ(player->frame, 2);
}

TEST_F(KeysTest, CommaAndPeriodStepAlsoOnALayoutThatTypesThemWithShift)
{
    Press(Qt::Key_Period, Qt::ShiftModifier);
    EXPECT_EQ(player->frame, 1);
    Press(Qt::Key_Comma, Qt::ShiftModifier);
    EXPECT_EQ(player->frame, 0);
}

TEST_F(KeysTest, SpacePausesAfterAClickOnPlay)
{
    Click("Cmd2(0)");
    ASSERT_EQ(player->state, ltmmPlay::Running);
    Press(Qt::Key_Space);
    EXPECT_EQ(player->state, ltmmPlay::Paused);
}

TEST_F(KeysTest, NoWindowClosesBehindAPictureThatFillsTheScreen)
{
    Press(Qt::Key_F);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(state.VideoOpen);
}

TEST_F(KeysTest, WhatOpensABoxLeavesFullScreenFirst)
{
    bool wasFullScreen = true;
    dialogs.whileShown = [&] { wasFullScreen = player->fullScreen; };
    Press(Qt::Key_F);
    ASSERT_TRUE(player->fullScreen);
    dialogs.openNames.push(QString());
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_FALSE(wasFullScreen);
    Press(Qt::Key_F);
    errors.Expect(QStringLiteral("Error!"), QStringLiteral("Help file \"TAQ.hlp\" missing,"));
    errors.whileShown = [&] { wasFullScreen = player->fullScreen; };
    wasFullScreen = true;
    Press(Qt::Key_F1);
    EXPECT_FALSE(wasFullScreen);
    Press(Qt::Key_F);
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(player->fullScreen) << "a command that is disabled changes nothing";
}

TEST_F(KeysTest, AHeldSpaceTurnsOnlyOnce)
{
    Press(Qt::Key_Space);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(player, &held);
    EXPECT_EQ(player->state, ltmmPlay::Running);
}

TEST_F(KeysTest, EndAndHomeGoToTheLastAndTheFirstFrame)
{
    Press(Qt::Key_End);
    EXPECT_EQ(player->frame, player->frameCount - 1);
    Press(Qt::Key_Home);
    EXPECT_EQ(player->frame, 0);
}

TEST_F(KeysTest, SCapturesAndControlSSaves)
{
    state.OpThumb = 2;
    Store("OpThumb", "2");
    Press(Qt::Key_S);
    ASSERT_EQ(state.KidCount, 1);
    dialogs.saveNames.push(folder.filePath(QStringLiteral("kept.bmp")));
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("kept.bmp"))));
}

TEST_F(KeysTest, ControlOOpensVideos)
{
    dialogs.openNames.push(folder.filePath(QStringLiteral("b.avi")));
    Press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(player->file, folder.filePath(QStringLiteral("b.avi")));
}

TEST_F(KeysTest, ControlUAsksForAnAddress)
{
    bool isAsked = false;
    WhenOpen<URLfrm>([&](URLfrm& form) {
        isAsked = true;
        form.reject();
    });
    Press(Qt::Key_U, Qt::ControlModifier);
    EXPECT_TRUE(isAsked);
}

TEST_F(KeysTest, ControlCCopiesTheActiveCapture)
{
    Store("OpThumb", "2");
    Press(Qt::Key_S);
    const QImage captured = main->ActiveCapture()->Bitmap();
    clipboard.picture = {};
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.picture.convertToFormat(QImage::Format_RGB32),
        captured.convertToFormat(QImage::Format_RGB32));
}

TEST_F(KeysTest, ControlCWithoutACaptureLeavesTheClipboardAlone)
{
    clipboard.log.clear();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(clipboard.log.isEmpty());
}

TEST_F(KeysTest, ControlPPrintsTheActiveCapture)
{
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(printers.jobs.isEmpty()) << "there is none yet";
    Store("OpThumb", "2");
    Press(Qt::Key_S);
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(printers.jobs.size(), 1);
}

TEST_F(KeysTest, FAndF11FillTheScreen)
{
    Press(Qt::Key_F);
    EXPECT_TRUE(player->fullScreen);
    Press(Qt::Key_F11);
    EXPECT_FALSE(player->fullScreen);
}

TEST_F(KeysTest, ControlWClosesTheActiveWindow)
{
    Store("OpThumb", "2");
    Press(Qt::Key_S);
    ASSERT_EQ(state.KidCount, 1);
    Press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_TRUE(state.VideoOpen);
}

TEST_F(KeysTest, TheyRestWhileATextBoxHasTheFocus)
{
    QLineEdit box(main.get());
    box.show();
    box.setFocus();
    for (const char letter : { 's', 'f', ',', '.', ' ' })
        QTest::keyClick(&box, letter);
    Press(Qt::Key_End);
    EXPECT_EQ(box.text(), QStringLiteral("sf,. "));
    EXPECT_EQ(state.KidCount, 0);
    EXPECT_EQ(player->frame, 0);
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
}

TEST_F(KeysTest, SpacePressesTheButtonThatHasTheFocus)
{
    Find("Cmd2(3)")->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Space);
    EXPECT_EQ(player->frame, 1);
    EXPECT_EQ(player->state, ltmmPlay::Stopped);
}

TEST_F(KeysTest, AListDoesNotKeepTheLettersToItself)
{
    QListWidget list(main.get());
    list.addItem(QStringLiteral("f.avi"));
    list.show();
    list.setFocus();
    Press(Qt::Key_Period);
    EXPECT_EQ(player->frame, 1);
}

TEST_F(KeysTest, TheyRestWhileABoxWaitsForAnAnswer)
{
    QMessageBox box(main.get());
    box.open();
    QTest::keyClick(&box, Qt::Key_Period);
    QTest::keyClick(player, Qt::Key_Period);
    EXPECT_EQ(player->frame, 0);
}

TEST_F(KeysTest, ACommandThatIsDisabledStaysSo)
{
    Find("VideoWindow")->close();
    QTest::keyClick(main.get(), Qt::Key_S);
    EXPECT_EQ(state.KidCount, 0);
}

TEST_F(KeysTest, TheGuideTellsEveryKeyAndNoOther)
{
    QFile guide(QStringLiteral(SOURCE_DIR "/resources/help/guide.html"));
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    const qsizetype start = text.indexOf(QStringLiteral("name=\"keys\""));
    const QString keys = text.sliced(start, text.indexOf(QStringLiteral("</table>"), start) - start);
    QSet<QString> told;
    static const QRegularExpression firstCell(QStringLiteral("<tr><td>(.*?)</td>"));
    for (const QRegularExpressionMatch& cell : firstCell.globalMatch(keys))
        told << cell.captured(1);
    // Those of boxes and of the walk through a window are no second way to a button.
    QSet<QString> expected { QStringLiteral("Esc"), QStringLiteral("Tab, Shift+Tab"),
        QStringLiteral("F6, Shift+F6"), QStringLiteral("Enter") };
    for (const KeyRow& row : KeyTable)
        expected << QLatin1String(row.guide);
    EXPECT_EQ(told, expected);
}
