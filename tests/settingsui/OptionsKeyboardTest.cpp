#include "tests/settingsui/OptionsFixture.h"
#include "tests/testing/AccessFaults.h"

#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTabBar>

#include <ranges>

namespace {

/// What a person sees of a control's value.
QString Seen(const QWidget& control)
{
    if (const auto* box = qobject_cast<const xpcheckbox*>(&control))
        return QString::number(box->Value());
    if (const auto* radio = qobject_cast<const xpradiobutton*>(&control))
        return QString::number(radio->Value());
    if (const auto* slider = qobject_cast<const QSlider*>(&control))
        return QString::number(slider->value());
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control))
        return edit->text();
    if (const auto* text = qobject_cast<const QPlainTextEdit*>(&control))
        return text->toPlainText();
    if (const auto* list = qobject_cast<const QComboBox*>(&control))
        return list->currentText();
    if (const auto* list = qobject_cast<const QListWidget*>(&control))
        return QString::number(list->currentRow());
    return {};
}

/// The key by which a person changes a control.
Qt::Key ChangingKey(const QWidget& control)
{
    if (qobject_cast<const QSlider*>(&control))
        return Qt::Key_Right;
    if (qobject_cast<const QLineEdit*>(&control) || qobject_cast<const QPlainTextEdit*>(&control))
        return Qt::Key_7;
    if (qobject_cast<const QComboBox*>(&control) || qobject_cast<const QListWidget*>(&control))
        return Qt::Key_Down;
    return Qt::Key_Space;
}

class OptionsKeyboard : public OptionsFixture {
protected:
    void SetUp() override
    {
        Store("AutoSave", "True"); // opens every control
        Store("SpecialFolder", "True");
        BeginActive();
    }
    void BeginActive()
    {
        Begin();
        Activate();
    }
    /// A button of a page, and the letter that presses it with Alt.
    struct ButtonRow {
        Page page;
        const char* button;
        Qt::Key letter;
    };
    static constexpr ButtonRow Buttons[] = { { AutoNamePage, "Cmds(1)", Qt::Key_B },
        { DisplayPage, "Cmds(3)", Qt::Key_B }, { PrintPage, "Cmds(2)", Qt::Key_D },
        { PrintPage, "Co", Qt::Key_E }, { WatermarkPage, "Cmds(5)", Qt::Key_F } };

    /// The way presses the button, once.
    void ExpectPressed(const ButtonRow& row, const std::function<void()>& press)
    {
        auto* button = Find<Button_XP>(row.button);
        button->disconnect(SIGNAL(Click())); // what it opens is told elsewhere
        QSignalSpy pressed(button, &Button_XP::Click);
        press();
        EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() > 0; })) << row.button;
        EXPECT_EQ(pressed.size(), 1) << row.button;
    }
    static QWidget* Focus() { return QApplication::focusWidget(); }
    /// Tab from the tabs on, around the page and back to them.
    QList<QWidget*> Walk()
    {
        QWidget* const tabs = Tabs().tabBar();
        tabs->setFocus();
        QList<QWidget*> reached;
        for (QTest::keyClick(tabs, Qt::Key_Tab); Focus() != tabs && !reached.contains(Focus());
             QTest::keyClick(Focus(), Qt::Key_Tab))
            reached << Focus();
        return reached;
    }
    void ComeToByKeys(int page)
    {
        QWidget* const tabs = Tabs().tabBar();
        tabs->setFocus();
        while (Tabs().currentIndex() < page)
            QTest::keyClick(tabs, Qt::Key_Right);
    }
    /// The controls of a page that hold a value.
    QList<QWidget*> Controls(int page)
    {
        QList<QWidget*> controls;
        for (QWidget* const one : Tabs().widget(page)->findChildren<QWidget*>())
            if (!one->objectName().startsWith(QStringLiteral("qt_")) && !Seen(*one).isNull()
                && one->window() == form.get() && one->isEnabled())
                controls << one;
        return controls; // without the two folders that the user's own one closes; they are told below
    }
    void ChangeByKey(QWidget& control)
    {
        const QString before = Seen(control);
        control.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&control, ChangingKey(control));
        auto* radio = qobject_cast<xpradiobutton*>(&control);
        if (radio)
            EXPECT_TRUE(radio->Value()) << control.objectName().toStdString();
        else
            EXPECT_NE(Seen(control).toStdString(), before.toStdString())
                << control.objectName().toStdString();
    }
};

} // namespace

TEST_F(OptionsKeyboard, ReachesAndChangesEveryControlOfEveryPage)
{
    int changed = 0;
    for (int page = 0; page < Tabs().count(); ++page) {
        ComeToByKeys(page);
        ASSERT_EQ(Tabs().currentIndex(), page);
        const QList<QWidget*> reached = Walk();
        const QList<QWidget*> controls = Controls(page);
        EXPECT_FALSE(controls.isEmpty()) << page;
        // From the last to the first: a switch may close what stands below it.
        for (QWidget* const control : controls | std::views::reverse) {
            EXPECT_TRUE(reached.contains(control)) << control->objectName().toStdString();
            ChangeByKey(*control);
            ++changed;
        }
    }
    EXPECT_EQ(changed, 49);
}

TEST_F(OptionsKeyboard, ReachesTheFoldersThatTheUsersOwnOneCloses)
{
    Store("SpecialFolder", "False");
    BeginActive();
    const QList<QWidget*> reached = Walk();
    for (const char* name : { "Option1", "Option2" }) {
        EXPECT_TRUE(reached.contains(Find(name))) << name;
        ChangeByKey(*Find(name));
    }
}

TEST_F(OptionsKeyboard, ReachesEveryButtonAndPressesIt)
{
    for (const ButtonRow& row : Buttons) {
        ComeTo(row.page);
        EXPECT_TRUE(Walk().contains(Find(row.button))) << row.button;
        ExpectPressed(row, [&] { QTest::keyClick(Find(row.button), Qt::Key_Space); });
    }
    EXPECT_TRUE(Walk().contains(Find("Cmds(0)")));
    QTest::keyClick(Find("Cmds(0)"), Qt::Key_Space);
    EXPECT_EQ(form->result(), QDialog::Accepted);
}

TEST_F(OptionsKeyboard, AltAndTheUnderlinedLetterPressAButtonOfThePage)
{
    for (const ButtonRow& row : Buttons) {
        ComeTo(row.page);
        ExpectPressed(row, [&] { QTest::keyClick(form.get(), row.letter, Qt::AltModifier); });
    }
}

TEST_F(OptionsKeyboard, AnAmpersandOfACaptionIsNoKey)
{
    ComeTo(PrintPage);
    QTest::keyClick(form.get(), Qt::Key_W, Qt::AltModifier);
    EXPECT_FALSE(IsSet("check9"));
}

TEST_F(OptionsKeyboard, AltSSavesFromEveryPage)
{
    for (int page = 0; page < 8; ++page) {
        BeginActive();
        Tabs().setCurrentIndex(page);
        QTest::keyClick(form.get(), Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([this] { return form->result() == QDialog::Accepted; })) << page;
    }
}

TEST_F(OptionsKeyboard, EscapeClosesWithoutSaving)
{
    Click("check5");
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored("LoadVid"), QStringLiteral("nothing"));
}

TEST_F(OptionsKeyboard, EveryControlOfEveryPageHasANameAndIsReachedByKeys)
{
    for (int page = 0; page < Tabs().count(); ++page) {
        Tabs().setCurrentIndex(page);
        EXPECT_EQ(AccessFaults(*form), "") << Tabs().tabText(page).toStdString();
    }
}
