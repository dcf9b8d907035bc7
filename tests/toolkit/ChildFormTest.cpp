#include "toolkit/ChildForm.h"

#include "toolkit/ElidedLabel.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/StripButton.h"
#include "toolkit/TitleStrip.h"

#include <QMdiArea>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

void Drag(QWidget* from, QPoint place, QPoint by, Qt::MouseButton button = Qt::LeftButton)
{
    const auto send = [&](QEvent::Type type, QPointF screen, Qt::MouseButtons held) {
        QMouseEvent event(type, from->mapFromGlobal(screen), screen, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(from, &event);
    };
    const QPointF start = from->mapToGlobal(QPointF(place));
    send(QEvent::MouseButtonPress, start, button);
    send(QEvent::MouseMove, start + QPointF(by) / 2, button);
    send(QEvent::MouseMove, start + by, button);
    send(QEvent::MouseButtonRelease, start + by, Qt::NoButton);
    // The drag is over: this must not be followed.
    send(QEvent::MouseMove, start + by * 3, Qt::NoButton);
}

struct Area {
    Area()
    {
        area.resize(700, 500);
        area.setFrameShape(QFrame::NoFrame);
        area.show();
        area.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&area));
    }
    ChildForm* Add(const QString& title, QRect place)
    {
        auto* form = new ChildForm;
        form->SetTitle(title);
        form->SetBody(new QWidget);
        area.addSubWindow(form);
        form->show();
        form->setGeometry(place);
        return form;
    }
    QMdiArea area;
};

} // namespace

TEST(ChildForm, TheStripStandsOnTopTheBodyFillsTheRestInsideAOnePixelEdge)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("Video Window"), QRect(20, 20, 300, 200));
    QCoreApplication::processEvents();
    EXPECT_EQ(form->Head().mapTo(form, QPoint(0, 0)), QPoint(1, 1));
    EXPECT_EQ(form->Head().size(), QSize(298, 28));
    EXPECT_EQ(form->Body()->size(), QSize(298, 200 - form->FrameSize().height()));
    EXPECT_EQ(form->FrameSize(), QSize(2, 30));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Video Window"));
}

TEST(ChildForm, ADragOfTheStripMovesItInsideTheArea)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    Drag(&form->Head(), QPoint(50, 10), QPoint(40, 25));
    EXPECT_EQ(form->geometry(), QRect(60, 45, 300, 200));
}

TEST(ChildForm, ItsHeadCannotBeDraggedOutOfReach)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    for (const QPoint by : { QPoint(5000, 5000), QPoint(-5000, -5000) }) {
        Drag(&form->Head(), QPoint(50, 10), by);
        const QRect head(form->pos(), QSize(form->width(), TitleStrip::Height));
        const QRect inside = head & QRect(QPoint(0, 0), stage.area.viewport()->size());
        EXPECT_GE(inside.width(), 64);
        EXPECT_EQ(inside.height(), TitleStrip::Height);
    }
}

TEST(ChildForm, TheGripSizesItWithTheLeftButtonOnlyAndNotBelowTheLeastSize)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    form->setMinimumSize(120, 90);
    Drag(&form->Grip(), QPoint(8, 8), QPoint(50, 30));
    EXPECT_EQ(form->geometry(), QRect(20, 20, 350, 230));
    Drag(&form->Grip(), QPoint(8, 8), QPoint(50, 30), Qt::RightButton);
    EXPECT_EQ(form->size(), QSize(350, 230));
    Drag(&form->Grip(), QPoint(8, 8), QPoint(-900, -900));
    EXPECT_EQ(form->geometry(), QRect(20, 20, 120, 90));
}

TEST(ChildForm, TheGripStaysInTheLowerRightCorner)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    EXPECT_EQ(form->Grip().geometry().bottomRight(), QPoint(298, 198));
    form->resize(200, 150);
    EXPECT_EQ(form->Grip().geometry().bottomRight(), QPoint(198, 148));
}

