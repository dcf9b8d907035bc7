#include "toolkit/StripButton.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

/// A button on a form that leaves room beside it, with the pointer out of the way.
struct OnForm {
    explicit OnForm(StripButton* made)
        : button(made)
    {
        form.resize(300, 200);
        button->setParent(&form);
        button->setGeometry(50, 50, 28, 28);
        form.show();
        QCursor::setPos(form.mapToGlobal(QPoint(250, 150)));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
    void PutPointerInside()
    {
        QCursor::setPos(button->mapToGlobal(button->rect().center()));
        QTest::mouseMove(button, button->rect().center());
        QCoreApplication::processEvents();
    }
    /// The pointer goes without the button being told, as when another window opens over it.
    void TakePointerAwayUnseen() { QCursor::setPos(form.mapToGlobal(QPoint(250, 150))); }

    QWidget form;
    StripButton* button;
};

struct Member {
    const char* name;
    std::unique_ptr<StripButton> button;
    int maxValue;
};

std::vector<Member> Family()
{
    std::vector<Member> family;
    family.push_back({ "xptopbuttons", std::make_unique<xptopbuttons>(), 3 });
    family.push_back({ "smallXPbuttons", std::make_unique<smallXPbuttons>(), 10 });
    family.push_back({ "Videobuttons", std::make_unique<Videobuttons>(), 3 });
    family.push_back({ "VideoEditButtons", std::make_unique<VideoEditButtons>(), 5 });
    family.push_back({ "ToolButtons", std::make_unique<ToolButtons>(), 5 });
    return family;
}

} // namespace

TEST(StripButton, ValuesInsideTheMembersRangePickTheFaceAndOthersLeaveItAsItStood)
{
    for (Member& member : Family()) {
        StripButton& button = *member.button;
        for (int value = 0; value <= member.maxValue; ++value) {
            button.SetValue(value);
            EXPECT_EQ(button.FaceNumber(), value) << member.name;
        }
        const Face last = button.ShownFace();
        for (const int outside : { -1, member.maxValue + 1, 1000 }) {
            button.SetValue(outside);
            EXPECT_EQ(button.Value(), outside) << member.name;
            EXPECT_EQ(button.FaceNumber(), member.maxValue) << member.name;
            EXPECT_EQ(button.ShownFace(), last) << member.name;
        }
    }
}

TEST(StripButton, EveryValueHasAFaceOfItsOwn)
{
    for (Member& member : Family()) {
        QList<Face> seen;
        for (int value = 0; value <= member.maxValue; ++value) {
            member.button->SetValue(value);
            EXPECT_FALSE(seen.contains(member.button->ShownFace())) << member.name << value;
            seen << member.button->ShownFace();
        }
    }
}

TEST(StripButton, ANewButtonHasValueZeroIsEnabledAndDoesNotToggle)
{
    for (const Member& member : Family()) {
        EXPECT_EQ(member.button->Value(), 0) << member.name;
        EXPECT_TRUE(member.button->isEnabled()) << member.name;
        EXPECT_FALSE(member.button->Toggle()) << member.name;
    }
}

