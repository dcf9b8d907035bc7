#include "app/ErrFrmBox.h"

#include "app/ApplicationState.h"
#include "app/ErrFrm.h"
#include "app/Hourglass.h"

#include <QScopedValueRollback>

void ErrFrmBox::Show(QWidget* owner, const QString& title, const QString& message)
{
    Run(owner, title, message, Silence::NotOffered);
}

void ErrFrmBox::ShowPlayerError(QWidget* owner, const QString& title, const QString& message)
{
    if (!state_.ShowPlayerErrors || isPlayerErrorOpen_)
        return;
    const QScopedValueRollback open(isPlayerErrorOpen_, true);
    if (Run(owner, title, message, Silence::Offered))
        state_.ShowPlayerErrors = false;
}

bool ErrFrmBox::Run(QWidget* owner, const QString& title, const QString& message, Silence silence)
{
    const PointerPause pause;
    state_.MessageText = message;
    const QPointer<ErrFrm> form = new ErrFrm(owner, title, message);
    if (silence == Silence::Offered)
        form->OfferSilence();
    const bool isEnded = form->exec() == QDialog::Accepted;
    const bool isSilenceAsked = form && form->IsSilenceAsked();
    delete form;
    return isEnded && isSilenceAsked;
}
