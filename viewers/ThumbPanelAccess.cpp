#include "viewers/ThumbPanelAccess.h"

#include "viewers/ThumbPanel.h"

#include <QAccessibleWidget>

#include <map>

namespace {

/// One cell.
class ThumbAccess : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    ThumbAccess(ThumbPanel& panel, int index)
        : panel_(panel)
        , index_(index)
    {
    }

    bool isValid() const override { return index_ < panel_.Count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&panel_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QRect rect() const override
    {
        const QRect cell = panel_.CellRect(index_);
        return { panel_.mapToGlobal(cell.topLeft()), cell.size() };
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.selected = panel_.Selected() == index_;
        state.focused = state.selected && panel_.hasFocus();
        state.invisible = !panel_.isVisible();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? QStringLiteral("Thumbnail %1").arg(index_ + 1) : QString();
    }
    void setText(QAccessible::Text, const QString&) override { }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override { return { pressAction() }; }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            Q_EMIT panel_.Clicked(index_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    int Index() const { return index_; }

private:
    ThumbPanel& panel_;
    int index_;
};

/// The list of all cells; those that were asked for are kept.
class ThumbPanelAccess : public QAccessibleWidget {
public:
    explicit ThumbPanelAccess(ThumbPanel& panel)
        : QAccessibleWidget(&panel, QAccessible::List)
    {
    }
    ~ThumbPanelAccess() override
    {
        for (const auto& [index, id] : cells_)
            QAccessible::deleteAccessibleInterface(id);
    }
    ThumbPanelAccess(const ThumbPanelAccess&) = delete;
    ThumbPanelAccess& operator=(const ThumbPanelAccess&) = delete;

    int childCount() const override { return Panel().Count(); }
    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= Panel().Count())
            return nullptr;
        const auto found = cells_.find(index);
        if (found != cells_.end())
            return QAccessible::accessibleInterface(found->second);
        auto* cell = new ThumbAccess(Panel(), index);
        cells_[index] = QAccessible::registerAccessibleInterface(cell);
        return cell;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(Panel().IndexAt(Panel().mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override { return child(Panel().Selected()); }
    int indexOfChild(const QAccessibleInterface* cell) const override
    {
        const auto* known = dynamic_cast<const ThumbAccess*>(cell);
        return known ? known->Index() : -1;
    }

private:
    ThumbPanel& Panel() const { return static_cast<ThumbPanel&>(*widget()); }

    mutable std::map<int, QAccessible::Id> cells_;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* panel = qobject_cast<ThumbPanel*>(object);
    return panel ? new ThumbPanelAccess(*panel) : nullptr;
}

void Tell(ThumbPanel& panel, int index, QAccessible::Event what)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&panel, what);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void InstallThumbPanelAccess()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

void TellThumbAdded(ThumbPanel& panel, int index)
{
    Tell(panel, index, QAccessible::ObjectCreated);
}

void TellThumbSelected(ThumbPanel& panel, int index)
{
    Tell(panel, index, QAccessible::Focus);
}
