#pragma once

#include "app/FormDialog.h"

class Frame;
class QLineEdit;
class TAQbutton;

/// Asks for the words that go on the next captures; they last until the program ends. Closed, or saved blank,
/// it leaves the text in force.
class frmWatermark : public FormDialog {
    Q_OBJECT

public:
    frmWatermark(Frame& frame, QWidget* owner);

private:
    void Build();
    void Save();

    Frame& frame_;
    QLineEdit* edtURL;
    TAQbutton* CmdOK;
};

/// Runs the dialog over the frame. Events are handled meanwhile, so anything may have gone.
void AskUserText(Frame& frame);