TEST(StripButton, AClickGoesToTheFormAndChangesNothing)
{
    OnForm stage(new VideoEditButtons);
    stage.button->SetToggle(true);
    QSignalSpy clicks(stage.button, &StripControl::Click);
    QTest::mouseClick(stage.button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(stage.button->Value(), 0);
    EXPECT_FALSE(stage.button->IsLatched());
}

TEST(StripButton, AToggleButtonIsLatchedWhileItsValueIsDown)
{
    VideoEditButtons button;
    button.SetToggle(true);
    button.SetFace(Face::SoundOff, Face::SoundOn);
    EXPECT_EQ(button.ShownFace(), Face::SoundOff);
    button.SetValue(1);
    EXPECT_EQ(button.ShownLook(), ButtonLook::Latched);
    EXPECT_EQ(button.ShownFace(), Face::SoundOn);
    button.SetValue(0);
    EXPECT_EQ(button.ShownLook(), ButtonLook::Rest);
}

TEST(StripButton, TheFiveLooksDiffer)
{
    OnForm stage(new VideoEditButtons);
    stage.button->SetToggle(true);
    QList<QImage> looks;
    const auto take = [&](ButtonLook expected) {
        EXPECT_EQ(stage.button->ShownLook(), expected);
        const QImage look = stage.button->grab().toImage();
        EXPECT_FALSE(looks.contains(look)) << static_cast<int>(expected);
        looks << look;
    };
    take(ButtonLook::Rest);
    stage.PutPointerInside();
    take(ButtonLook::Hover);
    QTest::mousePress(stage.button, Qt::LeftButton);
    take(ButtonLook::Pressed);
    QTest::mouseRelease(stage.button, Qt::LeftButton);
    stage.button->SetValue(1);
    take(ButtonLook::Latched);
    stage.button->setEnabled(false);
    take(ButtonLook::Disabled);
}

TEST(StripButton, TheTimerFindsThatThePointerHasLeftAndTheRestCellReturns)
{
    OnForm stage(new smallXPbuttons);
    QSignalSpy leaves(stage.button, &StripControl::Leave);
    stage.PutPointerInside();
    ASSERT_EQ(stage.button->ShownState(), StripControl::State::Hover);
    stage.TakePointerAwayUnseen();
    EXPECT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Rest);
}

TEST(StripButton, TheLeaveEventOfADisabledButtonLeavesItsCell)
{
    OnForm stage(new smallXPbuttons);
    QSignalSpy leaves(stage.button, &StripControl::Leave);
    stage.PutPointerInside();
    stage.button->setEnabled(false);
    stage.TakePointerAwayUnseen();
    EXPECT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Disabled);
}

TEST(StripButton, ThePointerThatCameToADisabledButtonIsMissedToo)
{
    OnForm stage(new smallXPbuttons);
    stage.button->setEnabled(false);
    QSignalSpy leaves(stage.button, &StripControl::Leave);
    stage.PutPointerInside();
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Disabled);
    stage.TakePointerAwayUnseen();
    EXPECT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Disabled);
}

TEST(StripButton, TheFormIsToldOfTheLeavingBeforeTheRestCellReturns)
{
    OnForm stage(new smallXPbuttons);
    QList<StripControl::State> seen;
    QObject::connect(stage.button, &StripControl::Leave, &stage.form, [&] {
        seen << stage.button->ShownState();
        QEvent again(QEvent::Leave); // as when the handler lets events run
        QCoreApplication::sendEvent(stage.button, &again);
    });
    stage.PutPointerInside();
    stage.TakePointerAwayUnseen();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen, QList { StripControl::State::Hover });
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Rest);
}

TEST(StripButton, TheCellStandsWhenTheFormIsToldOfTheMouse)
{
    using State = StripControl::State;
    OnForm stage(new smallXPbuttons);
    StripButton* const button = stage.button;
    QStringList told;
    const auto note = [&](const char* event) {
        constexpr const char* Names[] { "rest", "hover", "pressed", "disabled" };
        told << QStringLiteral("%1 %2").arg(event, Names[static_cast<size_t>(button->ShownState())]);
    };
    QObject::connect(button, &StripControl::MouseMove, button, [&] { note("move"); });
    QObject::connect(button, &StripControl::MouseDown, button, [&] { note("down"); });
    QObject::connect(button, &StripControl::MouseUp, button, [&] { note("up"); });
    QObject::connect(button, &StripControl::Click, button, [&] { note("click"); });
    const auto move = [&](QPoint place, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, QPointF(place), button->mapToGlobal(QPointF(place)),
            Qt::NoButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(button, &event);
    };
    move({ 9, 9 }, Qt::NoButton);
    QTest::mousePress(button, Qt::LeftButton);
    move({ 8, 8 }, Qt::LeftButton);
    move({ 60, 60 }, Qt::LeftButton);
    move({ 9, 9 }, Qt::LeftButton);
    QTest::mouseRelease(button, Qt::LeftButton);
    EXPECT_EQ(told,
        (QStringList { "move hover", "down pressed", "move pressed", "move hover", "move pressed", "up hover",
            "click hover" }));
    ASSERT_EQ(button->ShownState(), State::Hover);
}

