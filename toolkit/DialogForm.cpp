#include "toolkit/DialogForm.h"

#include "toolkit/FrameDrag.h"
#include "toolkit/TitleStrip.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

constexpr int Edge = 1;

} // namespace

DialogForm::DialogForm(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::FramelessWindowHint)
    , strip_(new TitleStrip(this))
    , column_(new QVBoxLayout(this))
    , drag_(new FrameDrag(this))
{
    column_->setContentsMargins(Edge, Edge, Edge, Edge);
    column_->setSpacing(0);
    column_->addWidget(strip_);
    connect(strip_, &TitleStrip::MoveRequested, drag_, &FrameDrag::StartMove);
}

void DialogForm::SetTitle(const QString& title)
{
    strip_->SetTitle(title);
    setWindowTitle(title);
}

void DialogForm::AddBody(QWidget* body)
{
    column_->addWidget(body);
}

void DialogForm::KeepFitting()
{
    column_->setSizeConstraint(QLayout::SetFixedSize);
}

void DialogForm::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        strip_->SetActive(isActiveWindow());
}

void DialogForm::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        drag_->StartMove(event->globalPosition().toPoint());
}
