#include "toolkit/LineRow.h"

#include "toolkit/DialogForm.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace {

constexpr int Columns = 52; // of the text box, in average characters

} // namespace

void AddLineRow(DialogForm& form, QLineEdit& edtURL, TAQbutton& CmdOK)
{
    edtURL.setObjectName(QStringLiteral("edtURL"));
    edtURL.setMinimumWidth(form.fontMetrics().averageCharWidth() * Columns);
    CmdOK.setObjectName(QStringLiteral("CmdOK"));
    QObject::connect(&edtURL, &QLineEdit::returnPressed, &CmdOK, &TAQbutton::click);

    auto* body = new QWidget(&form);
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(3 * Grid, 3 * Grid, 3 * Grid, 3 * Grid);
    row->setSpacing(2 * Grid);
    row->addWidget(&edtURL, 1);
    row->addWidget(&CmdOK);
    form.AddBody(body);
    form.KeepFitting();
    edtURL.setFocus();
}