TEST(StripButton, APressOfAnyMouseButtonShowsThePressedCellAndOnlyTheLeftOneClicks)
{
    OnForm stage(new smallXPbuttons);
    QSignalSpy clicks(stage.button, &StripControl::Click);
    for (const Qt::MouseButton other : { Qt::RightButton, Qt::MiddleButton }) {
        QTest::mousePress(stage.button, other);
        EXPECT_EQ(stage.button->ShownState(), StripControl::State::Pressed);
        QTest::mouseRelease(stage.button, other);
        EXPECT_NE(stage.button->ShownState(), StripControl::State::Pressed);
    }
    EXPECT_EQ(clicks.size(), 0);
    QTest::mousePress(stage.button, Qt::LeftButton);
    QTest::mouseClick(stage.button, Qt::RightButton);
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Pressed);
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseRelease(stage.button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
}

TEST(StripButton, AFormMayDeleteTheButtonInAnyOfItsEvents)
{
    using Control = StripControl;
    const auto dies = [](auto event, const std::function<void(QWidget*)>& act) {
        QWidget form;
        form.resize(100, 100);
        auto* const button = new smallXPbuttons(&form);
        QObject::connect(button, event, &form, [button] { delete button; });
        form.show();
        act(button);
        return form.findChildren<smallXPbuttons*>().isEmpty();
    };
    EXPECT_TRUE(dies(&Control::MouseDown, [](QWidget* of) { QTest::mousePress(of, Qt::LeftButton); }));
    EXPECT_TRUE(dies(&Control::MouseUp, [](QWidget* of) { QTest::mouseRelease(of, Qt::LeftButton); }));
    EXPECT_TRUE(dies(&Control::KeyDown, [](QWidget* of) { QTest::keyPress(of, Qt::Key_Space); }));
    EXPECT_TRUE(dies(&Control::KeyUp, [](QWidget* of) { QTest::keyRelease(of, Qt::Key_A); }));
    EXPECT_TRUE(dies(&Control::Leave, [](QWidget* of) {
        QMouseEvent move(QEvent::MouseMove, QPointF(9, 9), of->mapToGlobal(QPointF(9, 9)), Qt::NoButton,
            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(of, &move);
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(of, &leave);
    }));
}

TEST(StripButton, MouseAndKeysAreRelayedToTheForm)
{
    OnForm stage(new smallXPbuttons);
    QSignalSpy downs(stage.button, &StripControl::MouseDown);
    QSignalSpy moves(stage.button, &StripControl::MouseMove);
    QSignalSpy ups(stage.button, &StripControl::MouseUp);
    QSignalSpy keys(stage.button, &StripControl::KeyDown);
    stage.PutPointerInside();
    QTest::mouseClick(stage.button, Qt::RightButton);
    QSignalSpy keyUps(stage.button, &StripControl::KeyUp);
    QTest::keyClick(stage.button, Qt::Key_F2);
    EXPECT_EQ(keyUps.size(), 1);
    ASSERT_EQ(downs.size(), 1);
    EXPECT_EQ(downs.first().first().value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_GE(moves.size(), 1);
    EXPECT_EQ(ups.size(), 1);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys.first().first().toInt(), Qt::Key_F2);
}

TEST(StripButton, SpaceAndEnterClick)
{
    OnForm stage(new Videobuttons);
    QSignalSpy clicks(stage.button, &StripControl::Click);
    for (const Qt::Key key : { Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter })
        QTest::keyClick(stage.button, key);
    EXPECT_EQ(clicks.size(), 3);
    stage.button->setEnabled(false);
    QTest::keyClick(stage.button, Qt::Key_Space);
    EXPECT_EQ(clicks.size(), 3);
}

TEST(StripButton, TabReachesItAndShowsARingAClickShowsNone)
{
    QWidget form;
    QHBoxLayout row(&form);
    QLineEdit before;
    Front button;
    row.addWidget(&before);
    row.addWidget(&button);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_TRUE(button.HasFocusRing());
    const QImage ringed = button.grab().toImage();
    before.setFocus();
    button.setFocus(Qt::OtherFocusReason);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_FALSE(button.HasFocusRing());
    EXPECT_NE(button.grab().toImage(), ringed);
}

TEST(StripButton, FocusThatNoKeyBroughtShowsNoRingUntilAKeyIsUsed)
{
    OnForm stage(new smallXPbuttons);
    stage.form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stage.form));
    stage.button->clearFocus();
    stage.button->setFocus();
    EXPECT_TRUE(stage.button->hasFocus());
    EXPECT_FALSE(stage.button->HasFocusRing());
    QTest::keyClick(stage.button, Qt::Key_F2);
    EXPECT_TRUE(stage.button->HasFocusRing());
}

