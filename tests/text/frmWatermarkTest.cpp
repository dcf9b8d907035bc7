#include "text/frmWatermark.h"

#include "app/Hourglass.h"
#include "tests/testing/AccessFaults.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/RunningDialog.h"
#include "toolkit/TAQbutton.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString InForce = QStringLiteral("In force");

class frmWatermarkTest : public testing::Test {
protected:
    FakeFrame frame;
    ApplicationState& state = frame.state;
    std::unique_ptr<frmWatermark> form;

    void SetUp() override
    {
        state.sFontText = InForce;
        Begin();
    }
    void Begin()
    {
        form = std::make_unique<frmWatermark>(frame, &frame.window);
        form->show();
    }
    QLineEdit* Box() { return form->findChild<QLineEdit*>(QStringLiteral("edtURL")); }
    TAQbutton* Ok() { return form->findChild<TAQbutton*>(QStringLiteral("CmdOK")); }
    QWidget* Close() { return form->findChild<QWidget*>(QStringLiteral("Cmds(0)")); }
    QString Status() { return frame.status.value(StatusLabel::Operation); }
    void Save(const QString& text)
    {
        Box()->setText(text);
        QTest::mouseClick(Ok(), Qt::LeftButton);
    }
};

} // namespace

TEST_F(frmWatermarkTest, TheWordsAreTakenUntrimmed)
{
    Save(QStringLiteral("  At sea  "));
    EXPECT_EQ(state.sFontText, QStringLiteral("  At sea  "));
    EXPECT_EQ(Status(), QStringLiteral("Enter watermark text."));
    EXPECT_FALSE(frame.alerts.contains(StatusLabel::Operation));
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(frmWatermarkTest, TheWordsAreNotStored)
{
    Save(QStringLiteral("At sea"));
    state.Reload(Key::sFontText);
    EXPECT_EQ(state.sFontText, QStringLiteral("This text is using the Arial font."));
}

TEST_F(frmWatermarkTest, SavedBlankTheTextInForceStays)
{
    QTest::mouseClick(Ok(), Qt::LeftButton);
    EXPECT_EQ(state.sFontText, InForce);
    EXPECT_EQ(Status(), QStringLiteral("Cancelled"));
    EXPECT_TRUE(frame.alerts.contains(StatusLabel::Operation));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(frmWatermarkTest, OnceTypedInTheButtonNeedsWords)
{
    EXPECT_TRUE(Ok()->isEnabled());
    QTest::keyClicks(Box(), QStringLiteral("  "));
    EXPECT_FALSE(Ok()->isEnabled());
    QTest::keyClicks(Box(), QStringLiteral("a"));
    EXPECT_TRUE(Ok()->isEnabled());
    Box()->clear();
    EXPECT_FALSE(Ok()->isEnabled());
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
}

TEST_F(frmWatermarkTest, EnterSaves)
{
    QTest::keyClicks(Box(), QStringLiteral("At sea"));
    QTest::keyClick(Box(), Qt::Key_Return);
    EXPECT_EQ(state.sFontText, QStringLiteral("At sea"));
    EXPECT_FALSE(form->isVisible());
}

TEST_F(frmWatermarkTest, ClosedItChangesNothing)
{
    Box()->setText(QStringLiteral("At sea"));
    QTest::mouseClick(Close(), Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_EQ(state.sFontText, InForce);
    EXPECT_TRUE(frame.status.isEmpty());
    Begin();
    QTest::keyClick(Box(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(frame.status.isEmpty());
}

TEST_F(frmWatermarkTest, ItBeginsEmptyAndHintsAtTheTextInForce)
{
    EXPECT_EQ(Box()->text(), QString());
    EXPECT_EQ(Box()->placeholderText(), InForce);
}

TEST_F(frmWatermarkTest, TheControlsBearTheirTextsAndTips)
{
    EXPECT_EQ(Ok()->Caption(), QStringLiteral("Save"));
    EXPECT_EQ(Ok()->toolTip(), QStringLiteral("Save Watermark."));
    EXPECT_EQ(Close()->toolTip(), QStringLiteral("Cancel and Close. "));
    EXPECT_EQ(Box()->toolTip(), QStringLiteral("Enter the wartermark text to place on captures."));
    state.ToolTip = false;
    Begin();
    EXPECT_EQ(Box()->toolTip(), QString());
}

TEST_F(frmWatermarkTest, NobodyIsKeptOut)
{
    EXPECT_EQ(AccessFaults(*form), "");
}

TEST_F(frmWatermarkTest, TheQuestionIsAskedOverTheFrameWithTheNormalPointer)
{
    form.reset();
    WhenOpen<frmWatermark>([this](frmWatermark& asked) {
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
        EXPECT_EQ(asked.parentWidget(), &frame.window);
        EXPECT_TRUE(asked.isModal());
        asked.findChild<QLineEdit*>()->setText(QStringLiteral("At sea"));
        QTest::mouseClick(asked.findChild<TAQbutton*>(), Qt::LeftButton);
    });
    const Hourglass waiting;
    AskUserText(frame);
    EXPECT_EQ(state.sFontText, QStringLiteral("At sea"));
    EXPECT_EQ(CurrentPointer(), Pointer::Busy);
}
