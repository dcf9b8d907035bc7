// What only a real pointer and a window manager show: drags of whole windows, popups, a pointer that leaves
// unseen.
#include "tests/testing/RealPointer.h"
#include "toolkit/Button_XP.h"
#include "toolkit/ChildForm.h"
#include "toolkit/PopupMenu.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/WindowMessage.h"
#include "toolkit/cSubclass.h"

#include <QMdiArea>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace RealPointer;

namespace {

/// Writes down the messages that reach a form.
class MessageLog : public iSubclass {
public:
    explicit MessageLog(QWidget& form)
    {
        hook_.Subclass(form, *this);
        for (const qint32 message : { Message::Moving, Message::Sizing, Message::EndOfSizeOrMove })
            hook_.AddMsg(message, cSubclass::Before);
    }
    QList<qint32> told;

private:
    void iSubclass_Proc(bool, bool&, qint32&, QWidget*&, qint32& uMsg, qintptr&, qintptr&) override
    {
        told << uMsg;
    }

    cSubclass hook_;
};

} // namespace

TEST(OnScreen, AWindowOfItsOwnIsMovedByItsStrip)
{
    ChildForm form;
    form.SetBody(new QWidget);
    form.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(form));
    const QPoint target = PlaceOnScreen(form) + QPoint(150, 100);
    const QPoint press = form.Head().mapToGlobal(QPoint(60, 14));
    EXPECT_TRUE(DragUntil(press, QPoint(150, 100), [&] { return PlaceOnScreen(form) == target; }));
    EXPECT_TRUE(Eventually([&] { return form.pos() == target; }));
    EXPECT_EQ(form.size(), QSize(300, 200));
}

TEST(OnScreen, AWindowOfItsOwnIsSizedByItsGrip)
{
    ChildForm form;
    form.SetBody(new QWidget);
    form.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(form));
    const QPoint press = form.Grip().mapToGlobal(QPoint(8, 8));
    EXPECT_TRUE(DragUntil(press, QPoint(90, 60), [&] { return form.size() == QSize(390, 260); }));
}

TEST(OnScreen, ADragByTheWindowManagerIsToldAtItsStartAndItsEnd)
{
    ChildForm form;
    form.SetBody(new QWidget);
    form.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(form));
    for (const bool isMove : { true, false }) {
        const MessageLog log(form);
        const QPoint press =
            isMove ? form.Head().mapToGlobal(QPoint(60, 14)) : form.Grip().mapToGlobal(QPoint(8, 8));
        const QRect before = form.geometry();
        QList<qint32> duringDrag;
        EXPECT_TRUE(DragUntil(press, QPoint(70, 50), [&] {
            duringDrag = log.told;
            return isMove ? PlaceOnScreen(form) == before.topLeft() + QPoint(70, 50)
                          : form.size() == before.size() + QSize(70, 50);
        }));
        const qint32 start = isMove ? Message::Moving : Message::Sizing;
        EXPECT_EQ(duringDrag, QList<qint32> { start });
        EXPECT_TRUE(Eventually([&] {
            PointAt(QCursor::pos() + QPoint(1, 0));
            return log.told == QList<qint32> { start, Message::EndOfSizeOrMove };
        })) << log.told.size();
    }
}

TEST(OnScreen, AWindowOfItsOwnFillsTheScreenAndComesBack)
{
    ChildForm form;
    form.SetBody(new QWidget);
    form.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(form));
    form.ToggleMaximize();
    EXPECT_TRUE(Eventually(
        [&] { return form.width() > 1000 && form.CurrentShape() == ChildForm::Shape::Maximized; }));
    form.ToggleMaximize();
    EXPECT_TRUE(Eventually([&] { return form.size() == QSize(300, 200); }));
}

