#include "text/frmWatermark.h"

#include "app/ApplicationState.h"
#include "app/FormShadow.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/TAQbutton.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>

namespace {

constexpr int Columns = 52; // of the text box, in average characters
constexpr int Gap = 4; // the grid

bool IsBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}

} // namespace

frmWatermark::frmWatermark(Frame& frame, QWidget* owner)
    : DialogForm(owner)
    , frame_(frame)
    , edtURL(new QLineEdit(this))
    , CmdOK(new TAQbutton(this))
{
    setObjectName(QStringLiteral("frmWatermark"));
    SetTitle(QStringLiteral("Watermark Text"));
    Build();
    AddShadow(*this, frame_.State());
    // At first the button takes an empty box, too: that keeps the text in force.
    connect(edtURL, &QLineEdit::textChanged, CmdOK,
        [this](const QString& text) { CmdOK->setEnabled(!IsBlank(text)); });
    connect(edtURL, &QLineEdit::returnPressed, CmdOK, &TAQbutton::click);
    connect(CmdOK, &TAQbutton::Click, this, &frmWatermark::Save);
    frame_.State().ApplyToolTips(*this);
}

void frmWatermark::Build()
{
    static constexpr FormButton<frmWatermark> CloseButton { 0, Face::Close, "Cancel and Close. ",
        "Cancel and close", [](frmWatermark& form) { form.reject(); } };
    Head().AddButton(MakeFormButton<smallXPbuttons>(CloseButton, *this, this));

    edtURL->setObjectName(QStringLiteral("edtURL"));
    edtURL->setAccessibleName(QStringLiteral("Watermark text"));
    edtURL->setProperty("Tag", QStringLiteral("Enter the wartermark text to place on captures."));
    edtURL->setPlaceholderText(frame_.State().sFontText.simplified());
    edtURL->setMinimumWidth(fontMetrics().averageCharWidth() * Columns);
    CmdOK->setObjectName(QStringLiteral("CmdOK"));
    CmdOK->SetFace(Face::Save);
    CmdOK->SetCaption(QStringLiteral("Save"));
    CmdOK->setProperty("Tag", QStringLiteral("Save Watermark."));

    auto* body = new QWidget(this);
    auto* row = new QHBoxLayout(body);
    row->setContentsMargins(3 * Gap, 3 * Gap, 3 * Gap, 3 * Gap);
    row->setSpacing(2 * Gap);
    row->addWidget(edtURL, 1);
    row->addWidget(CmdOK);
    AddBody(body);
    KeepFitting();
    edtURL->setFocus();
}

void frmWatermark::done(int result)
{
    if (FadeAtClosing(*this, frame_.State()))
        DialogForm::done(result);
}

void frmWatermark::Save()
{
    const QString text = edtURL->text();
    if (IsBlank(text)) {
        frame_.SetStatusAlert(StatusLabel::Operation, QStringLiteral("Cancelled"));
        return reject();
    }
    frame_.SetStatus(StatusLabel::Operation, QStringLiteral("Enter watermark text."));
    frame_.State().sFontText = text;
    accept();
}

void AskUserText(Frame& frame)
{
    const PointerPause pause;
    const QPointer<frmWatermark> form = new frmWatermark(frame, frame.FrameWindow());
    form->exec();
    delete form;
}
