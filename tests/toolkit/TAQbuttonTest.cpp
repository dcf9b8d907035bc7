#include "toolkit/TAQbutton.h"

#include "toolkit/Style.h"

#include <QFontMetrics>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

TEST(TAQbutton, StateIsZeroAtFirstAndLatchesTheButton)
{
    TAQbutton button;
    EXPECT_EQ(button.State(), 0);
    EXPECT_EQ(button.ShownLook(), ButtonLook::Rest);
    button.SetState(1);
    EXPECT_EQ(button.ShownLook(), ButtonLook::Latched);
}

TEST(TAQbutton, TheCaptionNamesItAndIsNeverClipped)
{
    TAQbutton button;
    button.SetFace(Face::Save);
    button.SetCaption(QStringLiteral("Save Capture"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Save Capture"));
    QFont large = button.font();
    large.setPointSize(large.pointSize() + 2);
    button.setFont(large);
    const QFontMetrics metrics(large);
    EXPECT_GT(button.minimumSizeHint().width(), metrics.horizontalAdvance(button.Caption()));
    EXPECT_GT(button.minimumSizeHint().height(), metrics.height() + 20);
}

TEST(TAQbutton, ForeColorIsTheStylesUntilOneIsSet)
{
    TAQbutton button;
    EXPECT_EQ(button.ForeColor(), StyleColor(Token::Text));
    button.SetForeColor(QColor(1, 2, 3));
    EXPECT_EQ(button.ForeColor(), QColor(1, 2, 3));
}

TEST(TAQbutton, OneClickOfMouseOrKeyIsOneClick)
{
    TAQbutton button;
    button.show();
    QSignalSpy clicks(&button, &StripControl::Click);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 2);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 2);
}

TEST(TAQbutton, ANewOneIsEnabledWithoutCaptionOrPicture)
{
    const TAQbutton button;
    EXPECT_TRUE(button.isEnabled());
    EXPECT_EQ(button.Caption(), QString());
    EXPECT_EQ(button.ShownFace(), Face::None);
}

TEST(TAQbutton, TheTimerFindsThatThePointerHasLeft)
{
    QWidget form;
    form.resize(300, 200);
    auto* button = new TAQbutton(&form);
    button->setGeometry(50, 50, 80, 60);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QSignalSpy leaves(button, &StripControl::Leave);
    QTest::mouseMove(button, button->rect().center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button->ShownLook() == ButtonLook::Hover; }));
    QCursor::setPos(form.mapToGlobal(QPoint(250, 150)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return leaves.size() == 1; }));
    EXPECT_EQ(button->ShownLook(), ButtonLook::Rest);
}
