#pragma once

#include "app/Talk.h"

class ApplicationState;

/// Shows messages in the message form, modally, with the normal pointer meanwhile. The owner may go while one
/// stands.
class ErrFrmBox : public ErrorBox {
public:
    explicit ErrFrmBox(ApplicationState& state)
        : state_(state)
    {
    }

    void Show(QWidget* owner, const QString& title, const QString& message) override;
    /// While such a message stands, further ones are dropped. The end button clears ShowPlayerErrors when the
    /// check box is set.
    void ShowPlayerError(QWidget* owner, const QString& title, const QString& message) override;

private:
    enum class Silence { NotOffered, Offered };
    /// True when the user ended the form with the check box set.
    bool Run(QWidget* owner, const QString& title, const QString& message, Silence silence);

    ApplicationState& state_;
    bool isPlayerErrorOpen_ = false;
};
