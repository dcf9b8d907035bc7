#include "app/RaiseUnderMouse.h"

#include "app/ApplicationState.h"
#include "toolkit/ChildForm.h"

#include <QEvent>

namespace {

class MouseWatch : public QObject {
public:
    MouseWatch(ChildForm& form, const ApplicationState& state)
        : QObject(&form)
        , form_(form)
        , state_(state)
    {
        form.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Enter && state_.SetFocusYES)
            form_.BringToFront();
        return false;
    }

private:
    ChildForm& form_;
    const ApplicationState& state_;
};

} // namespace

void RaiseUnderMouse(ChildForm& form, const ApplicationState& state)
{
    new MouseWatch(form, state);
}
