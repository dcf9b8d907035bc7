#include "app/FormDialog.h"

#include "app/ApplicationState.h"
#include "app/FormShadow.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/Style.h"

#include <QHBoxLayout>
#include <QPushButton>

FormDialog::FormDialog(const ApplicationState& state, QWidget* owner, const QString& name)
    : DialogForm(owner)
    , state_(state)
{
    setObjectName(name);
}

StripButton* FormDialog::AddCloseButton(const char* tip, const char* name)
{
    const FormButton<FormDialog> row { 0, Face::Close, tip, name, [](FormDialog& form) { form.reject(); } };
    StripButton* const button = MakeFormButton<smallXPbuttons>(row, *this, this);
    Head().AddButton(button);
    return button;
}

QWidget* FormDialog::MakeFoot(const char* acceptName, const char* cancelName)
{
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * Grid);
    auto* accept = new QPushButton(QStringLiteral("Accept"), foot);
    accept->setObjectName(QLatin1String(acceptName));
    accept->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), foot);
    cancel->setObjectName(QLatin1String(cancelName));
    cancel->setAutoDefault(false);
    row->addStretch();
    row->addWidget(accept);
    row->addWidget(cancel);
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return foot;
}

void FormDialog::Dress()
{
    AddShadow(*this, state_);
    state_.ApplyToolTips(*this);
}

void FormDialog::done(int result)
{
    if (FadeAtClosing(*this, state_))
        DialogForm::done(result);
}
