#pragma once

#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QWidget>

#include <algorithm>

/// Walks a window as assistive technology and the keyboard do.
class AccessWalk {
public:
    /// Shows the window if it is not yet shown, and gives it the keyboard.
    explicit AccessWalk(QWidget& window)
        : window_(window)
    {
    }

    /// What keeps a person without sight or mouse out, one sentence for each control without a name and each
    /// that the keys Tab and F6 do not come to; empty when all is well. A disabled control need only take
    /// part once it is enabled.
    QStringList Faults()
    {
        window_.show();
        window_.activateWindow();
        if (!QTest::qWaitForWindowActive(&window_))
            return { QStringLiteral("the window did not become active") };
        FollowKeys();
        Look(QAccessible::queryAccessibleInterface(&window_));
        if (controls_ == 0)
            faults_ << QStringLiteral("no control was found");
        return faults_;
    }

private:
    static bool IsInteractive(QAccessible::Role role)
    {
        constexpr QAccessible::Role Roles[] { QAccessible::PushButton, QAccessible::ButtonMenu,
            QAccessible::ButtonDropDown, QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::Slider,
            QAccessible::SpinBox, QAccessible::ComboBox, QAccessible::EditableText, QAccessible::List,
            QAccessible::Table, QAccessible::Tree, QAccessible::PageTabList, QAccessible::Link };
        return std::ranges::count(Roles, role) > 0;
    }

    static bool TakesTab(const QWidget& widget) { return (widget.focusPolicy() & Qt::TabFocus) != 0; }

    static QString Called(const QWidget& widget)
    {
        return QStringLiteral("%1 \"%2\"")
            .arg(QLatin1String(widget.metaObject()->className()), widget.objectName());
    }

    static QWidget* Press(QWidget* at, Qt::Key key)
    {
        QTest::keyClick(at, key);
        return QApplication::focusWidget();
    }

    /// Presses Tab and Shift+Tab until they come back to where they have been, then F6 to go on in another
    /// pane.
    void FollowKeys()
    {
        if (!QApplication::focusWidget())
            Press(&window_, Qt::Key_Tab);
        QSet<QWidget*> entries;
        for (QWidget* entry = QApplication::focusWidget(); entry && !entries.contains(entry);
             entry = Press(QApplication::focusWidget(), Qt::Key_F6)) {
            entries.insert(entry);
            for (const Qt::Key key : { Qt::Key_Tab, Qt::Key_Backtab }) {
                reached_.insert(entry);
                entry->setFocus();
                for (QWidget* at = Press(entry, key); at && !reached_.contains(at); at = Press(at, key))
                    reached_.insert(at);
            }
        }
    }

    /// Other child windows are windows of their own, that Ctrl+Tab comes to.
    static bool IsChildBehind(const QWidget* widget)
    {
        const auto* child = qobject_cast<const QMdiSubWindow*>(widget);
        return child && child->mdiArea() && child->mdiArea()->currentSubWindow() != child;
    }

    void Look(QAccessibleInterface* seen)
    {
        if (!seen || seen->state().invisible)
            return;
        auto* widget = qobject_cast<QWidget*>(seen->object());
        if (IsChildBehind(widget))
            return;
        const bool isControl = IsInteractive(seen->role());
        const bool isWindow = seen->role() == QAccessible::Window || widget == &window_;
        if (widget && !isWindow && (isControl || TakesTab(*widget)))
            Judge(*widget, *seen);
        if (isControl)
            return; // what it is made of is its own affair
        for (int i = 0; i < seen->childCount(); ++i)
            Look(seen->child(i));
    }

    /// The keys come to the chosen one of a group; the arrows lead on from there.
    static bool IsReachedByArrows(const QWidget& widget)
    {
        const auto* option = qobject_cast<const QRadioButton*>(&widget);
        return option && !option->isChecked() && option->group() && option->group()->exclusive();
    }

    void Judge(QWidget& widget, QAccessibleInterface& seen)
    {
        ++controls_;
        if (seen.text(QAccessible::Name).trimmed().isEmpty())
            faults_ << Called(widget) + QStringLiteral(" has no name");
        if (IsReachedByArrows(widget))
            return;
        if (!TakesTab(widget) || (widget.isEnabled() && !reached_.contains(&widget)))
            faults_ << Called(widget) + QStringLiteral(" is not reached by keys");
    }

    QWidget& window_;
    QSet<QWidget*> reached_;
    QStringList faults_;
    int controls_ = 0;
};

/// AccessWalk's faults as one text, for a test's message.
inline std::string AccessFaults(QWidget& window)
{
    return AccessWalk(window).Faults().join(u'\n').toStdString();
}