TEST(ChildForm, MaximizedItFillsTheAreaFollowsItAndComesBackToItsPlace)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    QSignalSpy changes(form, &ChildForm::ShapeChanged);
    form->Maximize();
    EXPECT_EQ(form->geometry(), stage.area.viewport()->rect());
    EXPECT_FALSE(form->Grip().isVisible());
    stage.area.resize(600, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->geometry(), stage.area.viewport()->rect());
    Drag(&form->Head(), QPoint(50, 10), QPoint(40, 25));
    EXPECT_EQ(form->pos(), QPoint(0, 0));
    form->ToggleMaximize();
    EXPECT_EQ(form->geometry(), QRect(20, 20, 300, 200));
    EXPECT_TRUE(form->Grip().isVisible());
    EXPECT_EQ(changes.size(), 2);
}

TEST(ChildForm, MinimizedItIsAStripAtTheBottomOfTheArea)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    form->setMinimumSize(54, 54);
    form->ToggleMinimize();
    EXPECT_EQ(form->height(), 30);
    EXPECT_GE(form->y(), stage.area.viewport()->height() - 40);
    EXPECT_FALSE(form->Body()->isVisible());
    form->Restore();
    EXPECT_EQ(form->geometry(), QRect(20, 20, 300, 200));
    EXPECT_EQ(form->minimumSize(), QSize(54, 54));
    EXPECT_TRUE(form->Body()->isVisible());
}

TEST(ChildForm, MinimizedStripsDoNotCoverEachOtherAndAFreedPlaceIsTakenAgain)
{
    Area stage;
    QList<ChildForm*> forms;
    for (int i = 0; i < 5; ++i) {
        forms << stage.Add(QString::number(i), QRect(20, 20, 300, 200));
        forms.last()->ToggleMinimize();
    }
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < i; ++j)
            EXPECT_FALSE(forms[i]->geometry().intersects(forms[j]->geometry())) << i << " " << j;
    }
    const QRect freed = forms[1]->geometry();
    forms[1]->Restore();
    forms[1]->ToggleMinimize();
    EXPECT_EQ(forms[1]->geometry(), freed);
}

TEST(ChildForm, ADoubleClickOnTheMinimizedStripRestoresIt)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    form->ToggleMinimize();
    QTest::mouseDClick(form->Head().Label(), Qt::LeftButton);
    EXPECT_EQ(form->CurrentShape(), ChildForm::Shape::Normal);
    QTest::mouseDClick(form->Head().Label(), Qt::LeftButton);
    EXPECT_EQ(form->CurrentShape(), ChildForm::Shape::Maximized);
}

TEST(ChildForm, MaximizingAMinimizedFormKeepsTheNormalPlace)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    form->ToggleMinimize();
    form->Maximize();
    EXPECT_TRUE(form->Body()->isVisible());
    form->Restore();
    EXPECT_EQ(form->geometry(), QRect(20, 20, 300, 200));
}

TEST(ChildForm, TheActiveFormIsTheOneThatWasShownLastAndItsTitleIsBrighter)
{
    Area stage;
    ChildForm* first = stage.Add(QStringLiteral("first"), QRect(20, 20, 300, 200));
    ChildForm* second = stage.Add(QStringLiteral("second"), QRect(60, 60, 300, 200));
    EXPECT_EQ(stage.area.activeSubWindow(), second);
    EXPECT_TRUE(second->IsActive());
    EXPECT_TRUE(second->Head().IsActive());
    EXPECT_FALSE(first->IsActive());
    EXPECT_FALSE(first->Head().IsActive());
}

TEST(ChildForm, APressOnAnyPartMakesItActive)
{
    Area stage;
    ChildForm* first = stage.Add(QStringLiteral("first"), QRect(20, 20, 300, 200));
    stage.Add(QStringLiteral("second"), QRect(360, 60, 300, 200));
    QSignalSpy activations(first, &ChildForm::Activated);
    QTest::mousePress(first->Body(), Qt::LeftButton);
    EXPECT_EQ(stage.area.activeSubWindow(), first);
    EXPECT_TRUE(first->IsActive());
    EXPECT_EQ(activations.size(), 1);
}

