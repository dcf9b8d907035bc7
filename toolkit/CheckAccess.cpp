#include "toolkit/CheckAccess.h"

#include "toolkit/CaptionControl.h"

#include <QAccessibleWidget>

namespace {

class CheckAccess : public QAccessibleWidget {
public:
    explicit CheckAccess(CaptionControl& control)
        : QAccessibleWidget(&control, control.AccessRole())
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? Control().Caption().simplified() : given;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = Control().Check() == Qt::Checked;
        state.checkStateMixed = Control().Check() == Qt::PartiallyChecked;
        return state;
    }
    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (widget()->isEnabled())
            names.prepend(toggleAction());
        return names;
    }
    void doAction(const QString& name) override
    {
        if (name == toggleAction())
            Control().click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    CaptionControl& Control() const { return static_cast<CaptionControl&>(*widget()); }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* control = qobject_cast<CaptionControl*>(object);
    return control ? new CheckAccess(*control) : nullptr;
}

} // namespace

void InstallCheckAccess()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakeAccess);
        return true;
    }();
    Q_UNUSED(isInstalled)
}