TEST(OnScreen, AChildIsMovedByItsStripAndSizedByItsGrip)
{
    QMdiArea area;
    area.resize(900, 700);
    area.move(100, 100);
    auto* form = new ChildForm;
    form->SetBody(new QWidget);
    area.addSubWindow(form);
    ASSERT_TRUE(ShowActive(area));
    form->setGeometry(50, 50, 300, 200);
    const QPoint press = form->Head().mapToGlobal(QPoint(60, 14));
    EXPECT_TRUE(DragUntil(press, QPoint(100, 80), [&] { return form->pos() == QPoint(150, 130); }));
    const QPoint corner = form->Grip().mapToGlobal(QPoint(8, 8));
    EXPECT_TRUE(DragUntil(corner, QPoint(60, 40), [&] { return form->size() == QSize(360, 240); }));
}

TEST(OnScreen, AButtonRestsWhenThePointerHasLeftItsWindow)
{
    QWidget form;
    form.setGeometry(200, 200, 300, 200);
    Front button(&form);
    button.setGeometry(100, 100, 28, 28);
    ASSERT_TRUE(ShowActive(form));
    PointAt(button.mapToGlobal(QPoint(10, 10)));
    ASSERT_TRUE(Eventually([&] { return button.ShownState() == StripControl::State::Hover; }));
    QSignalSpy leaves(&button, &StripControl::Leave);
    PointAt(form.mapToGlobal(QPoint(900, 600)));
    EXPECT_TRUE(Eventually([&] { return button.ShownState() == StripControl::State::Rest; }));
    EXPECT_EQ(leaves.size(), 1);
}

TEST(OnScreen, APressOutsideClosesThePopup)
{
    QWidget form;
    form.setGeometry(200, 200, 500, 400);
    ASSERT_TRUE(ShowActive(form));
    PopupMenu menu(&form);
    menu.SetItems({ QStringLiteral("  Save"), QStringLiteral("  Help") });
    menu.Open(form.mapToGlobal(QPoint(50, 50)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    EXPECT_EQ(menu.pos(), form.mapToGlobal(QPoint(50, 50)));
    PointAt(form.mapToGlobal(QPoint(400, 300)));
    Pointer({ "click", "1" });
    EXPECT_TRUE(Eventually([&] { return !menu.isVisible(); }));
}

TEST(OnScreen, APushButtonHeldWhileThePointerSlidesOffLooksUpAndIsNotClicked)
{
    QWidget window;
    Button_XP button(&window);
    button.SetCaption(QStringLiteral("Accept"));
    button.setGeometry(20, 20, 100, 40);
    window.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(window));
    QSignalSpy clicks(&button, &Button_XP::Click);
    const QPoint on = button.mapToGlobal(button.rect().center());
    const QPoint beside = window.mapToGlobal(QPoint(250, 150));

    PointAt(on);
    ASSERT_TRUE(Eventually([&] { return button.Flags().over; }));
    Pointer({ "mousedown", "1" });
    ASSERT_TRUE(Eventually([&] { return button.ShownFlags().pressed; }));
    PointAt(beside);
    EXPECT_TRUE(Eventually([&] { return !button.Flags().over && !button.ShownFlags().pressed; }));
    EXPECT_TRUE(button.Flags().pressed);
    Pointer({ "mouseup", "1" });
    EXPECT_TRUE(Eventually([&] { return !button.Flags().pressed; }));
    EXPECT_EQ(clicks.size(), 0);

    PointAt(on);
    Pointer({ "click", "1" });
    EXPECT_TRUE(Eventually([&] { return clicks.size() == 1; }));
}

TEST(OnScreen, APushButtonFindsThatAWindowHasOpenedOverIt)
{
    QWidget window;
    Button_XP button(&window);
    button.setGeometry(20, 20, 100, 40);
    window.setGeometry(200, 200, 300, 200);
    ASSERT_TRUE(ShowActive(window));
    PointAt(window.mapToGlobal(QPoint(250, 150)));
    PointAt(button.mapToGlobal(button.rect().center()));
    ASSERT_TRUE(Eventually([&] { return button.Flags().over; }));
    QWidget cover(nullptr, Qt::Popup);
    cover.setGeometry(window.frameGeometry());
    cover.show();
    EXPECT_TRUE(Eventually([&] { return !button.Flags().over; }));
}