TEST(ChildForm, SendToBackPutsItBehindAndMakesTheNextOneActive)
{
    Area stage;
    ChildForm* first = stage.Add(QStringLiteral("first"), QRect(20, 20, 300, 200));
    ChildForm* second = stage.Add(QStringLiteral("second"), QRect(40, 40, 300, 200));
    ChildForm* third = stage.Add(QStringLiteral("third"), QRect(60, 60, 300, 200));
    third->SendToBack();
    EXPECT_EQ(stage.area.activeSubWindow(), second);
    second->SendToBack();
    EXPECT_EQ(stage.area.activeSubWindow(), first);
    first->SendToBack();
    EXPECT_EQ(stage.area.activeSubWindow(), third);
    EXPECT_EQ(stage.area.subWindowList(QMdiArea::StackingOrder).first(), first);
}

TEST(ChildForm, SendToBackOfTheOnlyFormLeavesItActive)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("only"), QRect(20, 20, 300, 200));
    form->SendToBack();
    EXPECT_EQ(stage.area.activeSubWindow(), form);
}

TEST(ChildForm, BringToFrontRaisesAndActivates)
{
    Area stage;
    ChildForm* first = stage.Add(QStringLiteral("first"), QRect(20, 20, 300, 200));
    stage.Add(QStringLiteral("second"), QRect(40, 40, 300, 200));
    first->BringToFront();
    EXPECT_EQ(stage.area.activeSubWindow(), first);
    EXPECT_EQ(stage.area.subWindowList(QMdiArea::StackingOrder).last(), first);
}

TEST(ChildForm, ClosingTheActiveFormMakesAnotherActive)
{
    Area stage;
    ChildForm* first = stage.Add(QStringLiteral("first"), QRect(20, 20, 300, 200));
    ChildForm* second = stage.Add(QStringLiteral("second"), QRect(40, 40, 300, 200));
    second->setAttribute(Qt::WA_DeleteOnClose);
    second->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.area.subWindowList().size() == 1; }));
    EXPECT_EQ(stage.area.activeSubWindow(), first);
}

TEST(ChildForm, ItsButtonsAreReachedByKeyboard)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("a"), QRect(20, 20, 300, 200));
    auto* close = new smallXPbuttons;
    form->Head().AddButton(close);
    close->show();
    QSignalSpy clicks(close, &StripControl::Click);
    form->setFocus();
    for (int presses = 0; presses < 5 && !close->hasFocus(); ++presses)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(close->hasFocus());
    QTest::keyClick(close, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 1);
}

TEST(ChildForm, InsideAnyParentItMovesAndIsActivatedWithoutAnArea)
{
    QWidget parent;
    parent.resize(500, 400);
    auto* first = new ChildForm(&parent);
    auto* second = new ChildForm(&parent);
    first->setGeometry(10, 10, 200, 150);
    second->setGeometry(100, 100, 200, 150);
    parent.show();
    Drag(&first->Head(), QPoint(50, 10), QPoint(20, 15));
    EXPECT_EQ(first->pos(), QPoint(30, 25));
    EXPECT_TRUE(first->IsActive());
    second->BringToFront();
    EXPECT_FALSE(first->IsActive());
    first->Maximize();
    EXPECT_EQ(first->geometry(), parent.rect());
}

TEST(ChildForm, AloneItIsAFramelessWindow)
{
    ChildForm form;
    form.SetTitle(QStringLiteral("Tools"));
    form.SetBody(new QWidget);
    form.resize(300, 200);
    form.show();
    EXPECT_TRUE(form.isWindow());
    EXPECT_TRUE(form.windowFlags() & Qt::FramelessWindowHint);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_TRUE(form.IsActive());
    form.Maximize();
    EXPECT_EQ(form.CurrentShape(), ChildForm::Shape::Maximized);
    form.Restore();
    EXPECT_EQ(form.CurrentShape(), ChildForm::Shape::Normal);
}

TEST(ChildForm, MinimizingAMinimizedFormRestoresIt)
{
    Area stage;
    ChildForm* form = stage.Add(QStringLiteral("Video List"), QRect(20, 30, 300, 200));
    form->ToggleMinimize();
    ASSERT_EQ(form->CurrentShape(), ChildForm::Shape::Minimized);
    form->ToggleMinimize();
    EXPECT_EQ(form->CurrentShape(), ChildForm::Shape::Normal);
    EXPECT_EQ(form->geometry(), QRect(20, 30, 300, 200));
    EXPECT_TRUE(form->Body()->isVisible());
}
