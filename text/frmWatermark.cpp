#include "text/frmWatermark.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "toolkit/LineRow.h"
#include "toolkit/TAQbutton.h"

#include <QLineEdit>
#include <QPointer>

namespace {

bool IsBlank(const QString& text)
{
    return text.trimmed().isEmpty();
}

} // namespace

frmWatermark::frmWatermark(Frame& frame, QWidget* owner)
    : FormDialog(frame.State(), owner, QStringLiteral("frmWatermark"))
    , frame_(frame)
    , edtURL(new QLineEdit(this))
    , CmdOK(new TAQbutton(this))
{
    SetTitle(QStringLiteral("Watermark Text"));
    Build();
    // At first the button takes an empty box, too: that keeps the text in force.
    connect(edtURL, &QLineEdit::textChanged, CmdOK,
        [this](const QString& text) { CmdOK->setEnabled(!IsBlank(text)); });
    connect(CmdOK, &TAQbutton::Click, this, &frmWatermark::Save);
    Dress();
}

void frmWatermark::Build()
{
    AddCloseButton();

    edtURL->setAccessibleName(QStringLiteral("Watermark text"));
    edtURL->setProperty("Tag", QStringLiteral("Enter the wartermark text to place on captures."));
    edtURL->setPlaceholderText(frame_.State().sFontText.simplified());
    CmdOK->SetFace(Face::Save);
    CmdOK->SetCaption(QStringLiteral("Save"));
    CmdOK->setProperty("Tag", QStringLiteral("Save Watermark."));
    AddLineRow(*this, *edtURL, *CmdOK);
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