TEST(StripButton, TheAccessibleNameIsTheFacesThenTheTipsThenTheCallers)
{
    Videobuttons button;
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Play"));
    button.SetFace(Face::Loop);
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Loop"));
    button.setToolTip(QStringLiteral(" Loop OFF "));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Loop OFF"));
    button.setToolTip(QString());
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Loop OFF"));
    button.setAccessibleName(QStringLiteral("Play it again"));
    button.setToolTip(QStringLiteral(" Loop ON "));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Play it again"));
}

TEST(StripButton, AssistiveTechnologySeesAButtonWithItsName)
{
    const xphelp button;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(const_cast<xphelp*>(&button));
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::PushButton);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Help"));
}

TEST(StripButton, FrontAndHelpKeepTheirOneFaceWhateverTheirValue)
{
    Front front;
    xphelp help;
    for (StripButton* button : { static_cast<StripButton*>(&front), static_cast<StripButton*>(&help) }) {
        const Face face = button->ShownFace();
        for (const int value : { 1, 7, -1, 0 }) {
            button->SetValue(value);
            EXPECT_EQ(button->ShownFace(), face);
        }
    }
    EXPECT_NE(front.ShownFace(), help.ShownFace());
}

TEST(StripButton, HeldItIsPressedWhileThePointerIsInsideAndUpWhileItIsNot)
{
    OnForm stage(new smallXPbuttons);
    QSignalSpy clicks(stage.button, &StripControl::Click);
    const auto dragTo = [&](QPoint place) {
        QMouseEvent move(QEvent::MouseMove, QPointF(place), stage.button->mapToGlobal(QPointF(place)),
            Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(stage.button, &move);
    };
    QTest::mousePress(stage.button, Qt::LeftButton);
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Pressed);
    dragTo({ 60, 60 });
    EXPECT_NE(stage.button->ShownState(), StripControl::State::Pressed);
    dragTo({ 9, 9 });
    EXPECT_EQ(stage.button->ShownState(), StripControl::State::Pressed);
    dragTo({ 60, 60 });
    QTest::mouseRelease(stage.button, Qt::LeftButton, {}, QPoint(60, 60));
    EXPECT_EQ(clicks.size(), 0);
}

TEST(StripButton, AFormMayDeleteTheButtonInItsClick)
{
    QWidget form;
    auto* button = new xptopbuttons(&form);
    QObject::connect(button, &StripControl::Click, &form, [&] { delete button; });
    form.show();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(form.findChildren<xptopbuttons*>().isEmpty());
}

TEST(StripButton, AClickLeavesTheKeyboardWhereItWas)
{
    OnForm stage(new smallXPbuttons);
    QLineEdit box(&stage.form);
    box.show();
    stage.form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&stage.form));
    box.setFocus();
    QSignalSpy clicks(stage.button, &StripButton::Click);
    QTest::mouseClick(stage.button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_TRUE(box.hasFocus());
}

TEST(StripButton, APressOnADisabledOneStaysWithIt)
{
    class Ground : public QWidget {
    public:
        int presses = 0;

    protected:
        void mousePressEvent(QMouseEvent*) override { ++presses; }
    };
    Ground ground;
    auto* button = new smallXPbuttons(&ground);
    button->setGeometry(0, 0, 28, 28);
    button->setEnabled(false);
    ground.resize(100, 100);
    ground.show();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(ground.presses, 0);
    QTest::mouseClick(&ground, Qt::LeftButton, {}, QPoint(60, 60));
    EXPECT_EQ(ground.presses, 1);
}
