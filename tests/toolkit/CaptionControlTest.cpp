#include "toolkit/ChildForm.h"
#include "toolkit/Style.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

TEST(xpcheckbox, AClickTurnsOneIntoZeroZeroIntoTwoAndTwoIntoZero)
{
    xpcheckbox box;
    box.show();
    box.SetValue(1);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 0);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 2);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 0);
}

TEST(xpcheckbox, AClickHandlerReadsTheValueFromBefore)
{
    xpcheckbox box;
    box.show();
    QList<int> seen;
    QObject::connect(&box, &StripControl::Click, &box, [&] { seen << box.Value(); });
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_EQ(seen, QList<int>({ 0, 2 }));
    EXPECT_EQ(box.Value(), 0);
}

TEST(xpcheckbox, AValueWrittenByTheClickHandlerIsWhatTheClickChanges)
{
    xpcheckbox box;
    box.show();
    QObject::connect(&box, &StripControl::Click, &box, [&] { box.SetValue(2); });
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.Value(), 0);
}

TEST(xpcheckbox, APressShowsTheCellOfItsValue)
{
    xpcheckbox box;
    box.show();
    for (const auto& [value, cell] : { std::pair(0, 2), std::pair(1, 6), std::pair(2, 10) }) {
        box.SetValue(value);
        QTest::mousePress(&box, Qt::LeftButton);
        EXPECT_EQ(box.Cell(), cell);
        QTest::mouseRelease(&box, Qt::LeftButton);
    }
}

TEST(xpcheckbox, ADisabledBoxRelaysThePressButKeepsItsCellAndValue)
{
    xpcheckbox box;
    box.show();
    box.SetValue(2);
    box.setEnabled(false);
    const int before = box.Cell();
    QSignalSpy downs(&box, &StripControl::MouseDown);
    QSignalSpy clicks(&box, &StripControl::Click);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), box.mapToGlobal(QPointF(5, 5)), Qt::LeftButton,
        Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &press);
    EXPECT_EQ(downs.size(), 1);
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_EQ(box.Cell(), before);
    EXPECT_EQ(box.Value(), 2);
}

TEST(xpcheckbox, ANewBoxIsClearEnabledAndCaptionedByItsName)
{
    xpcheckbox box;
    box.setObjectName(QStringLiteral("xpcheckbox1"));
    EXPECT_EQ(box.Caption(), QStringLiteral("xpcheckbox1"));
    EXPECT_EQ(box.Value(), 0);
    EXPECT_TRUE(box.isEnabled());
    box.SetCaption(QString());
    box.setObjectName(QStringLiteral("other"));
    EXPECT_EQ(box.Caption(), QString());
}

TEST(xpcheckbox, AValueThatIsNoneLeavesItAsItStood)
{
    xpcheckbox box;
    box.SetValue(2);
    for (const int none : { -1, 3 }) {
        box.SetValue(none);
        EXPECT_EQ(box.Value(), 2);
    }
}

TEST(xpcheckbox, TheThreeValuesLookDifferent)
{
    xpcheckbox box;
    QList<QImage> seen;
    for (int value = 0; value <= 2; ++value) {
        box.SetValue(value);
        const QImage look = box.grab().toImage();
        EXPECT_FALSE(seen.contains(look));
        seen << look;
    }
}

TEST(xpcheckbox, SettingTheValueRaisesNothing)
{
    xpcheckbox box;
    QSignalSpy clicks(&box, &StripControl::Click);
    box.SetValue(2);
    EXPECT_EQ(clicks.size(), 0);
}

TEST(xpcheckbox, ACaptionOfSeveralLinesHasRoomForAll)
{
    xpcheckbox box;
    box.SetCaption(QStringLiteral("One\nTwo\nThree"));
    EXPECT_GE(box.sizeHint().height(), 3 * QFontMetrics(box.font()).height());
}

TEST(xpcheckbox, AnAmpersandOfItsCaptionIsNoKey)
{
    xpcheckbox box;
    box.SetCaption(QStringLiteral("Print in B&W"));
    box.show();
    box.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(&box, Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(box.Value(), xpcheckbox::Clear);
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name), QStringLiteral("Print in B&W"));
}

namespace {

/// Two groups on two pages of one form.
struct TwoGroups {
    TwoGroups()
    {
        auto* first = new QWidget;
        auto* second = new QWidget;
        pages.addTab(first, QStringLiteral("1"));
        pages.addTab(second, QStringLiteral("2"));
        a = new xpradiobutton(first);
        b = new xpradiobutton(first);
        c = new xpradiobutton(second);
        pages.show();
    }
    QTabWidget pages;
    xpradiobutton* a;
    xpradiobutton* b;
    xpradiobutton* c;
};

} // namespace

TEST(xpradiobutton, AClickClearsThoseOfAllOtherGroupsOnTheForm)
{
    TwoGroups form;
    form.b->SetValue(true);
    form.c->SetValue(true);
    QTest::mouseClick(form.a, Qt::LeftButton);
    EXPECT_TRUE(form.a->Value());
    EXPECT_FALSE(form.b->Value());
    EXPECT_FALSE(form.c->Value());
}

