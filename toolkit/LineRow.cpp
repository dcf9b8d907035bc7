#include "toolkit/LineRow.h"

#include "toolkit/DialogForm.h"
#include "toolkit/TAQbutton.h"

#include <QHBoxLayout>
#include <QLineEdit>

namespace {

constexpr int Columns = 52; // of the text box, in average characters
constexpr int Gap = 4; // the grid

} // namespace

void AddLineRow(DialogForm& form, QLineEdit& edtURL, TAQbutton& CmdOK)
{
    edtURL.setObjectName(QStringLiteral("edtURL"));
    edtURL.setMinimumWidth(form.fontMetrics().averageCharWidth() * Columns);
    CmdOK.setObjectName(QStringLiteral("CmdOK"));
    QObject::connect(&edtURL, &QLineEdit::returnPressed, &CmdOK, &TAQbutton::click);

    auto* body = new QWidget(&form);
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(3 * Gap, 3 * Gap, 3 * Gap, 3 * Gap);
    row->setSpacing(2 * Gap);
    row->addWidget(&edtURL, 1);
    row->addWidget(&CmdOK);
    form.AddBody(body);
    form.KeepFitting();
    edtURL.setFocus();
}
