#pragma once

#include "toolkit/DialogForm.h"

class ApplicationState;
class StripButton;

/// A dialog of the program, with what all of them have: a button that closes it, the shadow, the fade at its
/// end and tool tips as the user wants them.
class FormDialog : public DialogForm {
    Q_OBJECT

public:
    /// name is the form's object name.
    FormDialog(const ApplicationState& state, QWidget* owner, const QString& name);

    /// Fades, then ends the dialog, unless something showed it again meanwhile.
    void done(int result) override;

protected:
    /// Puts Cmds(0), which leaves without a choice, into the head. name is for those who cannot see it.
    StripButton* AddCloseButton(
        const char* tip = "Cancel and Close. ", const char* name = "Cancel and close");
    /// The row at the foot that takes the choice or leaves it, by the names of its two buttons.
    QWidget* MakeFoot(const char* acceptName, const char* cancelName);
    /// The last step of a form's making.
    void Dress();

private:
    const ApplicationState& state_;
};
