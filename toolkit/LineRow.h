#pragma once

class DialogForm;
class QLineEdit;
class TAQbutton;

/// Gives a dialog that asks for one line its body: a wide text box, edtURL, and the button that takes the
/// line, CmdOK, which Enter presses as well. The form is as large as they need.
void AddLineRow(DialogForm& form, QLineEdit& edtURL, TAQbutton& CmdOK);