TEST(xpradiobutton, TheClickComesBeforeAnyValueChanges)
{
    TwoGroups form;
    form.c->SetValue(true);
    QList<bool> seen;
    QObject::connect(
        form.a, &StripControl::Click, form.a, [&] { seen << form.a->Value() << form.c->Value(); });
    QTest::mouseClick(form.a, Qt::LeftButton);
    EXPECT_EQ(seen, QList<bool>({ false, true }));
    EXPECT_TRUE(form.a->Value());
}

TEST(xpradiobutton, SettingTheValueStoresItAndClearsNoOther)
{
    TwoGroups form;
    QSignalSpy clicks(form.a, &StripControl::Click);
    form.a->SetValue(true);
    form.b->SetValue(true);
    EXPECT_TRUE(form.a->Value());
    EXPECT_TRUE(form.b->Value());
    EXPECT_EQ(clicks.size(), 0);
}

TEST(xpradiobutton, ClickingASetButtonLeavesItSet)
{
    TwoGroups form;
    form.a->SetValue(true);
    QTest::mouseClick(form.a, Qt::LeftButton);
    EXPECT_TRUE(form.a->Value());
}

TEST(xpradiobutton, OtherFormsInTheSameWindowAreLeftAlone)
{
    QWidget window;
    auto* mine = new ChildForm(&window);
    auto* theirs = new ChildForm(&window);
    auto* clicked = new xpradiobutton;
    auto* other = new xpradiobutton;
    mine->SetBody(clicked);
    theirs->SetBody(other);
    other->SetValue(true);
    window.show();
    QTest::mouseClick(clicked, Qt::LeftButton);
    EXPECT_TRUE(clicked->Value());
    EXPECT_TRUE(other->Value());
}

TEST(xpradiobutton, ItsColoursAreTheStylesUntilOthersAreSet)
{
    xpradiobutton button;
    button.resize(60, 24);
    EXPECT_EQ(button.ForeColor(), StyleColor(Token::Text));
    EXPECT_FALSE(button.BackColor().isValid());
    button.SetBackColor(QColor(1, 2, 3));
    EXPECT_EQ(button.grab().toImage().pixelColor(59, 0), QColor(1, 2, 3));
}

namespace {

QAccessibleInterface* SeenOf(QWidget& control)
{
    return QAccessible::queryAccessibleInterface(&control);
}

} // namespace

TEST(CheckAccess, ACheckBoxIsKnownAsOneByItsCaptionAndValue)
{
    xpcheckbox box;
    box.SetCaption(QStringLiteral("Whole frames\n( slower )"));
    EXPECT_EQ(SeenOf(box)->role(), QAccessible::CheckBox);
    EXPECT_EQ(SeenOf(box)->text(QAccessible::Name), QStringLiteral("Whole frames ( slower )"));
    EXPECT_TRUE(SeenOf(box)->state().checkable);
    EXPECT_FALSE(SeenOf(box)->state().checked);
    box.SetValue(xpcheckbox::Grey);
    EXPECT_TRUE(SeenOf(box)->state().checkStateMixed);
    box.SetValue(xpcheckbox::Set);
    EXPECT_TRUE(SeenOf(box)->state().checked);
    EXPECT_FALSE(SeenOf(box)->state().checkStateMixed);
    box.setAccessibleName(QStringLiteral("Shadows"));
    EXPECT_EQ(SeenOf(box)->text(QAccessible::Name), QStringLiteral("Shadows"));
}

TEST(CheckAccess, ARadioButtonIsKnownAsOneByItsValue)
{
    xpradiobutton radio;
    EXPECT_EQ(SeenOf(radio)->role(), QAccessible::RadioButton);
    EXPECT_FALSE(SeenOf(radio)->state().checked);
    radio.SetValue(true);
    EXPECT_TRUE(SeenOf(radio)->state().checked);
}

TEST(CheckAccess, AnAidsToggleIsAClick)
{
    xpcheckbox box;
    QSignalSpy clicks(&box, &StripControl::Click);
    QAccessibleActionInterface* actions = SeenOf(box)->actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(box.Value(), xpcheckbox::Set);
    box.setEnabled(false);
    EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

TEST(xpradiobutton, ANewOneIsEnabledClearAndCaptionedByItsName)
{
    xpradiobutton radio;
    radio.setObjectName(QStringLiteral("xpradiobutton1"));
    EXPECT_EQ(radio.Caption(), QStringLiteral("xpradiobutton1"));
    EXPECT_FALSE(radio.Value());
    EXPECT_TRUE(radio.isEnabled());
}

TEST(CaptionControl, TheTimerFindsThatThePointerHasLeft)
{
    QWidget form;
    form.resize(300, 200);
    for (CaptionControl* control : { static_cast<CaptionControl*>(new xpcheckbox(&form)),
             static_cast<CaptionControl*>(new xpradiobutton(&form)) }) {
        control->setGeometry(50, 50, 100, 26);
        form.show();
        control->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
        QSignalSpy leaves(control, &StripControl::Leave);
        QTest::mouseMove(control, control->rect().center());
        ASSERT_TRUE(QTest::qWaitFor([&] { return control->ShownState() == StripControl::State::Hover; }));
        QCursor::setPos(form.mapToGlobal(QPoint(250, 150)));
        EXPECT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
        EXPECT_EQ(control->ShownState(), StripControl::State::Rest);
        control->hide();
    }
}
