#include "app/ErrFrm.h"

#include "app/ApplicationState.h"
#include "app/ErrFrmBox.h"
#include "app/Hourglass.h"
#include "tests/testing/AccessFaults.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/xpcheckbox.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace {

class ErrFrmTest : public testing::Test {
protected:
    QTemporaryDir folder_;
    ApplicationState state_ { folder_.path(), folder_.path() };
    ErrFrmBox box_ { state_ };
    QWidget owner_;
    int shown_ = 0;

    /// Does this with the next message form that stands.
    void WhenShown(const std::function<void(ErrFrm&)>& act)
    {
        QTimer::singleShot(0, &owner_, [this, act] {
            auto* form = qobject_cast<ErrFrm*>(QApplication::activeModalWidget());
            ASSERT_TRUE(form);
            ++shown_;
            act(*form);
        });
    }
    static void PressEnd(ErrFrm& form)
    {
        QTest::mouseClick(form.findChild<QPushButton*>(QStringLiteral("CmdEnd")), Qt::LeftButton);
    }
    static xpcheckbox* Silence(ErrFrm& form)
    {
        return form.findChild<xpcheckbox*>(QStringLiteral("CheckSilence"));
    }
    static QString TextOf(ErrFrm& form)
    {
        return form.findChild<QLabel*>(QStringLiteral("LblMessage"))->text();
    }
    void ShowPlayerError()
    {
        box_.ShowPlayerError(&owner_, QStringLiteral("Error Abort"), QStringLiteral("text"));
    }
};

TEST_F(ErrFrmTest, ShowsTitleAndTextUntilTheButtonEndsIt)
{
    WhenShown([](ErrFrm& form) {
        EXPECT_TRUE(form.isModal());
        EXPECT_TRUE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_EQ(form.findChild<TitleStrip*>()->Title(), QStringLiteral("Error!"));
        EXPECT_EQ(TextOf(form), QStringLiteral("Error saving captured video frame."));
        EXPECT_FALSE(Silence(form)->isVisible());
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("Error!"), QStringLiteral("Error saving captured video frame."));
    EXPECT_EQ(shown_, 1);
    EXPECT_EQ(state_.MessageText, QStringLiteral("Error saving captured video frame."));
}

TEST_F(ErrFrmTest, LineBreaksStayAndUnshowableSignsAreReplaced)
{
    WhenShown([](ErrFrm& form) {
        EXPECT_EQ(TextOf(form), QStringLiteral("one\ntwo\uFFFD\uFFFD"));
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("About"), QStringLiteral("one\ntwo\x07") + QChar(0xDCE9));
}

TEST_F(ErrFrmTest, LongTextsWrapAndScrollOnTheScreen)
{
    WhenShown([](ErrFrm& form) {
        EXPECT_LE(form.height(), 600);
        EXPECT_LE(form.width(), 800);
        const auto* scroll = form.findChild<QScrollArea*>();
        EXPECT_GT(scroll->widget()->height(), scroll->viewport()->height());
        EXPECT_EQ(TextOf(form).remove(QChar(0x200B)), QString(20000, u'x'));
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("Error!"), QString(20000, u'x'));
}

TEST_F(ErrFrmTest, TheWholeOfAShortTextIsSeen)
{
    WhenShown([](ErrFrm& form) {
        const auto* scroll = form.findChild<QScrollArea*>();
        EXPECT_LE(scroll->widget()->height(), scroll->viewport()->height());
        EXPECT_LE(scroll->widget()->width(), scroll->viewport()->width());
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("Error!"),
        QStringLiteral("Capture Error. Restart video, then pause, then try to capture again."));
}

TEST_F(ErrFrmTest, TheMarkupOfATextIsShownAsItStands)
{
    WhenShown([](ErrFrm& form) {
        EXPECT_EQ(form.findChild<QLabel*>(QStringLiteral("LblMessage"))->textFormat(), Qt::PlainText);
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("Error!"), QStringLiteral("<b>name</b>"));
}

TEST_F(ErrFrmTest, TheCheckBoxIsOfferedForPlayerErrorsAndSilencesThem)
{
    WhenShown([](ErrFrm& form) {
        ASSERT_TRUE(Silence(form)->isVisible());
        QTest::mouseClick(Silence(form), Qt::LeftButton);
        PressEnd(form);
    });
    ShowPlayerError();
    EXPECT_EQ(shown_, 1);
    EXPECT_FALSE(state_.ShowPlayerErrors);
    ShowPlayerError();
    EXPECT_EQ(shown_, 1);
}

TEST_F(ErrFrmTest, WithoutTheCheckPlayerErrorsAreToldAgain)
{
    WhenShown(PressEnd);
    ShowPlayerError();
    EXPECT_TRUE(state_.ShowPlayerErrors);
    WhenShown(PressEnd);
    ShowPlayerError();
    EXPECT_EQ(shown_, 2);
}

TEST_F(ErrFrmTest, OnlyTheEndButtonSilences)
{
    WhenShown([](ErrFrm& form) {
        QTest::mouseClick(Silence(form), Qt::LeftButton);
        QTest::keyClick(&form, Qt::Key_Escape);
    });
    ShowPlayerError();
    EXPECT_TRUE(state_.ShowPlayerErrors);
}

TEST_F(ErrFrmTest, PlayerErrorsDoNotPileUp)
{
    WhenShown([this](ErrFrm& form) {
        ShowPlayerError();
        PressEnd(form);
    });
    ShowPlayerError();
    EXPECT_EQ(shown_, 1);
}

TEST_F(ErrFrmTest, ThePointerIsNormalMeanwhile)
{
    const Hourglass hourglass;
    WhenShown([](ErrFrm& form) {
        EXPECT_EQ(CurrentPointer(), Pointer::Normal);
        PressEnd(form);
    });
    box_.Show(&owner_, QStringLiteral("Error!"), QStringLiteral("text"));
    EXPECT_EQ(CurrentPointer(), Pointer::Busy);
}

TEST_F(ErrFrmTest, TheOwnerMayGoWhileTheMessageStands)
{
    auto* owner = new QWidget;
    WhenShown([owner](ErrFrm&) { delete owner; });
    box_.ShowPlayerError(owner, QStringLiteral("Error Abort"), QStringLiteral("text"));
    EXPECT_TRUE(state_.ShowPlayerErrors);
    EXPECT_EQ(shown_, 1);
}

TEST_F(ErrFrmTest, EveryControlHasANameAndIsReachedByKeys)
{
    WhenShown([](ErrFrm& form) {
        EXPECT_EQ(AccessFaults(form), "");
        PressEnd(form);
    });
    box_.ShowPlayerError(&owner_, QStringLiteral("Error!"), QString(20000, u'x'));
}

TEST_F(ErrFrmTest, ReturnEndsIt)
{
    WhenShown([](ErrFrm& form) { QTest::keyClick(&form, Qt::Key_Return); });
    box_.Show(nullptr, QStringLiteral("Error!"), QStringLiteral("text"));
    EXPECT_EQ(shown_, 1);
}

} // namespace
