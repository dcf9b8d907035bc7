#pragma once

#include "toolkit/DialogForm.h"

class xpcheckbox;

/// The program's one message form: a title, a text that wraps and scrolls when it is long, the button that
/// ends it. Control characters and undecodable bytes of file names are shown as replacement signs; line
/// breaks stay.
class ErrFrm : public DialogForm {
    Q_OBJECT

public:
    ErrFrm(QWidget* owner, const QString& title, const QString& message);

    /// Shows the check box that asks for silence about errors of the player.
    void OfferSilence();
    bool IsSilenceAsked() const;

private:
    QWidget* MakeText(const QString& message);
    QWidget* MakeFoot();

    xpcheckbox* silence_;
};
